#include "core/files.h"
#include "core/text.h"
#include "programs/orvelctl.h"
#include "report/report_forms.h"
#include "runs/start_up.h"

#include <ctime>
#include <iostream>
#include <memory>

namespace orvel {

namespace {

struct Report_Words {
    std::string Mode, Stem, Crop, Codes, File; // as they stand on the command line, in UTF-8
};

int Do_Text(Session& session, const std::vector<Summary_Request>& requests, const std::string& file)
{
    const auto text = Report_Text(session, requests, Shown_Progress());
    Clear_Progress();
    if (!text)
        return Refused;
    if (!file.empty()) {
        Write_Whole(file, *text);
        return Done;
    }
    std::cout << Replace_All(*text, CrLf, "\n") << std::flush;
    return std::cout ? Done : Refused;
}

int Do_Report(Session& session, const Report_Words& words)
{
    Find_Engine(session.Program);
    const std::string ending = Lower(std::filesystem::path(words.File).extension().string());
    const auto requests = Request_Summaries(session, *Mode_Named(words.Mode), Bytes_Of(words.Stem),
                                            Bytes_Of(words.Crop), Codes_In(words.Codes));
    if (words.File.empty() || ending == ".txt")
        return Do_Text(session, requests, words.File);
    const bool is_pdf = ending == ".pdf";
    if (!is_pdf)
        Report_In_Form({}, words.File); // refuses another ending before the work
    const auto report = Gather_Report(session, requests, std::time(nullptr), Shown_Progress());
    Clear_Progress();
    for (const auto& note : report->Notes)
        Tell("Report", note);
    if (is_pdf)
        return Paint(
            {"report", session.Program.App_Path.string(), words.Mode, words.Stem, words.Crop, words.Codes, words.File});
    Write_Whole(words.File, Report_In_Form(*report, words.File));
    return Done;
}

} // namespace

void Add_Report_Command(CLI::App& app, Command& command)
{
    auto* report =
        app.add_subcommand("report", "Print or save the summary report over all locations of a pesticide and crop");
    const auto words = std::make_shared<Report_Words>();
    Add_Mode(report, words->Mode);
    report->add_option("--pesticide", words->Stem)->required()->option_text("STEM");
    report->add_option("--crop", words->Crop, "A crop, or 'all'")->required()->option_text("TEXT");
    report->add_option("--locations", words->Codes, "Codes of locations: C,H,K")->option_text("CODES");
    report->add_option("--to", words->File, ".txt, .csv, .html or .pdf")->option_text("FILE");
    report->callback([=, &command] {
        for (const auto& word : {words->Stem, words->Crop, words->Codes})
            Bytes_Of(word); // refuses what no file's name can hold
        command = [=](Session& session) { return Do_Report(session, *words); };
    });
}

} // namespace orvel
