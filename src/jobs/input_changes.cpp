#include "jobs/input_changes.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/run_name.h"
#include "core/text.h"

namespace orvel {

namespace fs = std::filesystem;

void Input_Changes::Begin_Pass()
{
    Sources.clear();
    Unread.clear();
}

bool Input_Changes::Cannot_Be_Read(const File_Error& error)
{
    if (!Is_Missing(error.Code))
        Unread.insert(To_Code_Page(error.what()));
    return true;
}

bool Input_Changes::Differs(const fs::path& file, const Recorded_File& recorded)
try {
    return Digests.Of(file).Sha256 != recorded.Sha256;
} catch (const File_Error& error) {
    return Cannot_Be_Read(error);
}

const Input_Changes::Source& Input_Changes::Source_Of(const std::string& name)
{
    const auto [known, is_new] = Sources.try_emplace(name);
    if (!is_new)
        return known->second;
    try {
        const auto file = Find_File(App_Path, Path_Of(name));
        known->second.Is_There = file.has_value();
        if (file)
            known->second.Sha256 = Digests.Of(*file).Sha256;
    } catch (const File_Error& error) {
        known->second.Is_There = Cannot_Be_Read(error);
    }
    return known->second;
}

// Whether the file of the installation that an input of a run directory was copied from is another one; false for an
// input that was not.
bool Input_Changes::Source_Differs(const fs::path& run_directory, const Recorded_File& recorded)
{
    const std::string& name = recorded.Name;
    const bool copied = name.find('/') == std::string::npos && !Same_Text(name, "orvel.inp");
    if (!copied || run_directory == App_Path)
        return false;
    const Source& source = Source_Of(name);
    return source.Is_There && source.Sha256 != recorded.Sha256;
}

std::vector<std::string> Input_Changes::Of_Installation(const fs::path& run_directory, const Run_Record& record)
{
    std::vector<std::string> changed;
    for (const auto& input : record.Inputs) {
        if (Source_Differs(run_directory, input))
            changed.push_back(input.Name);
    }
    return changed;
}

std::vector<std::string> Input_Changes::Of(const Simulation& simulation)
{
    std::vector<std::string> changed;
    if (!simulation.State.Record)
        return changed;
    for (const auto& input : simulation.State.Record->Inputs) {
        if (Differs(Input_File(simulation.Directory, Path_Of(input.Name)), input) ||
            Source_Differs(simulation.Directory, input))
            changed.push_back(input.Name);
    }
    return changed;
}

} // namespace orvel
