// What runs: engine, programs, processors, locale.
#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/sha256.h"
#include "core/system/processors.h"
#include "core/system/program_path.h"
#include "core/text.h"
#include "desktop/doctor_checks.h"
#include "jobs/engine_start.h"
#include "runs/acceptance.h"
#include "runs/run_place.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <locale>
#include <stdexcept>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* Engine = "engine";
constexpr const char* Programs = "programs";

bool May_Be_Run(const fs::path& file)
{
    constexpr auto May_Run = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    std::error_code error;
    return (fs::status(file, error).permissions() & May_Run) != fs::perms::none && !error;
}

// The first bytes of a program of this kind of computer: those that tell processor, width and order of bytes.
std::string Kind_Of_Program(const fs::path& file)
{
    constexpr std::size_t Head = 20, Ident = 6, Machine = 18;
    const std::string head = Read_Head(file, Head);
    return head.size() == Head ? head.substr(0, Ident) + head.substr(Machine) : head;
}

Finding Kind_Finding(const fs::path& engine)
{
    const std::string name = engine.filename().string();
    const std::string head = Read_Head(engine, 4);
    const bool is_windows = head.starts_with("MZ"),
               is_native = head == "\x7F"
                                   "ELF",
               is_script = head.starts_with("#!");
    if (!is_windows && !is_native && !is_script)
        return {Engine, Health::Fault, name + " is no program.", "Copy the engine into the installation again."};
    try {
        const fs::path program = Engine_Start(engine.parent_path(), engine).Program;
        if (is_windows)
            return {Engine, Health::Good, name + " is a Windows program, run by " + program.string() + ".", ""};
    } catch (const Run_Refused& refused) {
        return {Engine, Health::Fault, refused.what(),
                "Install wine, or use an engine of this kind of computer: on Debian, apt install wine"};
    }
    if (!May_Be_Run(engine))
        return {Engine, Health::Fault, name + " has no right to be run.", "Give it: chmod +x " + engine.string()};
    if (is_native && Kind_Of_Program(engine) != Kind_Of_Program(Own_Path()))
        return {Engine, Health::Fault, name + " is a program of another kind of processor.",
                "Use the engine that is made for this computer."};
    return {Engine, Health::Good, name + (is_script ? " is a script." : " is a program of this kind of computer."), ""};
}

Finding Acceptance_Finding(const Program_State& program, const fs::path& engine)
{
    const std::string digest = Sha256_Of_File(engine), text = To_Utf8(Acceptance_Text(program.App_Path, digest));
    const std::string found =
        engine.filename().string() + " with the digest " + digest + " is " + text + (text.ends_with('.') ? "" : ".");
    if (text.starts_with("accepted"))
        return {Engine, Health::Good, found, ""};
    return {Engine, Health::Warning, found, "Try it on the reference substances: orvelctl accept"};
}

} // namespace

Findings Examine_Engine(const Program_State& program)
{
    const auto engines = List_Files(program.App_Path, "orvel*.exe");
    if (program.Engine_Exe.empty())
        return {{Engine, Health::Fault, "There is no engine (orvel*.exe) in " + program.App_Path.string() + ".",
                 "Copy one there, or name the installation: orvelctl -C DIR doctor"}};
    const fs::path engine = Found_Or_New(program.App_Path, Path_Of(program.Engine_Exe));
    Findings findings;
    if (engines.size() > 1)
        findings.push_back(
            {Engine, Health::Warning,
             "There are " + std::to_string(engines.size()) + " engines: " + Some_Of(engines) + ". The first one runs.",
             "Take away those that are not to run."});
    findings.push_back(Kind_Finding(engine));
    try {
        Check_Not_Open_To_All(engine);
    } catch (const File_Error& error) {
        findings.push_back({Engine, Health::Fault, error.what(), "Take that right away: chmod o-w " + engine.string()});
    }
    findings.push_back(Acceptance_Finding(program, engine));
    return findings;
}

Findings Examine_Programs(const Program_State& program)
{
    Findings findings;
    const auto look = [&](const fs::path& file, Health missing, const std::string& purpose) {
        if (!fs::is_regular_file(file) || !May_Be_Run(file))
            findings.push_back(
                {Programs, missing,
                 file.string() + (fs::exists(file) ? " has no right to be run." : " is missing.") + " " + purpose,
                 "Install the program again."});
    };
    look(Program_Beside("orveljob"), Health::Fault, "It runs the jobs.");
    look(Program_Beside("orvelpaint"), Health::Warning,
         "It makes the pictures, PDF and workbooks of orvelctl. The package orvelsuite holds it.");
    for (const auto* const utility : {"wyear.exe", "wmonth.exe", "wday.exe"})
        look(Found_Or_New(program.App_Path, utility), Health::Warning, "It makes a table of single runs.");
    if (findings.empty())
        findings.push_back({Programs, Health::Good, "All programs are there.", ""});
    return findings;
}

Finding Judge_Locale(const std::string& name)
{
    constexpr const char* What = "locale";
    constexpr const char* Remedy = "Set LANG to one in UTF-8 that is installed, such as C.UTF-8.";
    if (name.empty() || name == "C" || name == "POSIX")
        return {What, Health::Warning, "No locale is set: names with umlauts may be shown wrongly by other programs.",
                Remedy};
    try {
        const std::locale known(name);
    } catch (const std::runtime_error&) {
        return {What, Health::Warning, "The locale " + name + " is not installed.", Remedy};
    }
    const std::string lower = Lower(name);
    if (!Contains(lower, "utf-8") && !Contains(lower, "utf8"))
        return {What, Health::Warning, "The locale " + name + " is not in UTF-8, which names of files are read in.",
                Remedy};
    return {What, Health::Good, "The locale is " + name + "; numbers do not depend on it.", ""};
}

Findings Examine_Computer(const Program_State&)
{
    std::string locale;
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* const value = std::getenv(variable);
        if (locale.empty() && value != nullptr)
            locale = value;
    }
    const int processors = Processors();
    const std::string features = Processor_Features();
    return {Judge_Locale(locale),
            {"processors", Health::Good,
             std::to_string(processors) + (processors == 1 ? " run" : " runs") + " at a time" +
                 (features.empty() ? "." : "; the processor has " + features + "."),
             ""}};
}

} // namespace orvel
