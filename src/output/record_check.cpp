#include "output/record_check.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/run_name.h"
#include "output/run_outputs.h"

#include <algorithm>
#include <utility>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// How the record of a run names what lies in the directory of its mode.
constexpr std::string_view Above_Run = "../../../";

// The first output of an engine that the record does not know; empty if there is none.
std::string Added_Output(const fs::path& run_directory, const Run_Record& record)
{
    for (const auto& name : List_Files(run_directory, "*.orv")) {
        const auto is_this = [&](const Recorded_Output& output) { return Path_Of(output.File.Name) == name; };
        if (Is_Engine_Output(name) && std::ranges::none_of(record.Outputs, is_this))
            return "The output " + To_Code_Page(name) + " was added.";
    }
    return {};
}

// Whether a file was last changed before another one was, and not after a second.
bool Is_Before(const File_Identity& file, const File_Identity& other, std::time_t second)
{
    return file.Noted_Seconds <= second && std::pair(file.Noted_Seconds, file.Noted_Nanoseconds) <
                                               std::pair(other.Noted_Seconds, other.Noted_Nanoseconds);
}

} // namespace

// A run of a mode lies four levels below its installation.
fs::path Record_Check::Engine_Of(const fs::path& run_directory, const Run_Record& record) const
{
    const fs::path name = Path_Of(record.Engine.Name);
    fs::path installation = App_Path;
    if (Is_Run_Level(run_directory.filename().string())) {
        installation = Place_In_Mode(run_directory);
        for (int level = 0; level <= Run_Levels; ++level)
            installation = installation.parent_path();
    }
    return Found_Or_New(installation, name);
}

// `mode`: the directory three levels above the run; nothing for a run in the bin.
std::optional<File_Identity> Record_Check::Identity_Of_Input(const fs::path& run_directory, const std::string& name,
                                                             const std::optional<File_Identity>& mode)
{
    if (!mode || !name.starts_with(Above_Run))
        return Identity_Of(Input_File(run_directory, Path_Of(name)));
    const auto [known, is_new] = Shared.try_emplace({mode->Device, mode->Number, name});
    if (is_new)
        known->second = Identity_Of(run_directory / Path_Of(name));
    return known->second;
}

Proof Record_Check::By_Times(const fs::path& run_directory, const Run_Record& record)
{
    const auto written = Identity_Of(run_directory / Run_Record_Name);
    if (!written)
        return Proof::Changed;
    Proof proof = record.End > 0 ? Proof::Same : Proof::Unknown;
    const auto look = [&](const std::optional<File_Identity>& identity, const Recorded_File& recorded) {
        if (!identity || identity->Size != recorded.Size)
            proof = Proof::Changed;
        else if (proof == Proof::Same && !Is_Before(*identity, *written, record.End))
            proof = Proof::Unknown;
    };
    look(Identity_Of(Engine_Of(run_directory, record)), record.Engine);
    const bool in_place = Place_In_Mode(run_directory) == run_directory;
    const auto mode = in_place ? Identity_Of(run_directory / Above_Run) : std::nullopt;
    for (const auto& input : record.Inputs)
        look(Identity_Of_Input(run_directory, input.Name, mode), input);
    for (const auto& output : record.Outputs)
        look(Identity_Of(run_directory / Path_Of(output.File.Name)), output.File);
    return proof != Proof::Changed && !Added_Output(run_directory, record).empty() ? Proof::Changed : proof;
}

std::string Record_Check::Changed_File(const fs::path& file, const Recorded_File& recorded)
try {
    return Digests.Of(file).Sha256 == recorded.Sha256 ? std::string() : recorded.Name + " has changed.";
} catch (const File_Error& error) {
    Unreadable = Unreadable || (error.Code && !Is_Missing(error.Code));
    return To_Code_Page(error.what());
}

std::string Record_Check::Changed(const fs::path& run_directory, const Run_Record& record)
{
    Unreadable = false;
    std::string changed = Changed_File(Engine_Of(run_directory, record), record.Engine);
    for (auto input = record.Inputs.begin(); changed.empty() && input != record.Inputs.end(); ++input)
        changed = Changed_File(Input_File(run_directory, Path_Of(input->Name)), *input);
    for (auto output = record.Outputs.begin(); changed.empty() && output != record.Outputs.end(); ++output)
        changed = Changed_File(run_directory / Path_Of(output->File.Name), output->File);
    return changed.empty() ? Added_Output(run_directory, record) : changed;
}

} // namespace orvel
