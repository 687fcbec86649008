#pragma once

#include "core/session.h"

#include <cstdint>
#include <string>

namespace orvel {

// What the picture of the degradation scheme shows: captions, colours, pens, what can be clicked, and where the window
// of an arrow opens. The flags come from Update_Pathway.

struct Scheme_Colour {
    std::uint8_t Red = 0, Green = 0, Blue = 0;
    bool operator==(const Scheme_Colour&) const = default;
};

struct Arrow_Look {
    int Width = 1; // border width of the arrow's lines
    Scheme_Colour Pen;
    bool operator==(const Arrow_Look&) const = default;
};

struct Box_Look {
    Scheme_Colour Back;
    bool Hand_Pointer = false; // the custom pointer of an absent substance
    bool operator==(const Box_Look&) const = default;
};

// The lines of arrow t, 1 to 29: wide and red while it is active, thin and black else.
Arrow_Look Look_Of_Arrow(const Pesticide_Document& document, int t);

// The box of substance i, 1 to 9: light yellow while it is present, light red else.
Box_Look Look_Of_Box(const Pesticide_Document& document, int i);

// The label of an arrow; empty for the reserved arrows and for every number that is none.
std::string Arrow_Label(int t);

// Reserved arrows have no head to click.
bool Arrow_Is_Clickable(int t);

// The caption of the transformation window.
std::string Transformation_Caption(int t);

// The caption of a box when the scheme opens: the substance's name, or the designed caption, which begins with a blank
// for a metabolite.
std::string Opening_Box_Caption(const Pesticide_Document& document, int i);

// The caption of a box after an edit: the name, or the default name if it was emptied.
std::string Box_Caption(const Pesticide_Document& document, int i);

// The window of an arrow, in twips relative to the arrow that was clicked: beside it, raised for the second generation,
// and to the left where it would leave the picture.
struct Twips {
    int Left = 0, Top = 0;
    bool operator==(const Twips&) const = default;
};
Twips Transformation_Spot(int t, Twips arrow, int arrow_width, int window_width);

// Soil photolysis belongs to the arrows of the active substance alone: the windows of all others are less high.
bool Shows_Photolysis(int t);

} // namespace orvel
