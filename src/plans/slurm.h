#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// A plan on a Slurm cluster: its parts are the tasks of one array. Slurm is asked to start them and, if somebody waits,
// whether one is left; what they have come to, the directory of the plan tells alone.

// In the directory of the plan: the script of the tasks, and what sbatch said to it.
constexpr std::string_view Slurm_Script_Name = "slurm.sh", Slurm_Log_Name = "slurm.log";

struct Slurm_Order {
    std::size_t Tasks = 1;
    int Jobs = 1;               // runs at a time in a task, each with a processor
    std::optional<int> Minutes; // that a task may take
};
constexpr int Most_Slurm_Tasks = 100000;

// The script of a task, which tells what it has to tell in slurm-1.log and so on in the directory of the plan.
// `command` is the line that runs the plan, without its part.
std::string Slurm_Script(const std::filesystem::path& directory, const std::vector<std::string>& command,
                         std::size_t tasks);

// What sbatch is started with in the directory of the plan. No path is among it: Slurm takes percent signs and
// backslashes, even those of the directory, for more than a name.
std::vector<std::string> Sbatch_Arguments(const Slurm_Order& order);

struct Slurm_Job {
    std::string Number, Cluster; // of several clusters that are one; empty with one
    bool operator==(const Slurm_Job&) const = default;
};

std::string Job_Text(const Slurm_Job& job, std::size_t tasks); // "Job 12 on short, 4 tasks"

// The job in what `sbatch --parsable` has printed, between warnings; nothing if there is none.
std::optional<Slurm_Job> Parse_Sbatch(std::string_view printed);

// Whether a task of a job is left, by the numbers of jobs that squeue has printed, a line each.
bool Is_Listed(const Slurm_Job& job, std::string_view printed);

// Writes the script and hands it to sbatch. Throws File_Error if there is no sbatch or it refuses.
Slurm_Job Submit(const std::filesystem::path& directory, const Slurm_Order& order,
                 const std::vector<std::string>& command);

// Waits until no task of a job is left. Throws File_Error if Slurm does not tell any more; the tasks go on then.
void Wait_For_Job(const std::filesystem::path& directory, const Slurm_Job& job);

} // namespace orvel
