#include "programs/orvelctl_series.h"

#include "core/code_page.h"
#include "core/csv.h"
#include "core/files.h"
#include "core/output_variables.h"
#include "core/text.h"
#include "output/parameter_list.h"
#include "runs/calendar_file.h"
#include "tables/daily_diagram.h"
#include "tables/series.h"
#include "tables/utilities.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <optional>

namespace orvel {

namespace {

struct Series_Arguments {
    std::string Run, From, To, File;
    int Column = 1;
    bool Cumulative = false;
};

// Days since the span's begin and value, a line each; `out` takes the text piece by piece.
template <class Take> void Write_Csv(const Daily_Series& series, const std::string& title, Take out)
{
    constexpr std::size_t Piece = 1U << 15U;
    std::string text = "day," + Csv_Field(To_Utf8(title)) + "\n";
    for (const Chart_Point& point : series.Points) {
        text.append(General_Text(point.X)).append(",").append(General_Text(point.Y)).append("\n");
        if (text.size() >= Piece) {
            out(text);
            text.clear();
        }
    }
    out(text);
}

// The column as the list of series names it; by its code where the run's files do not tell.
std::string Item_Of(const std::string& run, const Plot_Column& column, int number)
{
    const auto& name = Output_Variable_Of(Output_Variable_Number(column.Plot_Code)).Out_Label;
    for (const Parameter_Item& item : Parameters_Of_Run(run)) {
        if (item.Column == number && item.Text.starts_with(name))
            return item.Text;
    }
    return column.Plot_Code + " at " + General_Text(column.Plot_Depth) + " cm";
}

// What orvelpaint needs to paint the picture.
std::vector<std::string> Paint_Arguments(const Session& session, const Series_Arguments& arguments,
                                         const Daily_Request& request, const std::string& item)
{
    const auto month = [](const Run_Month& at) { return std::to_string(at.Year) + "-" + std::to_string(at.Month); };
    return {"series",
            session.Program.App_Path.string(),
            arguments.Run,
            std::to_string(arguments.Column),
            item,
            std::to_string(request.Variable),
            request.Cumulative ? "1" : "0",
            month(request.From),
            month(request.To),
            arguments.File};
}

int Do_Series(const Session& session, const Series_Arguments& arguments)
{
    const Plot_Head head = Read_Plot_Head(arguments.Run);
    if (!head.Whole || arguments.Column > head.N_Columns ||
        static_cast<std::size_t>(arguments.Column) > head.Columns.size()) {
        Tell("File check", head.Whole ? "The run has " + std::to_string(head.N_Columns) + " columns only."
                                      : "The run has no plot.orv.");
        return Refused;
    }
    const auto calendar = Calendar_File(session, arguments.Run, !Is_Of_A_Batch(arguments.Run));
    if (!Find_File(calendar.parent_path(), calendar.filename())) {
        Tell("File check", "The calendar datum.dat is missing: name the installation of the run with -C DIR.");
        return Refused;
    }
    const auto from = Parse_Month(arguments.From.empty() ? "1-1" : arguments.From);
    const auto to =
        Parse_Month(arguments.To.empty() ? std::to_string(std::max(1, head.Months / 12)) + "-12" : arguments.To);
    if (!from || !to) {
        Tell("File check", "A month is written as YYYY-MM, with the year of the simulation from 1.");
        return Refused;
    }
    const Plot_Column& column = head.Columns[static_cast<std::size_t>(arguments.Column) - 1];
    const Daily_Request request{.Variable = Output_Variable_Number(column.Plot_Code),
                                .Cumulative = arguments.Cumulative,
                                .From = *from,
                                .To = *to};
    const std::string item = Item_Of(arguments.Run, column, arguments.Column);
    const std::string ending = Lower(std::filesystem::path(arguments.File).extension().string());
    if (ending == ".svg" || ending == ".png" || ending == ".pdf")
        return Paint(Paint_Arguments(session, arguments, request, item));
    const auto series = Read_Daily_Series(calendar, arguments.Run, arguments.Column, request);
    const std::string title = Daily_Title(request, item);
    if (arguments.File.empty()) {
        Write_Csv(series, title, [](const std::string& piece) {
            std::cout.write(piece.data(), static_cast<std::streamsize>(piece.size()));
        });
        return std::cout.flush() ? Done : Refused;
    }
    std::string csv;
    Write_Csv(series, title, [&](const std::string& piece) { csv += piece; });
    Write_Whole(arguments.File, csv);
    return Done;
}

} // namespace

void Add_Series_Command(CLI::App& app, Command& command)
{
    auto* series = app.add_subcommand("series", "Print one series of a run's plot.orv, or save it as a picture");
    const auto arguments = std::make_shared<Series_Arguments>();
    series->add_option("RUNDIR", arguments->Run, "The run directory")->required();
    series->add_option("--column", arguments->Column, "Value column, from 1")
        ->required()
        ->check(CLI::Range(1, 10000))
        ->option_text("N");
    series->add_flag("--cumulative", arguments->Cumulative, "Sum a flow up from the first day");
    series->add_option("--from", arguments->From, "First month, year 1 is the first simulated")->option_text("YYYY-MM");
    series->add_option("--to", arguments->To, "Last month")->option_text("YYYY-MM");
    series->add_option("--to-file", arguments->File, ".csv, .svg, .png or .pdf")->option_text("F");
    series->callback([=, &command] { command = [=](Session& session) { return Do_Series(session, *arguments); }; });
}

} // namespace orvel
