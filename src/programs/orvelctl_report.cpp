#include "programs/orvelctl_report.h"

#include "core/files.h"
#include "core/text.h"
#include "output/run_state.h"
#include "report/report_formats.h"
#include "runs/start_up.h"
#include "tables/table_cache.h"

#include <CLI/CLI.hpp>
#include <ctime>
#include <iostream>
#include <memory>

namespace orvel {

namespace {

struct Report_Arguments {
    std::string Mode, Stem, Crop, Codes, File; // as they stand on the command line, in UTF-8
};

int Do_Text(const std::vector<Summary_Request>& requests, const std::string& file)
{
    const auto summaries = Report_Text(requests, Shown_Progress());
    Clear_Progress();
    if (!summaries.Failure.empty()) {
        Tell("File check", Replace_All(summaries.Failure, CrLf, "\n"));
        return Refused;
    }
    for (const auto& note : summaries.Notes)
        Tell("Report", note);
    if (!file.empty()) {
        Write_Whole(file, summaries.Text);
        return Done;
    }
    std::cout << Replace_All(summaries.Text, CrLf, "\n") << std::flush;
    return std::cout ? Done : Refused;
}

// Tells what every run lacks to be complete. Whether none lacks anything.
bool All_Complete(const std::vector<Summary_Request>& requests)
{
    bool complete = true;
    for (const auto& request : requests) {
        for (const auto& location : request.Locations) {
            const auto verdict = State_Of_Run(location.Directory).Verdict;
            std::string gap = Gap_Of(location.Directory);
            if (gap.empty() && (verdict == Verdict::Running || verdict == Verdict::Scheduled))
                gap = "The simulation is " + std::string(Verdict_Text(verdict)) + ".";
            if (gap.empty())
                continue;
            Tell("Report", request.Crop + ", " + location.Text + ": " + gap);
            complete = false;
        }
    }
    return complete;
}

int Write_Report(Session& session, const Report_Arguments& arguments, const std::vector<Summary_Request>& requests)
{
    if (arguments.File.empty())
        return Do_Text(requests, {});
    const auto& format = Report_Format_Of(arguments.File);
    if (format.Is_Text)
        return Do_Text(requests, arguments.File);
    if (format.Is_Painted)
        return Paint({"report", session.Program.App_Path.string(), arguments.Mode, arguments.Stem, arguments.Crop,
                      arguments.Codes, arguments.File});
    const auto report = Gather_Report(session, requests, std::time(nullptr), Shown_Progress());
    Clear_Progress();
    for (const auto& note : report.Notes)
        Tell("Report", note);
    Write_Whole(arguments.File, format.Write(report));
    return Done;
}

int Do_Report(Session& session, const Report_Arguments& arguments)
{
    Find_Engine(session.Program);
    const auto requests = Request_Summaries(session, *Mode_Named(arguments.Mode), Bytes_Of(arguments.Stem),
                                            Bytes_Of(arguments.Crop), Codes_In(arguments.Codes));
    const int code = Write_Report(session, arguments, requests);
    return All_Complete(requests) ? code : Refused;
}

} // namespace

void Add_Report_Command(CLI::App& app, Command& command)
{
    auto* report =
        app.add_subcommand("report", "Print or save the summary report over all locations of a pesticide and crop");
    const auto arguments = std::make_shared<Report_Arguments>();
    Add_Mode(report, arguments->Mode);
    report->add_option("--pesticide", arguments->Stem, "Name of the pesticide file without its ending")
        ->required()
        ->option_text("STEM");
    report->add_option("--crop", arguments->Crop, "A crop, or 'all'")->required()->option_text("TEXT");
    report->add_option("--locations", arguments->Codes, "Codes of locations: C,H,K")->option_text("CODES");
    report->add_option("--to", arguments->File, Report_Endings())->option_text("FILE");
    report->callback([=, &command] {
        Check_Letters({arguments->Stem, arguments->Crop, arguments->Codes});
        command = [=](Session& session) { return Do_Report(session, *arguments); };
    });
}

} // namespace orvel
