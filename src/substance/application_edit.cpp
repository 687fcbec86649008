#include "substance/application_edit.h"

#include "substance/application_list.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace orvel {

namespace {

constexpr int First_Day = -365, Last_Day = 365;
constexpr int Reference_Location = 1; // its count gives the applications per year of a reference point

int Current_Location(const Editor_State& editor)
{
    return std::clamp<int>(editor.App_Current_Location, 0, Last_Location);
}

int Cycles(const Editor_State& editor)
{
    return editor.App_Pattern == 0 ? 1 : std::max<int>(editor.App_Cycles, 1);
}

// Applications per year from the count of a location, rounded half to even.
int Per_Year(const Pesticide_Edit& edit, int location)
{
    return static_cast<int>(
        std::nearbyint(static_cast<double>(Applications_Of(edit.Document, location)) / Cycles(edit.Editor)));
}

// Stores at the position shown in each year: k x n + App_Current.
template <class Store> void For_All_Years(const Editor_State& editor, int per_year, Store store)
{
    for (int k = 0; k < Cycles(editor); ++k) {
        const int a = k * per_year + editor.App_Current;
        if (a >= 1 && a <= Last_Application)
            store(a);
    }
}

template <class Field, class Value> void Edit_Absolute(Pesticide_Edit edit, Field field, Value value)
{
    const int location = Current_Location(edit.Editor);
    For_All_Years(edit.Editor, Per_Year(edit, location),
                  [&](int a) { edit.Document.Applications[location][a].*field = value; });
}

template <class Field, class Value>
void Edit_Relative(Pesticide_Edit edit, int count_location, Field field, Value value)
{
    For_All_Years(edit.Editor, Per_Year(edit, count_location),
                  [&](int a) { edit.Document.Relative[a].*field = value; });
}

} // namespace

void Edit_Day(Pesticide_Edit edit, int list_index)
{
    Edit_Absolute(edit, &Application::App_Day, static_cast<std::int16_t>(list_index + 1));
}

void Edit_Month(Pesticide_Edit edit, int list_index)
{
    Edit_Absolute(edit, &Application::App_Month, static_cast<std::int16_t>(list_index + 1));
}

void Edit_Rate(Pesticide_Edit edit, std::string_view typed)
{
    Edit_Absolute(edit, &Application::App_Rate, Val(typed));
}

void Edit_Depth(Pesticide_Edit edit, std::string_view typed)
{
    Edit_Absolute(edit, &Application::App_Depth, Val(typed));
}

void Edit_Interception(Pesticide_Edit edit, std::string_view typed)
{
    Edit_Absolute(edit, &Application::App_Frpex, Val(typed));
}

void Edit_Relative_Rate(Pesticide_Edit edit, std::string_view typed)
{
    Edit_Relative(edit, Current_Location(edit.Editor), &Relative_Application::Abs9_Rate, Val(typed));
}

void Edit_Relative_Depth(Pesticide_Edit edit, std::string_view typed)
{
    Edit_Relative(edit, Current_Location(edit.Editor), &Relative_Application::Abs9_Depth, Val(typed));
}

void Edit_Relative_Interception(Pesticide_Edit edit, std::string_view typed)
{
    Edit_Relative(edit, Current_Location(edit.Editor), &Relative_Application::Abs9_Frpex, Val(typed));
}

void Edit_Reference_Point(Pesticide_Edit edit, int list_index)
{
    Edit_Relative(edit, Reference_Location, &Relative_Application::Abs9_Month, static_cast<std::int16_t>(list_index));
}

Day_List Relative_Days(const Pesticide_Document& document, const Editor_State& editor)
{
    const auto& relative = document.Relative;
    const int current = std::clamp<int>(editor.App_Current, 1, Last_Application);
    const int first = current == 1 ? First_Day : relative[current - 1].Abs9_Day + 1;
    const int day = relative[current].Abs9_Day;
    return {first, Last_Day, day >= first && day <= Last_Day ? day - first : -1};
}

void Edit_Relative_Day(Pesticide_Edit edit, int list_index)
{
    auto& relative = edit.Document.Relative;
    const int day = Relative_Days(edit.Document, edit.Editor).First + list_index;
    const int per_year = Per_Year(edit, Current_Location(edit.Editor));
    const int behind = edit.Editor.App_Pattern == 0 ? 0 : std::max(0, per_year - edit.Editor.App_Current);
    For_All_Years(edit.Editor, per_year, [&](int a) {
        relative[a].Abs9_Day = static_cast<std::int16_t>(day);
        for (int b = a + 1; b <= std::min(a + behind, Last_Application); ++b) {
            if (relative[b].Abs9_Day <= relative[b - 1].Abs9_Day)
                relative[b].Abs9_Day = static_cast<std::int16_t>(relative[b - 1].Abs9_Day + 1);
        }
    });
}

std::optional<Refusal> Leave_Number_Of_Applications(Pesticide_Edit edit, std::string_view typed)
{
    const double count = std::nearbyint(Val(typed));
    if (count > Last_Application)
        return Refusal{
            {"Data check", "More than " + std::to_string(Last_Application) + " applications are not possible"},
            "Text_naps"};
    if (count > 0)
        edit.Document.App_Count[Current_Location(edit.Editor)] = count;
    return std::nullopt;
}

std::optional<Refusal> Check_Manual_Entry(std::string_view text_naps)
{
    if (Val(text_naps) > 0)
        return std::nullopt;
    return Refusal{{"data check", "First insert number of applications"}, "Text_naps"};
}

} // namespace orvel
