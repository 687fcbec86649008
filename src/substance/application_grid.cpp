#include "substance/application_grid.h"

#include "substance/application_list.h"
#include "substance/application_state.h"
#include "ui/date_hint.h"
#include "ui/grid_keys.h"
#include "ui/number_field.h"

#include <algorithm>
#include <tuple>

namespace orvel {

namespace {

struct Bound {
    int Column, Largest;
};
constexpr std::array<Bound, 4> Whole_Columns = {
    {{Grid_Column::Day, 31}, {Grid_Column::Month, 12}, {Grid_Column::Year, 9999}, {Grid_Column::Hour, 24}}};

struct Needed {
    int Column;
    std::string_view Name;
};
constexpr std::array<Needed, 4> Needed_Columns = {{{Grid_Column::Day, "Day"},
                                                   {Grid_Column::Month, "Month"},
                                                   {Grid_Column::Year, "Year"},
                                                   {Grid_Column::App_Rate, "App. rate"}}};

// Whether the text typed so far can be a whole number within bounds; always true in columns of decimals.
bool Is_Within_Bounds(int column, std::string_view text)
{
    const auto whole = std::ranges::find(Whole_Columns, column, &Bound::Column);
    return whole == Whole_Columns.end() ||
           (text.find_first_not_of("0123456789") == std::string_view::npos && Val(text) <= whole->Largest);
}

Application_Row Row_Of(const Application& application, Application_Method method)
{
    const double depth_or_interception =
        method == Application_Method::Soil ? application.App_Depth : application.App_Frpex;
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
    application.App_Day = Typed_Integer(row[Grid_Column::Day]);
    application.App_Month = Typed_Integer(row[Grid_Column::Month]);
    application.App_Year = Typed_Integer(row[Grid_Column::Year]);
    application.App_Crop_Flag = Typed_Integer(row[Grid_Column::Hour]);
    application.App_Rate = Val(row[Grid_Column::App_Rate]);
    (method == Application_Method::Soil ? application.App_Depth : application.App_Frpex) =
        Val(row[Grid_Column::Depth_Or_Interception]);
    application.App_Time = Val(row[Grid_Column::Fraction]);
}

std::optional<Grid_Refusal> Check_Values(const Application_Row& row, std::size_t number)
{
    for (const auto& [column, name] : Needed_Columns) {
        if (Val(row[column]) == 0)
            return Grid_Refusal{{"Application Value Check", "Application " + std::to_string(number) + " - " +
                                                                std::string(name) + " -  has no value."},
                                static_cast<int>(number) - 1,
                                column};
    }
    return std::nullopt;
}

bool Is_Earlier(const Application_Row& before, const Application_Row& row)
{
    const auto date = [](const Application_Row& of) {
        return std::tuple(Typed_Integer(of[Grid_Column::Year]), Typed_Integer(of[Grid_Column::Month]),
                          Typed_Integer(of[Grid_Column::Day]));
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

Application_Grid Load_Application_Grid(const Pesticide_Document& document, const Editor_State& editor,
                                       std::string_view text_naps, Application_Method method)
{
    const int location = Location_Of(editor);
    const int rows = std::clamp<int>(Typed_Integer(text_naps), 0, Last_Application);
    const int stored = Applications_Of(document, location);
    Application_Grid grid(static_cast<std::size_t>(rows));
    for (int a = 1; a <= rows; ++a) {
        auto& row = grid[a - 1];
        if (a <= stored)
            row = Row_Of(document.Applications[location][a], method);
        row[Grid_Column::App_Number] = "Application " + std::to_string(a);
    }
    return grid;
}

bool Application_Cell_Takes(int column, std::string_view text)
{
    return text.empty() || (!Reading_Hint(text) && Is_Within_Bounds(column, text));
}

std::string Application_Cell_After_Key(std::string cell, int column, int key_code)
{
    if (key_code == Key_Delete)
        return "";
    auto after = After_Key(cell, Number_Grid_Key(key_code));
    return Is_Within_Bounds(column, after) ? after : std::move(cell);
}

void Same_Fractions(Application_Grid& grid)
{
    for (auto& row : grid)
        row[Grid_Column::Fraction] = grid.front()[Grid_Column::Fraction];
}

std::optional<Grid_Refusal> Check_Application_Grid(const Application_Grid& grid)
{
    for (std::size_t a = 1; a <= grid.size(); ++a) {
        if (auto refusal = Check_Values(grid[a - 1], a))
            return refusal;
    }
    for (std::size_t a = 2; a <= grid.size(); ++a) {
        if (Is_Earlier(grid[a - 2], grid[a - 1]))
            continue;
        return Grid_Refusal{
            {"Application Date Check", "Application dates must be in chronological order.\r\n     Check Application " +
                                           std::to_string(a - 1) + " and " + std::to_string(a) + "."},
            static_cast<int>(a) - 1,
            Grid_Column::Day};
    }
    return std::nullopt;
}

std::optional<Grid_Refusal> Accept_Application_Grid(Pesticide_Edit edit, const Application_Grid& grid,
                                                    Application_Method method)
{
    if (auto refusal = Check_Application_Grid(grid))
        return refusal;
    const int location = Location_Of(edit.Editor);
    const auto rows = std::min<std::size_t>(grid.size(), Last_Application);
    edit.Document.App_Count[location] = rows;
    for (std::size_t a = 1; a <= rows; ++a)
        Store_Row(edit.Document.Applications[location][a], grid[a - 1], method);
    edit.Changed = true;
    Return_From_Grid(edit);
    return std::nullopt;
}

std::optional<Message> Impossible_Date(const Application_Grid& grid)
{
    for (std::size_t a = 1; a <= grid.size(); ++a) {
        const auto& row = grid[a - 1];
        if (const auto hint = Date_Hint(Typed_Integer(row[Grid_Column::Day]), Typed_Integer(row[Grid_Column::Month])))
            return Message{"Application Date Check",
                           "Application " + std::to_string(a) + ": " + *hint + " Do you want to keep it?",
                           Icon::Question,
                           {Button::Yes, Button::No},
                           Button::No};
    }
    return std::nullopt;
}

} // namespace orvel
