#include "plans/run_result.h"

#include "core/code_page.h"
#include "core/csv.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "tables/leachate_tables.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Unit = "\xC2\xB5g/L";
constexpr std::size_t Largest_Result = 1U << 16U;

std::string Number(double value)
{
    return General_Text(value);
}

std::vector<Result_Row> Rows_Of(const Leachate_Tables& tables, int years)
{
    std::vector<Result_Row> rows;
    const auto& periods = tables.Period[static_cast<std::size_t>(Depth::One_Metre)];
    for (std::size_t s = 0; s < periods.size(); ++s) {
        const Leachate_Row& p80 = periods[s].Result.P80;
        rows.push_back({.Substance = s < tables.Result_Name.size() ? Substance_Of(tables.Result_Name[s])
                                                                   : std::string(Trim(periods[s].Label)),
                        .Found = Result_Row::Figures{p80.Conc, p80.Flux, p80.Percolate},
                        .Years = years});
    }
    return rows;
}

std::string Figures_Text(const Result_Row& row)
{
    std::string text = Csv_Field(To_Utf8(row.Substance)) + ",";
    text += row.Found ? Number(row.Found->Percentile) + "," + std::string(Unit) : ",";
    text += "," + std::to_string(row.Years) + ",";
    text += row.Found ? Number(row.Found->Flux) + "," + Number(row.Found->Percolate) : ",";
    return text;
}

} // namespace

Run_Result Result_Of_Run(const fs::path& run_directory, const Run_Record& record)
{
    Run_Result result{.Rows = {}, .Verdict = record.Verdict, .Seconds = std::nullopt};
    if (record.Start != 0 && record.End != 0)
        result.Seconds = record.End - record.Start;
    if (record.Verdict == Verdict::Complete) {
        const auto tables = Build_Or_Load(run_directory);
        if (tables.Unreadable || tables.Unwritten)
            throw File_Error(To_Utf8(tables.Note()));
        if (tables.Failure.empty() && tables.Gap.empty())
            result.Rows = Rows_Of(tables, record.Years_Found);
    }
    if (result.Rows.empty())
        result.Rows.push_back({.Substance = "", .Found = std::nullopt, .Years = record.Years_Found});
    return result;
}

std::string Format_Result(const Run_Result& result)
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

std::string Read_Result(const fs::path& run_directory)
try {
    return Read_Whole(run_directory / Result_Name, Largest_Result);
} catch (const File_Error& error) {
    if (Is_Missing(error.Code))
        return {};
    throw;
}

} // namespace orvel
