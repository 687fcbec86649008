#include "plans/sweep.h"

#include "core/code_page.h"
#include "core/csv.h"
#include "core/error.h"
#include "core/files.h"
#include "core/numbers.h"
#include "files/document_differences.h"
#include "files/document_values.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "plans/plan_inputs.h"
#include "plans/plan_table.h"
#include "runs/selection.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <memory>
#include <optional>

namespace orvel {

namespace {

constexpr std::array<int, 13> Before_Month = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
constexpr int Days_Of_Year = 365, Months = 12;

template <class Number> std::optional<Number> Whole_Text(std::string_view text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::vector<std::string_view> Split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; at <= text.size();) {
        const auto end = std::min(text.find(separator, at), text.size());
        parts.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return parts;
}

// A column of the plan that follows from one of what is varied.
struct Varied_Column {
    std::string Name;
    std::vector<std::string> Values; // by shift, or by factor
};

// What is varied together: the columns of one shift, or of one factor.
struct Varied {
    std::vector<Varied_Column> Columns;
    std::size_t Count() const { return Columns.front().Values.size(); }
};

// Leaves out columns whose value no shift changes.
void Add_If_Varied(Varied& varied, Varied_Column column, const std::string& present)
{
    if (std::ranges::any_of(column.Values, [&](const std::string& value) { return value != present; }))
        varied.Columns.push_back(std::move(column));
}

class Sweep {
public:
    Sweep(const Program_State& program, const Sweep_Order& order) : Order(order)
    {
        const auto inputs = Plan_Inputs::Of_User(program.App_Path, program.App_Path / "plan.csv");
        const Crop* crop = Crop_Named(order.Crop);
        if (crop == nullptr)
            throw File_Error("There is no crop '" + To_Utf8(order.Crop) + "'.");
        const auto locations = Locations_Of_Crop(program, *order.Mode, crop);
        if (std::ranges::find(locations, order.Location) == locations.end())
            throw File_Error(To_Utf8(No_Location_Text(*order.Mode, order.Crop, order.Location, locations)));
        Parse_PSM(Read_Whole(inputs.Pesticide(order.Pesticide).File), *Pesticide);
        const auto choice = Choose_Run(*order.Mode, order.Pesticide, crop, order.Location);
        Reset_SZE(Scenario);
        Parse_SZE(Read_Whole(inputs.Of_Mode(*order.Mode, choice.Scenario).File), Scenario);
    }

    // The outermost first.
    std::vector<Varied> All() const
    {
        std::vector<Varied> all;
        if (!Order.Shifts.empty())
            all.push_back(Shifts());
        for (const auto& factor : Order.Factors)
            all.push_back(Factor(factor));
        return all;
    }

    std::vector<std::string> Fields() const
    {
        std::vector<std::string> fields;
        const auto add = [&](std::string_view begin, const auto& differences, auto why_not) {
            for (const auto& difference : differences) {
                if (Whole_Text<double>(difference.First).value_or(0) != 0 && why_not(difference.Field).empty())
                    fields.push_back(std::string(begin) + difference.Field);
            }
        };
        const auto nothing = std::make_unique<Pesticide_Document>();
        add(Pesticide_Field_Begin, Differences(*Pesticide, *nothing), Why_Not_A_Pesticide_Field);
        Scenario_Document no_scenario;
        add(Scenario_Field_Begin, Differences(Scenario, no_scenario), Why_Not_A_Scenario_Field);
        return fields;
    }

private:
    Varied Shifts() const
    {
        Varied varied{{{std::string(Shift_Label), {}}}};
        for (const int days : Order.Shifts)
            varied.Columns.front().Values.push_back(std::to_string(days));
        if (Pesticide->App_Mode == App_Mode_Relative)
            Shift_Relative(varied);
        else
            Shift_Dates(varied);
        return varied;
    }

    void Shift_Relative(Varied& varied) const
    {
        for (std::size_t i = 1;; ++i) {
            const std::string name = "Relative[" + std::to_string(i) + "].Abs9_Day";
            const auto present = Value_Of(*Pesticide, name);
            if (!present)
                return;
            Varied_Column column{std::string(Pesticide_Field_Begin) + name, {}};
            for (const int days : Order.Shifts)
                column.Values.push_back(General_Text(Val(*present) + days));
            Add_If_Varied(varied, std::move(column), *present);
        }
    }

    void Shift_Dates(Varied& varied) const
    {
        const int block = Block_Of_Location(*Pesticide, Order.Location);
        if (block < 0)
            throw File_Error("The pesticide file has no applications for " + To_Utf8(Order.Location) + ".");
        const auto location = static_cast<std::size_t>(block);
        const double count = std::clamp<double>(Pesticide->App_Count[location].Number(), 0, Last_Application);
        for (std::size_t i = 1; i <= static_cast<std::size_t>(count); ++i) {
            const Application& present = Pesticide->Applications[location][i];
            const std::string name = std::string(Pesticide_Field_Begin) + "Applications[" + std::to_string(location) +
                                     "][" + std::to_string(i) + "].";
            for (const auto& [field, member] : {std::pair("App_Day", &Application::App_Day),
                                                {"App_Month", &Application::App_Month},
                                                {"App_Year", &Application::App_Year}}) {
                Varied_Column column{name + field, {}};
                for (const int days : Order.Shifts)
                    column.Values.push_back(std::to_string(Shifted(present, days).*member));
                Add_If_Varied(varied, std::move(column), std::to_string(present.*member));
            }
        }
    }

