#include "programs/orvelctl_guidance.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/text.h"
#include "substance/guidance_check.h"
#include "substance/value_sheet.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

namespace orvel {

namespace {

struct Check_Arguments {
    std::string File, Rules;
    bool Json = false;
};

int Do_Check(const Session& session, const Check_Arguments& arguments)
{
    const Guidance guidance = Read_Guidance(session.Program.App_Path, arguments.Rules);
    const auto document = Read_Whole_Pesticide(arguments.File);
    const auto findings = Check_Guidance(guidance, Facts_Of(*document), Read_Notes(arguments.File));
    std::cout << (arguments.Json ? Findings_Json(findings) : To_Utf8(Findings_Lines(findings)));
    if (!std::cout.flush())
        return Refused;
    if (!Has_Open_Finding(findings))
        return Done;
    Tell(Guidance_Title, "There are findings without an answer.");
    return Refused;
}

void Add_Check(CLI::App& app, Command& command)
{
    auto* check = app.add_subcommand(
        "check", "What the guidance says against a pesticide file: a line a finding, SEVERITY, rule, value, text, "
                 "source. Exit code 1: one of severity warning or above has no answer in the notes");
    const auto arguments = std::make_shared<Check_Arguments>();
    check->add_option("F.psm", arguments->File, "The pesticide file")->required();
    check->add_option("--rules", arguments->Rules, "Rules of your own, beside or in place of those of the installation")
        ->option_text("FILE");
    check->add_flag("--json", arguments->Json, "Print an object for each finding");
    check->callback([=, &command] { command = [=](const Session& session) { return Do_Check(session, *arguments); }; });
}

int Do_Sheet(const std::string& file, const std::string& to)
{
    const std::string ending = Lower(std::filesystem::path(to).extension().string());
    if (ending == ".xlsx")
        return Paint({"sheet", file, to});
    if (!to.empty() && ending != ".csv")
        throw File_Error("A sheet is saved as .xlsx or .csv, not as " + to + ".");
    const auto rows = Read_Sheet(file);
    if (!to.empty())
        Write_Whole(to, Sheet_Csv(rows));
    else
        std::cout << Sheet_Lines(rows) << std::flush;
    return std::cout ? Done : Refused;
}

void Add_Sheet(CLI::App& app, Command& command)
{
    auto* sheet = app.add_subcommand(
        "sheet", "The values of a pesticide file with units and sources, to be checked by a second pair of eyes");
    const auto file = std::make_shared<std::string>(), to = std::make_shared<std::string>();
    sheet->add_option("F.psm", *file, "The pesticide file")->required();
    sheet->add_option("--to", *to, "A workbook (.xlsx) or table (.csv), printed as a table if not given")
        ->option_text("FILE");
    sheet->callback([=, &command] { command = [=](Session&) { return Do_Sheet(*file, *to); }; });
}

} // namespace

void Add_Guidance_Commands(CLI::App& app, Command& command)
{
    Add_Check(app, command);
    Add_Sheet(app, command);
}

} // namespace orvel
