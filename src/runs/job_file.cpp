#include "runs/job_file.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/run_name.h"
#include "core/system/file_identity.h"
#include "core/text.h"

#include <algorithm>
#include <set>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Echo_Off = "echo off";
constexpr std::string_view Change = "cd ";
constexpr std::string_view Climb = "cd ..\\..\\..\\";
constexpr std::string_view Delete_Output = "if exist *.orv del *.orv";

std::string Delete_Engine(std::string_view engine)
{
    return "if exist " + std::string(engine) + " del " + std::string(engine);
}

[[noreturn]] void Refuse(int line)
{
    throw File_Error("The job file holds something else than a job in line " + std::to_string(line) + ".");
}

bool Is_Engine(std::string_view name)
{
    const bool clean =
        std::ranges::none_of(name, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '/' || c == '\\'; });
    return clean && Matches(name, "orvel*.exe");
}

// Iterates over the lines of a job file, counting them; empty lines are skipped.
class Job_Lines {
public:
    explicit Job_Lines(std::string_view bytes) : Lines(bytes) { Advance(); }

    bool At_End() const { return Ended; }
    std::string_view Line() const { return Current; }
    void Advance()
    {
        do {
            Ended = Lines.At_End();
            Current = Ended ? std::string_view() : Lines.Next();
        } while (!Ended && Trim(Current).empty());
    }
    bool Skip_If(std::string_view expected)
    {
        if (Ended || !Same_Text(Current, expected))
            return false;
        Advance();
        return true;
    }
    void Require(std::string_view expected)
    {
        if (!Skip_If(expected))
            Refuse(Lines.Line_Number());
    }
    [[noreturn]] void Refuse_Here() const { Refuse(Lines.Line_Number()); }

private:
    Line_Reader Lines;
    std::string_view Current;
    bool Ended = false;
};

Job_Run Parse_Run(Job_Lines& lines, bool first)
{
    if (!first)
        lines.Require(Climb);
    if (!lines.Line().starts_with(Change) || !Is_Run_Directory(lines.Line().substr(Change.size())))
        lines.Refuse_Here();
    Job_Run run{.Directory = std::string(lines.Line().substr(Change.size())), .Engine = {}};
    lines.Advance();
    lines.Require(Delete_Output);
    if (!Is_Engine(lines.Line()))
        lines.Refuse_Here();
    run.Engine = lines.Line();
    lines.Advance();
    lines.Require(Delete_Engine(run.Engine));
    return run;
}

// The directories below `parent` whose name a job writes as `level`; the one that the code page yields comes first.
std::vector<fs::path> Matching_Directories(const fs::path& parent, std::string_view level)
{
    const std::string name = Dos_To_Ansi(level);
    const fs::path plain = parent / Path_Of(name);
    if (Ansi_To_Dos(name) == name && name == level)
        return {plain};
    std::vector<fs::path> found{plain};
    for (const auto& entry : List_Run_Levels(parent)) {
        const auto bytes = Name_Of(entry);
        if (bytes && Ansi_To_Dos(*bytes) == level && parent / entry != plain)
            found.push_back(parent / entry);
    }
    return found;
}

std::vector<fs::path> Candidates(const fs::path& mode_directory, std::string_view directory)
{
    std::vector<fs::path> found{mode_directory};
    for (const auto level : Split_Directory(directory)) {
        std::vector<fs::path> below;
        for (const auto& parent : found)
            std::ranges::move(Matching_Directories(parent, level), std::back_inserter(below));
        found = std::move(below);
    }
    return found;
}

fs::path Only_Candidate(const fs::path& mode_directory, std::string_view directory)
{
    const auto candidates = Candidates(mode_directory, directory);
    std::vector<fs::path> there;
    std::ranges::copy_if(candidates, std::back_inserter(there), [](const fs::path& path) {
        std::error_code ignored;
        return fs::is_directory(path, ignored);
    });
    if (there.size() > 1)
        throw File_Error("A line of the job file fits two directories, " + there[0].string() + " and " +
                         there[1].string() + ": please rename the pesticide file of one of them.");
    return there.empty() ? candidates.front() : there.front();
}

} // namespace

std::vector<Job_Run> Parse_Job(std::string_view bytes)
{
    Job_Lines lines(bytes);
    lines.Skip_If(Echo_Off);
    std::vector<Job_Run> runs;
    while (!lines.At_End())
        runs.push_back(Parse_Run(lines, runs.empty()));
    return runs;
}

std::string Format_Job_Run(std::string_view run_directory, std::string_view engine, bool first)
{
    std::string text;
    const auto add = [&text](std::string_view line) { text.append(line).append(CrLf); };
    if (!first)
        add(Climb);
    add(std::string(Change) + Ansi_To_Dos(run_directory));
    add(Delete_Output);
    add(engine);
    add(Delete_Engine(engine));
    return text;
}

std::string Format_Job(std::string_view batch)
{
    return std::string(Echo_Off) + std::string(CrLf) + std::string(batch);
}

std::vector<fs::path> Resolve_Runs(const fs::path& mode_directory, const std::vector<Job_Run>& runs)
{
    std::vector<fs::path> paths;
    std::set<fs::path> taken;
    std::set<std::pair<std::uint64_t, std::uint64_t>> places; // two names may be one directory's
    for (const auto& run : runs) {
        paths.push_back(Only_Candidate(mode_directory, run.Directory));
        const auto there = Identity_Of(paths.back());
        if (!taken.insert(paths.back()).second || (there && !places.insert({there->Device, there->Number}).second))
            throw File_Error("The job file names the directory " + paths.back().string() + " twice.");
    }
    return paths;
}

std::optional<fs::path> Indistinct_Directory(const fs::path& mode_directory, std::string_view run_directory)
{
    const fs::path own = Run_Path(mode_directory, run_directory);
    for (const auto& path : Candidates(mode_directory, Ansi_To_Dos(run_directory))) {
        std::error_code ignored;
        if (path != own && fs::is_directory(path, ignored))
            return path;
    }
    return std::nullopt;
}

std::vector<fs::path> Read_Job_Runs(const fs::path& mode_directory)
{
    return Resolve_Runs(mode_directory, Parse_Job(Read_Whole(Found_Or_New(mode_directory, Job_File_Name))));
}

} // namespace orvel