    Varied Factor(const Sweep_Factor& factor) const
    {
        const bool of_pesticide = factor.Field.starts_with(Pesticide_Field_Begin);
        if (!of_pesticide && !factor.Field.starts_with(Scenario_Field_Begin))
            throw File_Error("The field '" + To_Utf8(factor.Field) + "' begins neither with psm. nor with sze.");
        const auto name = std::string_view(factor.Field).substr(Pesticide_Field_Begin.size());
        const std::string reason = of_pesticide ? Why_Not_A_Pesticide_Field(name) : Why_Not_A_Scenario_Field(name);
        if (!reason.empty())
            throw File_Error(To_Utf8(reason));
        const auto present = of_pesticide ? Value_Of(*Pesticide, name) : Value_Of(Scenario, name);
        const auto number = Whole_Text<double>(present.value_or(""));
        if (!number)
            throw File_Error("The document has no number " + To_Utf8(factor.Field) + ".");
        Varied varied{{{std::string(Factor_Label) + factor.Field, {}}, {factor.Field, {}}}};
        for (const double times : factor.Factors) {
            varied.Columns[0].Values.push_back(General_Text(times));
            varied.Columns[1].Values.push_back(General_Text(*number * times));
        }
        return varied;
    }

    const Sweep_Order& Order;
    std::unique_ptr<Pesticide_Document> Pesticide = std::make_unique<Pesticide_Document>();
    Scenario_Document Scenario;
};

std::string Cell(std::string_view bytes)
{
    return "," + Csv_Field(To_Utf8(bytes));
}

} // namespace

std::vector<int> Parse_Shifts(std::string_view text)
{
    constexpr int Most_Days = 366;
    const auto parts = Split(text, ':');
    std::vector<int> numbers;
    for (const auto part : parts) {
        const auto number = Whole_Text<int>(part);
        if (number && std::abs(*number) <= Most_Days)
            numbers.push_back(*number);
    }
    if (numbers.size() == 1 && parts.size() == 1)
        return numbers;
    if (parts.size() != 3 || numbers.size() != 3 || numbers[2] <= 0 || numbers[0] > numbers[1])
        throw File_Error("'" + std::string(text) + "' is no range of shifts: FROM:TO:STEP in days, as -14:14:7.");
    std::vector<int> shifts;
    for (int days = numbers[0]; days <= numbers[1]; days += numbers[2])
        shifts.push_back(days);
    return shifts;
}

Sweep_Factor Parse_Factor(std::string_view text)
{
    const auto equals = text.rfind('=');
    Sweep_Factor factor{std::string(text.substr(0, equals)), {}};
    if (equals != std::string_view::npos) {
        for (const auto part : Split(text.substr(equals + 1), ',')) {
            const auto number = Whole_Text<double>(part);
            if (!number || !std::isfinite(*number))
                throw File_Error("'" + To_Utf8(part) + "' is no factor.");
            factor.Factors.push_back(*number);
        }
    }
    if (factor.Field.empty() || factor.Factors.empty())
        throw File_Error("'" + To_Utf8(text) + "' is not FIELD=FACTOR,FACTOR as psm.Koc[1]=0.5,1,2.");
    return factor;
}

Application Shifted(Application application, int days)
{
    const int month = application.App_Month;
    if (month < 1 || month > Months || application.App_Day < 1)
        throw File_Error("An application of the pesticide file has no date.");
    const auto before = static_cast<std::size_t>(month) - 1;
    const int day = std::min<int>(application.App_Day, Before_Month[before + 1] - Before_Month[before]);
    const int moved = application.App_Year * Days_Of_Year + Before_Month[before] + day - 1 + days;
    const int year = moved / Days_Of_Year, of_year = moved % Days_Of_Year;
    if (moved < 0 || (application.App_Year > 0 && year < 1))
        throw File_Error("Moved by " + std::to_string(days) + " days, an application lies before the first year.");
    const auto* const next = std::ranges::upper_bound(Before_Month, of_year);
    application.App_Month = static_cast<std::int16_t>(next - Before_Month.begin());
    application.App_Day = static_cast<std::int16_t>(of_year - *(next - 1) + 1);
    application.App_Year = static_cast<std::int16_t>(year);
    return application;
}

std::vector<std::string> Fields_To_Vary(const Program_State& program, const Sweep_Order& order)
{
    return Sweep(program, order).Fields();
}

void Print_Sweep(const Program_State& program, const Sweep_Order& order,
                 const std::function<void(std::string_view)>& print)
{
    const auto all = Sweep(program, order).All();
    std::size_t rows = 1;
    std::string text = "id,mode,pesticide,crop,location";
    for (const auto& varied : all) {
        rows *= varied.Count();
        if (rows > Most_Sweep_Rows)
            throw File_Error("A sweep has at most " + std::to_string(Most_Sweep_Rows) + " rows.");
        for (const auto& column : varied.Columns)
            text += Cell(column.Name);
    }
    print(text + "\n");
    const std::string run = Cell(order.Mode->Name) + Cell(order.Pesticide) + Cell(order.Crop) + Cell(order.Location);
    for (std::size_t row = 0; row < rows; ++row) {
        text = std::to_string(row + 1) + run;
        std::size_t below = rows; // rows of one value of what was looked at last
        for (const auto& varied : all) {
            const std::size_t of_this = below / varied.Count();
            for (const auto& column : varied.Columns)
                text += Cell(column.Values[row % below / of_this]);
            below = of_this;
        }
        print(text + "\n");
    }
}

} // namespace orvel
