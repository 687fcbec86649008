#include "programs/orvelctl_overview.h"

#include "evaluation/compared_assessment.h"
#include "report/overview_formats.h"
#include "report/overview_reader.h"
#include "report/overview_settings.h"
#include "report/summary_report.h"
#include "tables/soil_concentrations.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

namespace orvel {

namespace {

struct Overview_Arguments {
    std::string Mode, Stem, Crop, Codes, Compared, File; // as they stand on the command line, in UTF-8
    int Depth = 1, Days = 0;
    bool Json = false;
};

// Tells of every run that could not be read; whether there is none.
bool All_Readable(const Overview& overview)
{
    bool readable = true;
    for (const auto& run : overview.Runs) {
        if (run.Kind != Cell_Kind::Unreadable)
            continue;
        Tell("Overview", run.Pesticide + ", " + run.Crop + ", " + run.Location + ": " + run.Reason);
        readable = false;
    }
    return readable;
}

std::size_t Window_Of(int days)
{
    return static_cast<std::size_t>(std::ranges::find(TWA_Window, days) - TWA_Window.begin());
}

int Do_Overview(Session& session, const Overview_Arguments& arguments)
{
    const bool is_book = !arguments.File.empty() && Is_Overview_Book(arguments.File);
    if (is_book)
        return Paint({"overview", session.Program.App_Path.string(), arguments.Mode, arguments.Stem, arguments.Crop,
                      arguments.Codes, std::to_string(arguments.Depth), std::to_string(Window_Of(arguments.Days)),
                      arguments.Compared, arguments.File});
    Overview_Request request{.Pesticide = Bytes_Of(arguments.Stem),
                             .Crop = Bytes_Of(arguments.Crop),
                             .Codes = Codes_In(arguments.Codes),
                             .Soil = {.Depth = arguments.Depth, .Window = Window_Of(arguments.Days)}};
    if (!arguments.Compared.empty())
        request.Compared = Read_Compared(session.Program.App_Path, *Mode_Named(arguments.Mode), request.Soil,
                                         arguments.Compared, Shown_Progress());
    const Overview overview = Gather_Overview(session.Program, *Mode_Named(arguments.Mode), request, Shown_Progress());
    Clear_Progress();
    if (!arguments.File.empty())
        Write_Overview(overview, Read_Overview_Settings(session.Program.App_Path).Bounds, arguments.File);
    else
        std::cout << (arguments.Json ? Overview_Json(overview) : Overview_Lines(overview)) << std::flush;
    return All_Readable(overview) && std::cout ? Done : Refused;
}

} // namespace

void Add_Overview_Command(CLI::App& app, Command& command)
{
    auto* overview =
        app.add_subcommand("overview", "Print or save what all simulations of a mode came to, a row a substance");
    const auto arguments = std::make_shared<Overview_Arguments>();
    Add_Mode(overview, arguments->Mode);
    overview->add_option("--pesticide", arguments->Stem, "Name of a pesticide file without its ending, else all")
        ->option_text("STEM");
    overview->add_option("--crop", arguments->Crop, "A crop, else all")->option_text("TEXT");
    overview->add_option("--locations", arguments->Codes, "Codes of the locations that count: C,H,K; else all")
        ->option_text("CODES");
    overview->add_option("--depth", arguments->Depth, "Of the soil in EFSA modes, 1 if not given")
        ->check(CLI::Range(1, Profile_Layers))
        ->option_text("CM");
    overview
        ->add_option("--average", arguments->Days,
                     "Of the concentration in soil, else its maximum: 1, 2, 4, 7, 14, 21, 28, 42, 56 or 100")
        ->check(CLI::IsMember(std::vector<int>(TWA_Window.begin(), TWA_Window.end())))
        ->option_text("DAYS");
    overview
        ->add_option("--compare", arguments->Compared,
                     "Another installation, an archive, or a generation of the bin: each figure stands beside the one "
                     "there, with the ratio of that one to this")
        ->option_text("PATH");
    auto* json = overview->add_flag("--json", arguments->Json, "Print an object for each substance and location");
    overview->add_option("--to", arguments->File, std::string(Overview_Endings))->option_text("FILE")->excludes(json);
    overview->callback([=, &command] {
        Check_Letters({arguments->Stem, arguments->Crop, arguments->Codes});
        command = [=](Session& session) { return Do_Overview(session, *arguments); };
    });
}

} // namespace orvel
