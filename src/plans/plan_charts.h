#pragma once

#include "charts/chart.h"
#include "plans/plan_survey.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The pictures of a plan's results. Texts are bytes of Windows-1252.

// What a picture is of: a substance, and the label by whose values its runs are told apart, empty for none.
struct Plan_Chart_Choice {
    std::string Substance, Label;
};

// The labels of a plan.
std::vector<std::string> Labels_Of(const Plan_Rows& rows);

constexpr std::size_t Most_Curves =
    6; // values of a label; what has others is drawn in no curve, and the picture says so

// The share of the runs whose figure is above a concentration, a curve for each value of the label.
Chart Distribution_Chart(const Plan_View& view, const Plan_Chart_Choice& choice);

// How far each of what a sweep varies moves the figure of the run in which nothing is varied, the farthest first.
Chart Effects_Chart(const Plan_View& view, const Plan_Chart_Choice& choice);

// The figure by the date of the first application, a curve for each value of the label, with maximum and median over
// all days.
Chart By_Date_Chart(const Plan_View& view, const Plan_Chart_Choice& choice);

// The middle value, of an even number the mean of the two middle ones; 0 of none.
double Median(std::vector<double> values);

} // namespace orvel
