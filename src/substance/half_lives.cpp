#include "substance/half_lives.h"

#include "core/numbers.h"

#include <cmath>

namespace orvel {

namespace {

constexpr int Fewest_Decimals = 1;

// The logarithm divided by a rate or half-life; 0 if the quotient is not finite.
double Over(double logarithm, double value)
{
    const double quotient = logarithm / value;
    return std::isfinite(quotient) ? quotient : 0;
}

std::string Half_Life_Text(double days)
{
    return Format_Pattern(days, "0.0");
}

// Six decimals without trailing zeros, but at least one decimal.
std::string Rate_Text(double rate)
{
    auto text = Format_Pattern(rate, "0.000000");
    const auto shortest = text.find('.') + 1 + Fewest_Decimals;
    while (text.size() > shortest && text.back() == '0')
        text.pop_back();
    return text;
}

} // namespace

Rate_Texts Texts_Of_Rate(const std::string& rate)
{
    Rate_Texts texts{.Rate = rate};
    Leave_Rate_Field(texts, Rate_Field::Rate);
    return texts;
}

void Leave_Rate_Field(Rate_Texts& texts, Rate_Field left)
{
    const double ln_2 = -std::log(0.5);
    const double ln_10 = -std::log(0.1);
    const auto computed = [](double value, double by, std::string (*text)(double)) {
        return value == 0 ? "0" : text(Over(by, value));
    };
    if (left == Rate_Field::Rate) {
        const double rate = Val(texts.Rate);
        texts.DT50 = computed(rate, ln_2, Half_Life_Text);
        texts.DT90 = computed(rate, ln_10, Half_Life_Text);
    } else if (left == Rate_Field::DT50) {
        const double days = Val(texts.DT50);
        texts.Rate = computed(days, ln_2, Rate_Text);
        texts.DT90 = computed(days == 0 ? 0 : ln_2 / days, ln_10, Half_Life_Text);
    } else {
        const double days = Val(texts.DT90);
        texts.Rate = computed(days, ln_10, Rate_Text);
        texts.DT50 = computed(days == 0 ? 0 : ln_10 / days, ln_2, Half_Life_Text);
    }
}

std::array<bool, 3> Enabled_Rate_Fields(Rate_Field chosen)
{
    return {chosen == Rate_Field::Rate, chosen == Rate_Field::DT50, chosen == Rate_Field::DT90};
}

} // namespace orvel
