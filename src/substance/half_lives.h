#pragma once

#include <array>
#include <string>

namespace orvel {

// A first-order rate k (1/d) and its half-lives: DT 50 = ln 2 / k, DT 90 = ln 10 / k, in days (FOCUS work group on
// degradation kinetics, 2006). Only the rate is stored; all three are shown as text fields, one of which is editable.

enum class Rate_Field { Rate, DT50, DT90 };

struct Rate_Texts {
    std::string Rate = "0", DT50 = "0", DT90 = "0";
    bool operator==(const Rate_Texts&) const = default;
};

// Both half-lives (days) for a rate (1/d), with one decimal; "0" for a rate of 0.
Rate_Texts Texts_Of_Rate(const std::string& rate);

// On leaving one of the three: updates the other two, which are "0" if it is 0. A computed rate has at most six
// decimals.
void Leave_Rate_Field(Rate_Texts& texts, Rate_Field left);

// Which of the three fields is editable, in the order rate, DT 50, DT 90.
std::array<bool, 3> Enabled_Rate_Fields(Rate_Field chosen);

} // namespace orvel
