// The engine: reads the input of a run directory, simulates day by day and writes the output there.
#include "core/files.h"
#include "core/named_input.h"
#include "core/system/arguments.h"
#include "core/system/signals.h"
#include "core/system/standard_channels.h"
#include "core/system/terminal.h"
#include "core/text.h"
#include "core/version.h"
#include "engine/daily_loop.h"
#include "engine/output/echo.h"
#include "engine/output/figures.h"
#include "engine/output/titles.h"
#include "engine/solute/kernel.h"

#include <array>
#include <cstdio>
#include <memory>
#include <new>
#include <optional>

namespace orvel::engine {

namespace fs = std::filesystem;

namespace {

void Print_Usage(std::FILE* to)
{
    const std::string usage =
        "usage: " + std::string(Engine_File_Name) + " [--version] [--check] [--dir DIRECTORY] [--baseline]\n";
    std::fputs(usage.c_str(), to);
}

struct Options {
    bool Check_Only = false;
    bool Baseline = false; // the kernel that every processor runs, also where there is a faster one
    fs::path Directory = ".";
};

// The options from the command line; nothing if the program has already answered and should exit with `code`.
std::optional<Options> Read_Arguments(int count, char** arguments, int& code)
{
    Options options;
    code = Exit_Complete;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--version") {
            std::puts(Engine_Title().c_str());
            return std::nullopt;
        }
        if (argument == "--help") {
            Print_Usage(stdout);
            return std::nullopt;
        }
        if (argument == "--check") {
            options.Check_Only = true;
        } else if (argument == "--baseline") {
            options.Baseline = true;
        } else if (argument == "--dir" && i + 1 < count) {
            options.Directory = arguments[++i];
        } else {
            Print_Usage(stderr);
            code = Exit_Refused;
            return std::nullopt;
        }
    }
    return options;
}

File_Source Files_In(const fs::path& directory)
{
    const auto named = std::make_shared<Named_Inputs>(directory);
    return [named](std::string_view name) -> std::optional<std::string> {
        try {
            const auto file = named->Find(name);
            return file ? std::optional(Read_Whole(*file)) : std::nullopt;
        } catch (const File_Error& error) {
            Pass_On_If_Unreadable(error);
            return std::nullopt;
        }
    };
}

void Put_Closures(std::string& text, const std::vector<Daily_Loop::Year_Closure>& closures)
{
    text += " CLOSURE BY YEAR: WATER (CM), SUBSTANCES AND MOLES (RELATIVE TO THE INPUT)\r\n";
    for (const auto& closure : closures) {
        Put_Integer(text, closure.Year, 6);
        for (const double value : {closure.Water, closure.Solute, closure.Moles})
            Put_Exponent(text, value, 12, 2);
        text += CrLf;
    }
    text += CrLf;
}

// Prints a line for each year; on a terminal also the percentage of the year, on the same line.
void Tell_Progress(int year, int years, int percent)
{
    static const bool terminal = Output_Is_Terminal();
    if (percent == 100)
        std::printf(terminal ? "\rYEAR %d OF %d      \n" : "YEAR %d OF %d\n", year, years);
    else if (terminal)
        std::printf("\rYEAR %d OF %d %3d %%", year, years, percent);
    std::fflush(stdout);
}

int Run_In(const Options& options, Echo& echo)
{
    Findings findings;
    const Engine_Input input = Read_Input(Files_In(options.Directory), findings);
    if (findings.Failed()) {
        Put_Notes(echo.Text, findings);
        std::string errors;
        Put_Errors(errors, findings);
        echo.Finish(errors);
        std::fwrite(errors.data(), 1, errors.size(), stderr);
        return Exit_Refused;
    }
    Put_Input(echo.Text, input);
    Put_Notes(echo.Text, findings);
    echo.Text += CrLf;
    echo.Flush();
    if (options.Check_Only) {
        echo.Finish(Checked_Line);
        return Exit_Complete;
    }
    Daily_Loop loop(input, options.Directory, options.Baseline ? &Baseline_Kernel() : nullptr);
    loop.Run([&input](int year, int percent) { Tell_Progress(year, input.Control.Years, percent); });
    Put_Dry_Years(echo.Text, "at 1 m", loop.Dry_Years_At_Metre());
    Put_Dry_Years(echo.Text, "at the core's bottom", loop.Dry_Years_At_Bottom());
    Put_Notes(echo.Text, loop.Remarks());
    Put_Closures(echo.Text, loop.Closures());
    echo.Finish(Completed_Line);
    return Exit_Complete;
}

// Reports a failure on standard error and, if the disk allows it, in the echo. Returns the exit code.
int Fail(Echo* echo, const Engine_Failure& failure)
{
    const std::string line = Error_Line(failure.Number, failure.what());
    std::fputs(line.c_str(), stderr);
    if (echo) {
        try {
            echo->Text.clear();
            echo->Finish(line);
        } catch (const Engine_Failure&) {
            return Exit_No_File;
        }
    }
    return failure.Exit_Code;
}

int Run(const Options& options)
{
    std::optional<Echo> echo;
    try {
        echo.emplace(options.Directory);
        return Run_In(options, *echo);
    } catch (const Engine_Failure& failure) {
        return Fail(echo ? &*echo : nullptr, failure);
    } catch (const std::bad_alloc&) {
        return Fail(echo ? &*echo : nullptr, {Fault::Internal_Failure, "OUT OF MEMORY"});
    } catch (const std::exception& error) {
        return Fail(echo ? &*echo : nullptr, {Fault::Internal_Failure, error.what()});
    }
}

} // namespace

} // namespace orvel::engine

int main(int count, char** arguments)
{
    using namespace orvel::engine;
    orvel::Open_Standard_Channels();
    orvel::Exit_When_Stopped(Exit_Failed); // the line of error 99 stays in the echo
    orvel::Report_Failed_Writes();
    int code = Exit_Complete;
    arguments = orvel::Utf8_Arguments(count, arguments);
    const auto options = Read_Arguments(count, arguments, code);
    return options ? Run(*options) : code;
}
