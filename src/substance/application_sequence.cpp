#include "substance/application_sequence.h"

#include "substance/application_list.h"
#include "substance/application_pattern.h"
#include "substance/calendar_day.h"

#include <algorithm>
#include <string>

namespace orvel {

namespace {

int Day_Of_Simulation(const Application& application)
{
    return application.App_Year * Days_A_Year + Day_Of_Year(application.App_Day, application.App_Month);
}

int Day_Of_Simulation(const Relative_Application& application)
{
    return application.Abs9_Year * Days_A_Year + application.Abs9_Day;
}

bool In_Sequence(const Application& before, const Application& application)
{
    return std::max(before.App_Year, application.App_Year) <= Last_Checked_Year &&
           Day_Of_Simulation(application) > Day_Of_Simulation(before);
}

bool In_Sequence(const Relative_Application& before, const Relative_Application& application)
{
    if (std::max(before.Abs9_Year, application.Abs9_Year) > Last_Checked_Year)
        return false;
    return before.Abs9_Month != application.Abs9_Month || Day_Of_Simulation(application) > Day_Of_Simulation(before);
}

// The first application not later than its predecessor, 0 if there is none.
template <class List> int First_Out_Of_Sequence(const List& list, int count)
{
    for (int a = 2; a <= count; ++a) {
        if (!In_Sequence(list[a - 1], list[a]))
            return a;
    }
    return 0;
}

// Selects application a of the location, as its position in the year.
void Show_Application(Pesticide_Edit edit, int location, int a)
{
    auto& editor = edit.Editor;
    editor.App_Current_Location = static_cast<std::int16_t>(location);
    Check_Pattern(edit.Document, edit.Editor, location);
    const int per_year = editor.App_Pattern > 0 ? std::max<int>(editor.App_Per_Year[location], 1) : 1;
    editor.App_Current = static_cast<std::uint8_t>((a - 1) % per_year + 1);
}

std::string Date_Text(const Application& application)
{
    return std::to_string(application.App_Day) + "." + std::to_string(application.App_Month) + "." +
           Format_Pattern(application.App_Year, "00");
}

} // namespace

std::optional<Refusal> Check_Sequence(Pesticide_Edit edit, const Location_Lists& lists)
{
    const auto& document = edit.Document;
    if (document.App_Mode == App_Mode_Relative) {
        const int a = First_Out_Of_Sequence(document.Relative, Applications_Of(document, 0));
        if (a == 0)
            return std::nullopt;
        Show_Application(edit, 0, a);
        return Refusal{{"Data check", "Error in application sequence (application no. " + std::to_string(a) + ")"},
                       "Tage"};
    }
    const auto& list = lists.Visible();
    for (int l = 1; l <= Last_Location && l < static_cast<int>(list.size()); ++l) {
        const auto& applications = document.Applications[l];
        const int a = First_Out_Of_Sequence(applications, Applications_Of(document, l));
        if (a == 0)
            continue;
        Show_Application(edit, l, a);
        return Refusal{{"Data check", "Error in application sequence (" + Date_Text(applications[a - 1]) +
                                          ", location: " + list[l] + ")"},
                       "App_Tag"};
    }
    return std::nullopt;
}

} // namespace orvel
