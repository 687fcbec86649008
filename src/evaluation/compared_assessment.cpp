#include "evaluation/compared_assessment.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/text.h"
#include "jobs/run_tree.h"
#include "records/unpacked_archive.h"
#include "runs/bin.h"

#include <optional>

namespace orvel {

namespace fs = std::filesystem;

namespace {

bool Is_Generation(const fs::path& other, const fs::path& mode_directory)
{
    std::error_code error;
    return fs::equivalent(fs::absolute(other).lexically_normal().parent_path(), mode_directory / Bin_Name, error);
}

bool Is_Archive(const fs::path& other)
{
    std::error_code error;
    return fs::is_regular_file(other, error) && Lower(other.extension().string()) == ".zip";
}

fs::path Directory_Of(const fs::path& app_path, const Mode& mode)
{
    Program_State program;
    program.App_Path = app_path;
    return Mode_Directory(program, mode);
}

std::vector<Overview_Run> Runs_Of(const fs::path& app_path, const Mode& mode, Soil_Choice soil,
                                  const fs::path& directory, const Progress& progress)
{
    Overview_Reader reader(app_path, mode, soil);
    return Gather_Runs(reader, Simulation_Places(directory), progress);
}

} // namespace

Compared_Assessment Read_Compared(const fs::path& app_path, const Mode& mode, Soil_Choice soil, const fs::path& other,
                                  const Progress& progress)
{
    Compared_Assessment compared{.Name = Path_Text(other), .Runs = {}};
    if (Is_Generation(other, Directory_Of(app_path, mode))) {
        compared.Name = "generation " + Path_Text(fs::absolute(other).lexically_normal().filename()) + " of the bin";
        compared.Runs = Runs_Of(app_path, mode, soil, other, progress);
    } else if (Is_Archive(other)) {
        const Unpacked_Archive unpacked(other, progress);
        compared.Runs = Runs_Of(unpacked.Path(), mode, soil, Directory_Of(unpacked.Path(), mode), progress);
    } else {
        compared.Runs = Runs_Of(other, mode, soil, Directory_Of(other, mode), progress);
    }
    if (compared.Runs.empty())
        throw File_Error(other.string() + " holds no simulations of " + std::string(mode.Name) +
                         ": an overview is compared with another installation, an archive (.zip) or a generation of "
                         "the bin.");
    return compared;
}

std::vector<Earlier_Results> Earlier_Results_In(const fs::path& mode_directory)
{
    std::vector<Earlier_Results> found;
    const auto runs = Runs_In_Bin(mode_directory);
    for (auto first = runs.begin(); first != runs.end();) {
        const auto end =
            std::find_if(first, runs.end(), [&](const Binned_Run& run) { return run.Generation != first->Generation; });
        fs::path directory = first->Directory;
        for ([[maybe_unused]] const auto& level : first->Run)
            directory = directory.parent_path();
        const std::string date = Date_Of_Simulation(first->Directory);
        found.push_back({directory, "generation " + std::to_string(first->Generation) + ": " +
                                        std::to_string(end - first) +
                                        (end - first == 1 ? " simulation" : " simulations") +
                                        (date.empty() ? "" : ", the first of " + date)});
        first = end;
    }
    return found;
}

} // namespace orvel
