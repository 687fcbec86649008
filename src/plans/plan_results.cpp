#include "plans/plan_results.h"

#include "core/csv.h"
#include "core/error.h"
#include "core/json.h"
#include "core/numbers.h"
#include "core/system/lock.h"
#include "plans/plan_directory.h"
#include "plans/run_result.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::array Counted = {Verdict::Complete, Verdict::Incomplete, Verdict::Failed,
                                Verdict::Stopped,  Verdict::Running,    Verdict::Scheduled};

Plan_Record Record_Of(const fs::path& directory)
{
    const auto record = Read_Plan_Record(directory);
    if (!record)
        throw File_Error("The directory " + directory.string() + " holds no plan.");
    return *record;
}

double Seconds_Since(fs::file_time_type time)
{
    return std::chrono::duration<double>(fs::file_time_type::clock::now() - time).count();
}

std::string Time_Left_Text(double seconds)
{
    constexpr double Minute = 60, Hour = 3600;
    if (seconds < Minute)
        return "less than a minute left";
    const bool hours = seconds >= 2 * Hour;
    return General_Text(std::ceil(seconds / (hours ? Hour : Minute))) + (hours ? " h" : " min") + " left";
}

// What the results begin with: the id, the labels and the replaced fields.
bool Is_Shown(const Plan_Column& column)
{
    return column.Kind == Plan_Column_Kind::Id || column.Kind >= Plan_Column_Kind::Pesticide_Field;
}

template <class Text_Of> std::string Shown_Cells(const Plan_Columns& columns, Text_Of text_of)
{
    std::string cells;
    for (std::size_t i = 0; i < columns.All.size(); ++i) {
        if (Is_Shown(columns.All[i]))
            cells += Csv_Field(text_of(i)) + ",";
    }
    return cells;
}

// The lines of a run: one a substance, or one that tells its state.
std::string Lines_Of(const Row_State& state, const std::string& begin, bool with_seconds)
{
    const auto lines = Parse_Result(state.Result);
    if (!lines)
        return begin + ",,,,,," + std::string(Verdict_Text(state.Verdict)) + ",\n";
    std::string text;
    for (const auto& line : *lines) {
        text += begin;
        text += line.Figures;
        text += ",";
        text += line.Verdict;
        text += ",";
        text += with_seconds ? line.Seconds : "";
        text += "\n";
    }
    return text;
}

} // namespace

Row_State State_Of_Row(const fs::path& directory, std::size_t row)
{
    const fs::path run = Directory_Of_Row(directory, row);
    Row_State state{.Verdict = Verdict::Scheduled, .Result = Read_Result(run)};
    const auto lines = Parse_Result(state.Result);
    if (!lines) {
        state.Result.clear();
        state.Verdict = Is_Locked(run) ? Verdict::Running : Verdict::Scheduled;
        return state;
    }
    const auto* const found =
        std::ranges::find(Counted, lines->front().Verdict, [](Verdict verdict) { return Verdict_Text(verdict); });
    if (found != Counted.end())
        state.Verdict = *found;
    return state;
}

Plan_Status Status_Of_Plan(const fs::path& directory)
{
    const Plan_Record record = Record_Of(directory);
    const auto since = At_Work_Since(directory);
    Plan_Status status{.Runs = record.Rows, .At_Work = since.has_value()};
    std::size_t ended = 0;
    for (std::size_t row = 1; row <= record.Rows; ++row) {
        const Row_State state = State_Of_Row(directory, row);
        ++status.By_Verdict[static_cast<std::size_t>(state.Verdict)];
        std::error_code error;
        if (since && !state.Result.empty() &&
            fs::last_write_time(Directory_Of_Row(directory, row) / Result_Name, error) >= *since && !error)
            ++ended;
    }
    if (since)
        Estimate(status, *since, ended);
    return status;
}

