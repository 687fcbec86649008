#include "plans/plan_inputs.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/named_input.h"
#include "core/text.h"
#include "output/run_outputs.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Pesticides_Name = "pesticides", Files_Name = "files";

Plan_Input Found(const fs::path& directory, std::string_view name, std::string kept)
{
    const auto file = Named_Input(directory, name);
    std::error_code error;
    if (!file || !fs::is_regular_file(*file, error))
        throw File_Error("There is no file " + To_Utf8(name) + " in " + directory.string() + ".");
    return {*file, std::move(kept)};
}

// The drive of a Windows path, whose colon no name below has.
bool Is_Drive(std::string_view part)
{
    return part.size() == 2 && part[1] == ':' && Upper(part)[0] >= 'A' && Upper(part)[0] <= 'Z';
}

// The path that stands for any other below one directory.
std::string Below_One_Directory(std::string_view name)
{
    const std::string slashed = Replace_All(std::string(name), "\\", "/");
    std::string below = slashed.starts_with('/') ? "_root" : "";
    for (std::size_t at = 0; at <= slashed.size();) {
        const auto end = std::min(slashed.find('/', at), slashed.size());
        std::string part = slashed.substr(at, end - at);
        if (at == 0 && Is_Drive(part))
            part = "_drive_" + part.substr(0, 1);
        if (!part.empty() && part != ".")
            below += (below.empty() ? "" : "/") + (part == ".." ? "_up" : part);
        at = end + 1;
    }
    return below;
}

} // namespace

Plan_Inputs Plan_Inputs::Of_User(const fs::path& app_path, const fs::path& plan)
{
    Plan_Inputs inputs;
    inputs.Pesticides = inputs.Modes = app_path;
    inputs.Files = fs::absolute(plan).parent_path();
    return inputs;
}

Plan_Inputs Plan_Inputs::Of_Plan(const fs::path& directory)
{
    Plan_Inputs inputs;
    inputs.Are_Kept = true;
    inputs.Modes = directory / Inputs_Name;
    inputs.Pesticides = inputs.Modes / Pesticides_Name;
    inputs.Files = inputs.Modes / Files_Name;
    return inputs;
}

Plan_Input Plan_Inputs::Pesticide(std::string_view name) const
{
    if (Contains(name, "/"))
        throw File_Error("A pesticide file of the installation has no directory: '" + To_Utf8(name) + "'.");
    return Found(Pesticides, name, std::string(Pesticides_Name) + "/" + std::string(name));
}

Plan_Input Plan_Inputs::Of_Mode(const Mode& mode, std::string_view name) const
{
    return Found(Modes / mode.Directory, name, std::string(mode.Directory) + "/" + std::string(name));
}

Plan_Input Plan_Inputs::Named_File(std::string_view name) const
{
    const std::string below = Below_One_Directory(name);
    return Found(Files, Are_Kept ? below : name, std::string(Files_Name) + "/" + below);
}

} // namespace orvel
