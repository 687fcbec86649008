#include "evaluation/utility_table.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/text.h"
#include "jobs/engine_start.h"
#include "output/echo_file.h"
#include "ui/shown_file.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Title = "Output tables";

std::string Quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

// The copy is kept small: the series of a long run take a gigabyte.
std::string First_Lines(const fs::path& plot)
{
    constexpr int Copied_Lines = 7;
    std::string lines;
    Line_Scanner scanner(plot, 4U << 10U);
    for (int line = 0; line < Copied_Lines && scanner.Next(); ++line)
        lines.append(scanner.Line()).append(CrLf);
    return lines;
}

std::string Log_Of(const fs::path& directory)
try {
    return To_Code_Page(Read_If_There(directory, Utility_Log));
} catch (const File_Error& error) {
    return To_Code_Page(error.what());
}

std::optional<int> Tell(const Session& session, std::string text)
{
    session.Ask({std::string(Title), std::move(text)});
    return std::nullopt;
}

} // namespace

std::string Format_Utility_Batch(Utility utility, const fs::path& directory, const fs::path& app_path)
{
    const std::string place = Path_Text(directory);
    std::string text =
        "copy  " + Quoted(place + "\\plot.orv") + " " + Quoted(place + "\\" + std::string(Series_Copy)) + "\r\n";
    text += "\r\n"; // where the drive letter would be
    text += "CD " + Quoted(place) + "\r\n";
    text += Quoted(Path_Text(app_path) + "\\" + std::string(Names_Of(utility).Program)) + "\r\n";
    return text + "quit\r\n";
}

bool Is_Due(Utility utility, const fs::path& directory)
{
    const auto plot = Find_File(directory, "plot.orv");
    if (!plot)
        return false;
    const auto table = Find_File(directory, Names_Of(utility).Output), copy = Find_File(directory, Series_Copy);
    std::error_code of_plot, of_table;
    return !table || !copy || fs::last_write_time(*plot, of_plot) > fs::last_write_time(*table, of_table) || of_plot ||
           of_table;
}

std::optional<int> Start_Utility(const Session& session, Utility utility, const fs::path& directory)
try {
    const Utility_Names& names = Names_Of(utility);
    if (Is_Of_A_Batch(directory))
        return Tell(session, "These tables are those of a single run. For a simulation of a batch, please use the form "
                             "\"Evaluation of Simulation\".");
    const auto program = Find_File(session.Program.App_Path, names.Program);
    if (!program)
        return Tell(session,
                    "The program " + std::string(names.Program) + " is missing in the installation directory.");
    if (Is_At_Work(directory))
        return Tell(session, "The simulation is still at work.");
    Write_Whole(Found_Or_New(session.Program.App_Path, names.Batch),
                Format_Utility_Batch(utility, directory, session.Program.App_Path));
    if (const auto old = Find_File(directory, names.Output))
        fs::remove(*old);
    Write_Whole(Found_Or_New(directory, Series_Copy), First_Lines(Found_Or_New(directory, "plot.orv")));
    Program_Start start = Engine_Start(directory, *program);
    start.Output = Utility_Log;
    return Start_Program(start);
} catch (const std::runtime_error& error) { // from a file, or a program that cannot be started
    return Tell(session, To_Code_Page(error.what()));
}

std::string Take_Utility_Log(const fs::path& directory)
{
    const std::string log = Log_Of(directory);
    std::error_code ignored;
    fs::remove(directory / Utility_Log, ignored);
    return std::string(Trim(Replace_All(Replace_All(log, "\r", " "), "\n", " ")));
}

std::optional<std::string> Utility_Table(const Session& session, Utility utility, const fs::path& directory)
{
    const auto file = Find_File(directory, Names_Of(utility).Output);
    if (!file)
        return std::nullopt;
    auto text = utility == Utility::Day ? Shown_File(session, *file) : Shown_Whole(session, *file);
    if (text && text->ends_with(CrLf))
        text->resize(text->size() - CrLf.size());
    return text;
}

} // namespace orvel
