#include "plans/slurm.h"

#include "core/error.h"
#include "core/files.h"
#include "core/shell_line.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"
#include "core/text.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Queue_Log_Name = ".squeue.log";

// A task that is put into the queue again may begin before the system has noticed that the one before has gone: a file
// server gives up the locks of a dead machine after some 90 s.
constexpr std::string_view Patience_Seconds = "180";

fs::path Slurm_Program(const std::string& name, const std::string& otherwise)
{
    fs::path program = Program_In_Path(name);
    if (program.empty())
        throw File_Error("There is no " + name + " on this machine: " + otherwise);
    return program;
}

struct Said {
    bool Is_Done = false;
    std::string Text; // on both channels
};

Said Said_By(const fs::path& program, std::vector<std::string> arguments, const fs::path& directory,
             std::string_view log)
{
    const int process =
        Start_Program({.Program = program, .Arguments = std::move(arguments), .Directory = directory, .Output = log});
    const Program_End end = Wait_For_Program(process);
    return {.Is_Done = end.Exit_Code == 0 && end.Signal == 0, .Text = Read_Whole(directory / log)};
}

// On one line, as a part of a sentence.
std::string In_A_Line(std::string_view text)
{
    return std::string(Trim(Replace_All(std::string(text), "\n", " ")));
}

} // namespace

std::string Slurm_Script(const fs::path& directory, const std::vector<std::string>& command, std::size_t tasks)
{
    std::string script =
        "#!/bin/sh\n"
        "# Runs one part of a plan. It goes on with what is missing, so that a task may be killed and\n"
        "# put into the queue again at any moment.\n"
        "exec >>" +
        Shell_Word((directory / "slurm-").string(), Users_Shell::Posix) + "\"$SLURM_ARRAY_TASK_ID.log\" 2>&1\nexec";
    for (const auto& word : command)
        script += " " + Shell_Word(word, Users_Shell::Posix);
    script += " --part \"$SLURM_ARRAY_TASK_ID/" + std::to_string(tasks) + "\" --patience ";
    script += Patience_Seconds;
    return script + "\n";
}

std::vector<std::string> Sbatch_Arguments(const Slurm_Order& order)
{
    std::vector<std::string> arguments = {"--parsable",
                                          "--job-name=orvel-plan",
                                          "--array=1-" + std::to_string(order.Tasks),
                                          "--ntasks=1",
                                          "--cpus-per-task=" + std::to_string(order.Jobs),
                                          "--requeue",
                                          "--output=/dev/null"};
    if (order.Minutes)
        arguments.push_back("--time=" + std::to_string(*order.Minutes));
    arguments.emplace_back(Slurm_Script_Name);
    return arguments;
}

std::string Job_Text(const Slurm_Job& job, std::size_t tasks)
{
    return "Job " + job.Number + (job.Cluster.empty() ? "" : " on " + job.Cluster) + ", " + std::to_string(tasks) +
           (tasks == 1 ? " task" : " tasks");
}

std::optional<Slurm_Job> Parse_Sbatch(std::string_view printed)
{
    std::optional<Slurm_Job> job;
    while (!printed.empty()) {
        const std::string_view line = printed.substr(0, printed.find('\n'));
        printed.remove_prefix(std::min(printed.size(), line.size() + 1));
        const std::string_view number = line.substr(0, line.find(';'));
        if (number.empty() || number.find_first_not_of("0123456789") != std::string_view::npos)
            continue;
        job = {.Number = std::string(number),
               .Cluster = std::string(number == line ? "" : line.substr(number.size() + 1))};
    }
    return job;
}

bool Is_Listed(const Slurm_Job& job, std::string_view printed)
{
    return ("\n" + std::string(printed) + "\n").find("\n" + job.Number + "\n") != std::string::npos;
}

Slurm_Job Submit(const fs::path& directory, const Slurm_Order& order, const std::vector<std::string>& command)
{
    const fs::path sbatch = Slurm_Program("sbatch", "a plan goes to a cluster from where its Slurm is installed.");
    Write_Whole(directory / Slurm_Script_Name, Slurm_Script(directory, command, order.Tasks));
    const Said said = Said_By(sbatch, Sbatch_Arguments(order), directory, Slurm_Log_Name);
    const auto job = Parse_Sbatch(said.Text);
    if (!said.Is_Done || !job)
        throw File_Error("sbatch has not taken the plan: " + In_A_Line(said.Text));
    return *job;
}

void Wait_For_Job(const fs::path& directory, const Slurm_Job& job)
{
    using namespace std::chrono_literals;
    constexpr auto Longest_Pause = 30'000ms;
    constexpr int Most_Failures = 20; // in a row: some ten minutes in which its controller may be started again
    const fs::path squeue = Slurm_Program("squeue", "the tasks go on, and plan status tells how far they are.");
    std::vector<std::string> arguments = {"--me", "--noheader", "--format=%F"};
    if (!job.Cluster.empty())
        arguments.push_back("--clusters=" + job.Cluster);
    int failures = 0;
    for (auto pause = 500ms;; pause = std::min(pause * 3 / 2, Longest_Pause)) {
        std::this_thread::sleep_for(pause);
        const Said said = Said_By(squeue, arguments, directory, Queue_Log_Name);
        if (said.Is_Done && !Is_Listed(job, said.Text))
            break;
        failures = said.Is_Done ? 0 : failures + 1;
        if (failures > Most_Failures)
            throw File_Error("squeue does not tell of job " + job.Number +
                             ", whose tasks go on: " + In_A_Line(said.Text));
    }
    std::error_code ignored;
    fs::remove(directory / Queue_Log_Name, ignored);
}

} // namespace orvel
