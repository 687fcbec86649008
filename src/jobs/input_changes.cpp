#include "jobs/input_changes.h"

#include "core/files.h"
#include "core/text.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

// The file of the installation that an input of a run directory was copied from; nothing for one that was not.
std::optional<fs::path> Source_Of(const fs::path& app_path, const fs::path& run_directory, const std::string& name)
{
    const bool copied = name.find('/') == std::string::npos && !Same_Text(name, "orvel.inp");
    return copied && run_directory != app_path ? Find_File(app_path, Path_Of(name)) : std::nullopt;
}

} // namespace

bool Input_Changes::Differs(const fs::path& file, const Recorded_File& recorded)
try {
    return Digests.Of(file).Sha256 != recorded.Sha256;
} catch (const File_Error&) {
    return true;
}

std::vector<std::string> Input_Changes::Of(const Simulation& simulation)
{
    std::vector<std::string> changed;
    if (!simulation.State.Record)
        return changed;
    for (const auto& input : simulation.State.Record->Inputs) {
        const auto source = Source_Of(App_Path, simulation.Directory, input.Name);
        if (Differs(simulation.Directory / Path_Of(input.Name), input) || (source && Differs(*source, input)))
            changed.push_back(input.Name);
    }
    return changed;
}

} // namespace orvel
