// Paints for orvelctl: a series of a run as a picture, the report as a document or workbook, the overview, the results
// of a plan and the sheet of a pesticide file as workbooks.
//   orvelpaint series INSTALLATION RUNDIR COLUMN ITEM VARIABLE CUMULATIVE FROM TO FILE
//   orvelpaint report INSTALLATION MODE STEM CROP CODES FILE
//   orvelpaint sheet PESTICIDE FILE
//   orvelpaint overview INSTALLATION MODE STEM CROP CODES DEPTH WINDOW COMPARED FILE
//   orvelpaint plan DIRECTORY SECONDS FILE
// FROM and TO are months as YYYY-MM; CODES are separated by commas; they, and the STEM, CROP and COMPARED (a path) of
// an overview, may be empty.
#include "charts/painting/chart_files.h"
#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/system/arguments.h"
#include "core/system/standard_channels.h"
#include "evaluation/compared_assessment.h"
#include "files/document_kind.h"
#include "plans/results_file.h"
#include "programs/console.h"
#include "report/overview_formats.h"
#include "report/overview_reader.h"
#include "report/overview_settings.h"
#include "report/painting/report_files.h"
#include "runs/calendar_file.h"
#include "runs/start_up.h"
#include "substance/value_sheet.h"
#include "tables/daily_diagram.h"
#include "tables/series.h"
#include "tables/utilities.h"

#include <algorithm>
#include <ctime>
#include <iostream>
#include <memory>
#include <QGuiApplication>
#include <string>
#include <vector>

namespace orvel {

namespace {

using Arguments = std::vector<std::string>;

void Paint_Series(Session& session, const Arguments& arguments)
{
    const Daily_Request request{.Variable = static_cast<int>(Val(arguments[4])),
                                .Cumulative = arguments[5] == "1",
                                .From = Parse_Month(arguments[6]).value_or(Run_Month{}),
                                .To = Parse_Month(arguments[7]).value_or(Run_Month{})};
    const Daily_Series series = Read_Daily_Series(Calendar_File(session, arguments[1], !Is_Of_A_Batch(arguments[1])),
                                                  arguments[1], static_cast<int>(Val(arguments[2])), request);
    Save_Chart(Daily_Diagram(series, request, arguments[3], X_Unit::Years), arguments[8]);
}

void Paint_Report(Session& session, const Arguments& arguments)
{
    Find_Engine(session.Program);
    const auto bytes = [](const std::string& text) { return From_Utf8(text).value_or(""); };
    const auto requests = Request_Summaries(session, *Mode_Named(arguments[1]), bytes(arguments[2]),
                                            bytes(arguments[3]), Codes_In(arguments[4]));
    const auto report = Gather_Report(session, requests, std::time(nullptr), Shown_Progress());
    Clear_Progress();
    for (const auto& note : report.Notes)
        Tell("Report", note);
    Write_Report(report, arguments[5]);
}

// Whether every run could be read.
bool Write_Overview_Book(Session& session, const Arguments& arguments)
{
    const auto bytes = [](const std::string& text) { return From_Utf8(text).value_or(""); };
    Overview_Request request{
        .Pesticide = bytes(arguments[2]),
        .Crop = bytes(arguments[3]),
        .Codes = Codes_In(arguments[4]),
        .Soil = {.Depth = static_cast<int>(Val(arguments[5])), .Window = static_cast<std::size_t>(Val(arguments[6]))}};
    const Mode& mode = *Mode_Named(arguments[1]);
    if (!arguments[7].empty())
        request.Compared = Read_Compared(session.Program.App_Path, mode, request.Soil, arguments[7], Shown_Progress());
    const auto overview = Gather_Overview(session.Program, mode, request, Shown_Progress());
    Clear_Progress();
    Write_Whole(arguments[8],
                Format_Xlsx(Overview_Book(overview, Read_Overview_Settings(session.Program.App_Path).Bounds)));
    for (const auto& run : overview.Runs) {
        if (run.Kind == Cell_Kind::Unreadable)
            Tell("Overview", run.Pesticide + ", " + run.Crop + ", " + run.Location + ": " + run.Reason);
    }
    return std::ranges::none_of(overview.Runs,
                                [](const Overview_Run& run) { return run.Kind == Cell_Kind::Unreadable; });
}

} // namespace

} // namespace orvel

using namespace orvel;

int main(int argc, char** argv)
try {
    Open_Standard_Channels();
    argv = Utf8_Arguments(argc, argv);
    Arguments arguments(argv + 1, argv + argc);
    const std::string what = arguments.empty() ? "" : arguments.front();
    if (what == "--help") {
        std::cout << "Usage: orvelpaint series | report | overview | plan | sheet ARGUMENT...\n";
        return 0;
    }
    const bool is_series =
        what == "series" && arguments.size() == 10 && Parse_Month(arguments[7]) && Parse_Month(arguments[8]);
    const bool is_plan = what == "plan" && arguments.size() == 4;
    const bool is_overview = what == "overview" && arguments.size() == 10 && Mode_Named(arguments[2]) != nullptr;
    if (what == "sheet" && arguments.size() == 3) { // needs no window system
        const std::filesystem::path pesticide = arguments[1];
        Write_Whole(arguments[2], Format_Xlsx(Sheet_Book(Read_Sheet(pesticide), Shown_Name(pesticide))));
        return 0;
    }
    if (!is_series && !is_overview && !is_plan &&
        !(what == "report" && arguments.size() == 7 && Mode_Named(arguments[2]) != nullptr))
        return 2;
    arguments.erase(arguments.begin());
    if (is_plan) {
        Write_Results_Book(arguments[0], arguments[1] == "1", arguments[2], Shown_Progress());
        Clear_Progress();
        return 0;
    }
#ifndef _WIN32                               // which paints without a display as it is, with its own fonts
    qputenv("QT_QPA_PLATFORM", "offscreen"); // no display is needed
#endif
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {}); // the errors alone are told
    QGuiApplication application(argc, argv);
    const auto session = std::make_unique<Session>();
    session->Program.App_Path = arguments[0];
    if (is_overview)
        return Write_Overview_Book(*session, arguments) ? 0 : 1;
    if (is_series)
        Paint_Series(*session, arguments);
    else
        Paint_Report(*session, arguments);
    return 0;
} catch (const std::exception& error) {
    std::cerr << "File check: " << error.what() << '\n';
    return 1;
}
