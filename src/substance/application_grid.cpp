#include "substance/application_grid.h"

#include "substance/application_list.h"
#include "substance/application_state.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace {

constexpr std::string_view Control = "AppGrid";

struct Bound {
    int Column, Largest;
};
constexpr std::array<Bound, 4> Whole_Columns = {{{Grid_Column::Day, 31}, {Grid_Column::Month, 12}, {Grid_Column::Year, 9999}, {Grid_Column::Hour, 24}}};

struct Needed {
    int Column;
    std::string_view Name;
};
constexpr std::array<Needed, 4> Needed_Columns = {
    {{Grid_Column::Day, "Day"}, {Grid_Column::Month, "Month"}, {Grid_Column::Year, "Year"}, {Grid_Column::App_Rate, "App. rate"}}};

int Location_Of(const Session& session)
{
    return std::clamp<int>(session.Run.App_Current_Location, 0, Last_Location);
}

std::int16_t Whole(std::string_view cell)
{
    constexpr double least = std::numeric_limits<std::int16_t>::min(), most = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::clamp(std::nearbyint(Val(cell)), least, most));
}

Application_Row Row_Of(const Application& application, Application_Method method)
{
    const double depth_or_interception = method == Application_Method::Soil ? application.App_Depth : application.App_Frpex;
    return {"",
            std::to_string(application.App_Day),
            std::to_string(application.App_Month),
            std::to_string(application.App_Year),
            std::to_string(application.App_Crop_Flag),
            General_Text(application.App_Rate),
            General_Text(depth_or_interception),
            General_Text(application.App_Time)};
}

void Store_Row(Application& application, const Application_Row& row, Application_Method method)
{
    application.App_Day = Whole(row[Grid_Column::Day]);
    application.App_Month = Whole(row[Grid_Column::Month]);
    application.App_Year = Whole(row[Grid_Column::Year]);
    application.App_Crop_Flag = Whole(row[Grid_Column::Hour]);
    application.App_Rate = Val(row[Grid_Column::App_Rate]);
    (method == Application_Method::Soil ? application.App_Depth : application.App_Frpex) = Val(row[Grid_Column::Depth_Or_Interception]);
    application.App_Time = Val(row[Grid_Column::Fraction]);
}

std::optional<Refusal> Check_Values(const Application_Row& row, std::size_t number)
{
    for (const auto& [column, name] : Needed_Columns) {
        if (Val(row[column]) == 0)
            return Refusal{{"Application Value Check", "Application " + std::to_string(number) + " - " + std::string(name) + " -  has no value."},
                           std::string(Control)};
    }
    return std::nullopt;
}

bool Is_Earlier(const Application_Row& before, const Application_Row& row)
{
    const auto date = [](const Application_Row& of) {
        return std::tuple(Whole(of[Grid_Column::Year]), Whole(of[Grid_Column::Month]), Whole(of[Grid_Column::Day]));
    };
    return date(before) < date(row);
}

} // namespace

std::array<std::string_view, Grid_Columns> Application_Grid_Headers(Application_Method method)
{
    return {"App. Number",
            "Day",
            "Month",
            "Year",
            "hour",
            "App. Rate [kg/ha]",
            method == Application_Method::Soil ? "App. Depth [cm]" : "Interception [%]",
            "Frac. Poorly Exposed[-]"};
}

Application_Grid Load_Application_Grid(const Session& session, std::string_view text_naps, Application_Method method)
{
    const int location = Location_Of(session);
    const int rows = static_cast<int>(std::clamp(std::nearbyint(Val(text_naps)), 0.0, static_cast<double>(Last_Application)));
    const int stored = Applications_Of(session.Pesticide, location);
    Application_Grid grid(static_cast<std::size_t>(rows));
    for (int a = 1; a <= rows; ++a) {
        auto& row = grid[a - 1];
        if (a <= stored)
            row = Row_Of(session.Pesticide.Applications[location][a], method);
        row[Grid_Column::App_Number] = "Application " + std::to_string(a);
    }
    return grid;
}

bool Application_Cell_Takes(int column, std::string_view text)
{
    const auto whole = std::ranges::find(Whole_Columns, column, &Bound::Column);
    if (whole == Whole_Columns.end())
        return text.find_first_not_of("0123456789-.E") == std::string_view::npos;
    return text.find_first_not_of("0123456789") == std::string_view::npos && Val(text) <= whole->Largest;
}

std::string Application_Cell_After_Key(std::string cell, int column, int key_code)
{
    if (key_code == Key_Delete)
        return "";
    auto after = After_Key(cell, Number_Grid_Key(key_code));
    return Application_Cell_Takes(column, after) ? after : cell;
}

void Same_Fractions(Application_Grid& grid)
{
    for (auto& row : grid)
        row[Grid_Column::Fraction] = grid.front()[Grid_Column::Fraction];
}

std::optional<Refusal> Check_Application_Grid(const Application_Grid& grid)
{
    for (std::size_t a = 1; a <= grid.size(); ++a) {
        if (auto refusal = Check_Values(grid[a - 1], a))
            return refusal;
    }
    for (std::size_t a = 2; a <= grid.size(); ++a) {
        if (Is_Earlier(grid[a - 2], grid[a - 1]))
            continue;
        return Refusal{{"Application Date Check", "Application dates must be in chronological order.\r\n     Check Application " + std::to_string(a - 1) +
                                                      " and " + std::to_string(a) + "."},
                       std::string(Control)};
    }
    return std::nullopt;
}

std::optional<Refusal> Accept_Application_Grid(Session& session, const Application_Grid& grid, Application_Method method)
{
    if (auto refusal = Check_Application_Grid(grid))
        return refusal;
    const int location = Location_Of(session);
    const auto rows = std::min<std::size_t>(grid.size(), Last_Application);
    session.Pesticide.App_Count[location] = rows;
    for (std::size_t a = 1; a <= rows; ++a)
        Store_Row(session.Pesticide.Applications[location][a], grid[a - 1], method);
    Return_From_Grid(session);
    return std::nullopt;
}
