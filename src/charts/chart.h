#pragma once

#include <string>
#include <vector>

namespace orvel {

// A diagram as plain data in its own coordinates; a painter only maps them to its surface. Texts are bytes of
// Windows-1252.

// The roles of colours. The painter owns the colours; they must differ from each other and from the frame.
enum class Colour { Series, Marked, Term_1, Term_2, Term_3, Term_4, Term_5, Term_6, Term_7 };

struct Chart_Point {
    double X = 0, Y = 0;
    bool operator==(const Chart_Point&) const = default;
};

struct Chart_Line {
    Colour Drawn_In = Colour::Series;
    std::vector<Chart_Point> Points; // joined in order
    std::vector<std::string> Names;  // of the points, such as dates; empty: their positions name them
    std::string Name;                // written behind the line's right end
};

// A filled box between the x axis and Y, which may lie below it.
struct Chart_Box {
    Colour Drawn_In = Colour::Series;
    double Left = 0, Right = 0, Y = 0;
    std::string Name;  // names it beside its value; empty: its position does
    std::string Label; // written at its end
    bool operator==(const Chart_Box&) const = default;
};

// A filled bar that lies between two positions.
struct Chart_Bar {
    Colour Drawn_In = Colour::Series;
    double From = 0, To = 0;  // of the x axis
    double Low = 0, High = 0; // of the y axis
    std::string Name;         // all that is said of it where the mouse is
    std::string Label;        // written beyond its end `To`
    bool operator==(const Chart_Bar&) const = default;
};

// A value of its own, drawn over boxes and lines.
struct Chart_Dot {
    Colour Drawn_In = Colour::Series;
    double X = 0, Y = 0;
    std::string Name;    // names it beside its value
    bool Marked = false; // stands out
    bool operator==(const Chart_Dot&) const = default;
};

enum class Tick_Rank { Big, Small, Tiny };

struct Chart_Tick {
    double At = 0;
    Tick_Rank Rank = Tick_Rank::Big;
    std::string Label; // only big ticks have one
    bool operator==(const Chart_Tick&) const = default;
};

struct Chart_Axis {
    std::string Title;
    double Low = 0, High = 1;
    double First = 0;   // where positions count from; the labels already include it
    bool Whole = false; // of positions between which there is nothing, such as days: ticks stand at whole ones
    std::vector<Chart_Tick> Ticks;
};

// The coordinates of the picture's edges.
struct Chart_Frame {
    double Left = 0, Right = 0, Bottom = 0, Top = 0;
};

struct Chart_Key {
    Colour Drawn_In = Colour::Series;
    std::string Text;
    bool operator==(const Chart_Key&) const = default;
};

struct Chart {
    std::string Title;
    std::string Unit;                // of the values
    std::vector<std::string> Legend; // lines above the diagram
    std::string Nothing;             // why there is nothing to see, written into the plane
    Chart_Frame Frame;
    Chart_Axis X, Y;
    std::vector<Chart_Box> Boxes; // below the lines
    std::vector<Chart_Bar> Bars;  // the same, of a chart that has no boxes
    std::vector<Chart_Line> Lines;
    std::vector<Chart_Key> Key;
    std::vector<Chart_Dot> Dots; // above the lines
};

// Sizes of the drawing convention, as shares of the length L of the x axis and of the size T of the y axis
// (Value_Size).
constexpr double Big_Y_Tick = 1.0 / 50, Small_Y_Tick = 1.0 / 100, Tiny_Y_Tick = 1.0 / 200; // of L
constexpr double Big_X_Tick = 1.0 / 30, Small_X_Tick = 1.0 / 60, Tiny_X_Tick = 1.0 / 120;  // of T
constexpr double Y_Label_Left = -1.0 / 10, Long_Y_Label_Left = -1.0 / 9;                   // of L
constexpr std::size_t Long_Label = 6;       // characters; from here on a label is long and has the smaller font
constexpr double X_Label_Below = -1.0 / 20; // of T
constexpr double Dot_Radius = 0.18, Marked_Dot_Radius = 0.3; // of a line of text
constexpr double Label_Points = 9.75, Long_Label_Points = 8;

} // namespace orvel
