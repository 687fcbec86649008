#pragma once

#include "plans/plan_charts.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// What the pictures of a plan share: the figures of a substance and the curves by a label. Texts are bytes of
// Windows-1252 unless they are called UTF-8.

struct Figure {
    std::size_t Row;
    double Value;
};

// A substance's figures of one unit, the first that occurs.
struct Figures {
    std::string Unit;
    std::vector<Figure> All;
    std::size_t Of_Other_Units = 0, Runs_Without = 0;
};

Figures Figures_Of(const Plan_View& view, const std::string& substance);

bool Is_Of_Leachate(const Figures& figures);
std::string Quantity_Of(const Figures& figures);
std::string Sentence_Case(std::string text); // its first letter a capital
std::string Text_Of(double value, const Figures& figures);

std::optional<std::size_t> Column_Named(const Plan_Rows& rows, std::string_view utf8);

// Whether a column tells what a sweep varies, and its cell when that is not varied.
bool Is_Factor(const Plan_Column& column);
double Base_Of(const Plan_Column& column);

Chart Begun(const Figures& figures, std::string title);
Chart Without_Figures(Chart chart, std::string sentence);
// What the reader must know of the figures that are not drawn.
void Tell_Left_Out(Chart& chart, const Figures& figures);

struct Curve {
    std::string Name; // value of the label; empty without one
    Colour Drawn_In = Colour::Series;
    std::vector<Figure> Figures;
};

// The curves by the values of a label in their order of appearance, no more than can be told apart.
std::vector<Curve> Curves_Of(const Plan_View& view, const Figures& figures, const std::string& label, Chart& chart);

} // namespace orvel
