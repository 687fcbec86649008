#include "substance/application_edit.h"

#include "substance/application_list.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace orvel {

namespace {

constexpr int First_Day = -365, Last_Day = 365;
constexpr int Reference_Location = 1; // whose count tells the applications a year of a reference point

int Current_Location(const Session& session)
{
    return std::clamp<int>(session.Run.App_Current_Location, 0, Last_Location);
}

int Cycles(const Session& session)
{
    return session.Run.App_Pattern == 0 ? 1 : std::max<int>(session.Run.App_Cycles, 1);
}

// Applications a year by the count of a location, rounded as an i16 is.
int Per_Year(const Session& session, int location)
{
    return static_cast<int>(
        std::nearbyint(static_cast<double>(Applications_Of(session.Pesticide, location)) / Cycles(session)));
}

// The position shown in each year: k x n + App_Current.
template <class Edit> void For_All_Years(const Session& session, int per_year, Edit edit)
{
    for (int k = 0; k < Cycles(session); ++k) {
        const int a = k * per_year + session.Run.App_Current;
        if (a >= 1 && a <= Last_Application)
            edit(a);
    }
}

template <class Field, class Value> void Edit_Absolute(Session& session, Field field, Value value)
{
    const int location = Current_Location(session);
    For_All_Years(session, Per_Year(session, location),
                  [&](int a) { session.Pesticide.Applications[location][a].*field = value; });
}

template <class Field, class Value> void Edit_Relative(Session& session, int count_location, Field field, Value value)
{
    For_All_Years(session, Per_Year(session, count_location),
                  [&](int a) { session.Pesticide.Relative[a].*field = value; });
}

} // namespace

void Edit_Day(Session& session, int list_index)
{
    Edit_Absolute(session, &Application::App_Day, static_cast<std::int16_t>(list_index + 1));
}

void Edit_Month(Session& session, int list_index)
{
    Edit_Absolute(session, &Application::App_Month, static_cast<std::int16_t>(list_index + 1));
}

void Edit_Rate(Session& session, std::string_view typed)
{
    Edit_Absolute(session, &Application::App_Rate, Val(typed));
}

void Edit_Depth(Session& session, std::string_view typed)
{
    Edit_Absolute(session, &Application::App_Depth, Val(typed));
}

void Edit_Interception(Session& session, std::string_view typed)
{
    Edit_Absolute(session, &Application::App_Frpex, Val(typed));
}

void Edit_Relative_Rate(Session& session, std::string_view typed)
{
    Edit_Relative(session, Current_Location(session), &Relative_Application::Abs9_Rate, Val(typed));
}

void Edit_Relative_Depth(Session& session, std::string_view typed)
{
    Edit_Relative(session, Current_Location(session), &Relative_Application::Abs9_Depth, Val(typed));
}

void Edit_Relative_Interception(Session& session, std::string_view typed)
{
    Edit_Relative(session, Current_Location(session), &Relative_Application::Abs9_Frpex, Val(typed));
}

void Edit_Reference_Point(Session& session, int list_index)
{
    Edit_Relative(session, Reference_Location, &Relative_Application::Abs9_Month,
                  static_cast<std::int16_t>(list_index));
}

Day_List Relative_Days(const Session& session)
{
    const auto& relative = session.Pesticide.Relative;
    const int current = std::clamp<int>(session.Run.App_Current, 1, Last_Application);
    const int first = current == 1 ? First_Day : relative[current - 1].Abs9_Day + 1;
    const int day = relative[current].Abs9_Day;
    return {first, Last_Day, day >= first && day <= Last_Day ? day - first : -1};
}

void Edit_Relative_Day(Session& session, int list_index)
{
    auto& relative = session.Pesticide.Relative;
    const int day = Relative_Days(session).First + list_index;
    const int per_year = Per_Year(session, Current_Location(session));
    const int behind = session.Run.App_Pattern == 0 ? 0 : std::max(0, per_year - session.Run.App_Current);
    For_All_Years(session, per_year, [&](int a) {
        relative[a].Abs9_Day = static_cast<std::int16_t>(day);
        for (int b = a + 1; b <= std::min(a + behind, Last_Application); ++b) {
            if (relative[b].Abs9_Day <= relative[b - 1].Abs9_Day)
                relative[b].Abs9_Day = static_cast<std::int16_t>(relative[b - 1].Abs9_Day + 1);
        }
    });
}

std::optional<Refusal> Leave_Number_Of_Applications(Session& session, std::string_view typed)
{
    const double count = std::nearbyint(Val(typed));
    if (count > Last_Application)
        return Refusal{
            {"Data check", "More than " + std::to_string(Last_Application) + " applications are not possible"},
            "Text_naps"};
    if (count > 0)
        session.Pesticide.App_Count[Current_Location(session)] = count;
    return std::nullopt;
}

std::optional<Refusal> Check_Manual_Entry(std::string_view text_naps)
{
    if (Val(text_naps) > 0)
        return std::nullopt;
    return Refusal{{"data check", "First insert number of applications"}, "Text_naps"};
}

} // namespace orvel
