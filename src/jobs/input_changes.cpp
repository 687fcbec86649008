#include "jobs/input_changes.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/run_name.h"
#include "core/text.h"

namespace orvel {

namespace fs = std::filesystem;

std::string Change_Text(const Source_Change& change)
{
    if (!change.Unread.empty())
        return change.Unread;
    return change.Input + " of the installation is no longer the one that was simulated.";
}

void Input_Changes::Begin_Pass()
{
    Sources.clear();
    Unread.clear();
}

// The sentence on it, kept for this pass; empty where the file has gone since it was found.
std::string Input_Changes::Cannot_Be_Read(const File_Error& error)
{
    if (Is_Missing(error.Code))
        return {};
    return *Unread.insert(To_Code_Page(error.what())).first;
}

bool Input_Changes::Differs(const fs::path& file, const Recorded_File& recorded)
try {
    return Digests.Of(file).Sha256 != recorded.Sha256;
} catch (const File_Error& error) {
    Cannot_Be_Read(error);
    return true;
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
        known->second = {.Is_There = true, .Sha256 = {}, .Unread = Cannot_Be_Read(error)};
    }
    return known->second;
}

// The file of the installation that an input of a run directory was copied from, if it is another one or cannot be
// read; else nullptr.
const Input_Changes::Source* Input_Changes::Differing_Source(const fs::path& run_directory,
                                                             const Recorded_File& recorded)
{
    const std::string& name = recorded.Name;
    const bool copied = name.find('/') == std::string::npos && !Same_Text(name, "orvel.inp");
    if (!copied || run_directory == App_Path)
        return nullptr;
    const Source& source = Source_Of(name);
    return source.Is_There && source.Sha256 != recorded.Sha256 ? &source : nullptr;
}

std::vector<Source_Change> Input_Changes::Of_Installation(const fs::path& run_directory, const Run_Record& record)
{
    std::vector<Source_Change> changed;
    for (const auto& input : record.Inputs) {
        if (const Source* source = Differing_Source(run_directory, input))
            changed.push_back({input.Name, source->Unread});
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
            Differing_Source(simulation.Directory, input) != nullptr)
            changed.push_back(input.Name);
    }
    return changed;
}

} // namespace orvel
