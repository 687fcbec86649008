#include "evaluation/period_choice.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int Months_Of_Year = 12;

int Number_Of(const Run_Month& month)
{
    return month.Year * Months_Of_Year + month.Month - 1;
}

Run_Month Month_Of(int number)
{
    return {number % Months_Of_Year + 1, number / Months_Of_Year};
}

} // namespace

int Years_Of_Plot(const Plot_Head& head)
{
    constexpr int First_Months = 2;
    return head.Months < First_Months ? 0 : 1 + (head.Months - First_Months) / Months_Of_Year;
}

Period Uncrossed(const Period& chosen, Period_End changed, int years)
{
    if (Number_Of(chosen.From) <= Number_Of(chosen.To))
        return chosen;
    if (changed == Period_End::End)
        return {chosen.To, chosen.To};
    const int last = Number_Of({Months_Of_Year, years});
    return {chosen.From, Month_Of(std::min(Number_Of(chosen.From) + 1, std::max(last, Number_Of(chosen.From))))};
}

} // namespace orvel
