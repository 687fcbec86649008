#include "plans/run_result.h"

#include "core/code_page.h"
#include "core/csv.h"
#include "core/csv_reader.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text.h"
#include "records/results.h"
#include "tables/leachate_tables.h"
#include "tables/soil_concentrations.h"
#include "tables/table_text.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Soil_Depth = 1;           // in centimetres, as the overview shows it unless another is chosen
constexpr std::size_t Soil_Maximum = 0; // among the windows of the averages
constexpr std::size_t Largest_Result = 1U << 16U;

std::vector<Result_Row> Rows_Of(const Leachate_Tables& tables, int years)
{
    std::vector<Result_Row> rows;
    const auto& periods = tables.Period[static_cast<std::size_t>(Depth::One_Metre)];
    for (std::size_t s = 0; s < periods.size(); ++s) {
        const Leachate_Row& p80 = periods[s].Result.P80;
        rows.push_back({.Substance = s < tables.Result_Name.size() ? Substance_Of(tables.Result_Name[s])
                                                                   : std::string(Trim(periods[s].Label)),
                        .Unit = std::string(Result_Unit),
                        .Found = Result_Row::Figures{p80.Conc, p80.Flux, p80.Percolate},
                        .Years = years});
    }
    return rows;
}

// Of a run of a soil mode; none if its output does not have them.
std::vector<Result_Row> Soil_Rows_Of(const fs::path& run_directory, int years)
{
    const auto soil = Build_Soil_Concentrations(run_directory, Soil_Depth);
    if (soil.Unreadable || soil.Unwritten)
        throw File_Error(To_Utf8(soil.Note()));
    std::vector<Result_Row> rows;
    if (!soil.Failure.empty() || !soil.Gap.empty())
        return rows;
    for (std::size_t s = 0; s < soil.Maximum.size(); ++s)
        rows.push_back(
            {.Substance = s < soil.Substance_Name.size() ? soil.Substance_Name[s] : std::string(),
             .Unit = std::string(Soil_Unit(soil.Pore_Water)),
             .Found = Result_Row::Figures{.Percentile = Val(Figure_Text(soil.Maximum[s][Soil_Maximum].Value))},
             .Years = years});
    return rows;
}

std::vector<Result_Row> Leachate_Rows_Of(const fs::path& run_directory, int years)
{
    const auto tables = Build_Or_Load(run_directory);
    if (tables.Unreadable || tables.Unwritten)
        throw File_Error(To_Utf8(tables.Note()));
    return tables.Failure.empty() && tables.Gap.empty() ? Rows_Of(tables, years) : std::vector<Result_Row>();
}

std::string Figures_Text(const Result_Row& row)
{
    const auto number = [](const std::optional<double>& value) { return value ? General_Text(*value) : std::string(); };
    std::string text = Csv_Field(To_Utf8(row.Substance)) + ",";
    text += row.Found ? General_Text(row.Found->Percentile) + "," + To_Utf8(row.Unit) : ",";
    text += "," + std::to_string(row.Years) + ",";
    text += row.Found ? number(row.Found->Flux) + "," + number(row.Found->Percolate) : ",";
    return text;
}

} // namespace

namespace {

Plan_Result Without_Rows(const Run_Record& record)
{
    Plan_Result result{.Rows = {}, .Verdict = record.Verdict, .Seconds = std::nullopt};
    if (record.Start != 0 && record.End != 0)
        result.Seconds = record.End - record.Start;
    return result;
}

} // namespace

std::optional<Plan_Result> Result_Of_Leachate(const Leachate_Tables& tables, const Run_Record& record)
{
    Plan_Result result = Without_Rows(record);
    result.Rows = Rows_Of(tables, record.Years_Found);
    return result.Rows.empty() ? std::nullopt : std::optional(std::move(result));
}

Plan_Result Result_Of_Run(const fs::path& run_directory, const Run_Record& record, Result_Kind kind)
{
    Plan_Result result = Without_Rows(record);
    if (record.Verdict == Verdict::Complete) {
        result.Rows = Leachate_Rows_Of(run_directory, record.Years_Found); // its tables are kept in every mode
        if (kind == Result_Kind::Soil) {
            if (auto soil = Soil_Rows_Of(run_directory, record.Years_Found); !soil.empty())
                result.Rows = std::move(soil);
        }
    }
    if (result.Rows.empty())
        result.Rows.push_back({.Substance = "", .Unit = "", .Found = std::nullopt, .Years = record.Years_Found});
    return result;
}

std::string Format_Result(const Plan_Result& result)
{
    std::string text;
    for (const auto& row : result.Rows)
        text += Figures_Text(row) + "," + std::string(Verdict_Text(result.Verdict)) + "," +
                (result.Seconds ? std::to_string(*result.Seconds) : "") + "\n";
    return text;
}

std::optional<std::vector<Result_Line>> Parse_Result(std::string_view text)
{
    std::vector<Result_Line> lines;
    if (text.empty() || text.back() != '\n')
        return std::nullopt;
    while (!text.empty()) {
        const auto end = text.find('\n');
        const auto line = text.substr(0, end);
        text.remove_prefix(end + 1);
        const auto second = line.rfind(',');
        const auto first = second == std::string_view::npos || second == 0 ? second : line.rfind(',', second - 1);
        if (second == std::string_view::npos || first == std::string_view::npos || first == second)
            return std::nullopt;
        lines.push_back({line.substr(0, first), line.substr(first + 1, second - first - 1), line.substr(second + 1)});
    }
    return lines;
}

std::vector<std::string> Figure_Cells(std::string_view figures)
try {
    constexpr std::string_view Head = "a,b,c,d,e,f\n"; // whatever a substance holds, commas separate
    const std::string text = std::string(Head) + std::string(figures) + "\n";
    Csv_Reader reader(Source_Of(text));
    Csv_Row row;
    const bool is_read = reader.Next(row) && reader.Next(row);
    row.Fields.resize(is_read && row.Fields.size() == Figure_Columns ? Figure_Columns : 0);
    return row.Fields;
} catch (const File_Error&) {
    return {};
}

std::optional<Result_Row> Parse_Figures(std::string_view figures)
{
    const auto cells = Figure_Cells(figures);
    if (cells.empty() || cells[1].empty())
        return std::nullopt;
    const auto bytes = [&](std::size_t cell) { return From_Utf8(cells[cell]).value_or(cells[cell]); };
    const auto number = [&](std::size_t cell) {
        return cells[cell].empty() ? std::nullopt : std::optional(Val(cells[cell]));
    };
    return Result_Row{.Substance = bytes(0),
                      .Unit = bytes(2),
                      .Found = Result_Row::Figures{Val(cells[1]), number(4), number(5)},
                      .Years = Whole_Part(cells[3], 0, Most_Years)};
}

std::string Read_Result(const fs::path& run_directory)
try {
    return Read_Whole(run_directory / Result_Name, Largest_Result);
} catch (const File_Error& error) {
    if (Is_Missing(error.Code))
        return {};
    throw;
}

} // namespace orvel