void Estimate(Plan_Status& status, fs::file_time_type since, std::size_t ended)
{
    if (ended == 0)
        return;
    const double left = static_cast<double>(status.Of(Verdict::Running) + status.Of(Verdict::Scheduled));
    status.Runs_A_Second = static_cast<double>(ended) / std::max(Seconds_Since(since), 1e-3);
    status.Seconds_Left = left / *status.Runs_A_Second;
}

std::string Status_Text(const Plan_Status& status)
{
    std::string text = std::to_string(status.Runs) + (status.Runs == 1 ? " run" : " runs");
    for (const Verdict verdict : Counted) {
        if (status.Of(verdict) > 0)
            text += ", " + std::to_string(status.Of(verdict)) + " " + std::string(Verdict_Text(verdict));
    }
    if (status.Runs_A_Second && status.Seconds_Left)
        text += "\n" + Format_Pattern(*status.Runs_A_Second, "0.00") + " runs a second, " +
                Time_Left_Text(*status.Seconds_Left);
    return text + "\n";
}

std::string Status_Json(const Plan_Status& status)
{
    Json_Writer json;
    const auto number = [&](std::string_view name, const std::optional<double>& value) {
        json.Key(name);
        if (value)
            json.Value(*value);
        else
            json.Null();
    };
    json.Object([&] {
        json.Member("runs", status.Runs);
        for (const Verdict verdict : Counted)
            json.Member(Verdict_Text(verdict), status.Of(verdict));
        json.Member("at_work", status.At_Work);
        number("runs_a_second", status.Runs_A_Second);
        number("seconds_left", status.Seconds_Left);
    });
    return json.Written();
}

void Print_Results(const fs::path& directory, bool with_seconds, const std::function<void(std::string_view)>& print)
{
    Record_Of(directory);
    Plan_Reader plan(Source_Of_File(directory / Plan_Copy_Name));
    const Plan_Columns& columns = plan.Columns();
    constexpr std::size_t Piece = 1U << 16U;
    std::string text =
        Shown_Cells(columns, [&](std::size_t i) { return columns.All[i].Name; }) + std::string(Result_Columns) + "\n";
    for (Plan_Row row; plan.Next(row);) {
        const std::string begin = Shown_Cells(columns, [&](std::size_t i) { return row.Cells[i]; });
        text += Lines_Of(State_Of_Row(directory, row.Number), begin, with_seconds);
        if (text.size() > Piece) {
            print(text);
            text.clear();
        }
    }
    print(text);
}

void Visit_Results(const fs::path& directory, bool with_seconds,
                   const std::function<void(const std::vector<std::string>& cells)>& visit)
{
    Record_Of(directory);
    Plan_Reader plan(Source_Of_File(directory / Plan_Copy_Name));
    const Plan_Columns& columns = plan.Columns();
    const auto shown = [&](auto text_of) {
        std::vector<std::string> cells;
        for (std::size_t i = 0; i < columns.All.size(); ++i) {
            if (Is_Shown(columns.All[i]))
                cells.push_back(text_of(i));
        }
        return cells;
    };
    auto heads = shown([&](std::size_t i) { return columns.All[i].Name; });
    Csv_Reader names(Source_Of(Result_Columns));
    Csv_Row of_results;
    names.Next(of_results);
    heads.insert(heads.end(), of_results.Fields.begin(), of_results.Fields.end());
    visit(heads);
    for (Plan_Row row; plan.Next(row);) {
        const auto begin = shown([&](std::size_t i) { return row.Cells[i]; });
        const Row_State state = State_Of_Row(directory, row.Number);
        const std::string none(Verdict_Text(state.Verdict));
        for (const auto& line : Parse_Result(state.Result).value_or(std::vector<Result_Line>{{"", none, ""}})) {
            auto cells = begin;
            auto figures = Figure_Cells(line.Figures);
            figures.resize(Figure_Columns);
            cells.insert(cells.end(), figures.begin(), figures.end());
            cells.emplace_back(line.Verdict);
            cells.emplace_back(with_seconds ? line.Seconds : "");
            visit(cells);
        }
    }
}

} // namespace orvel
