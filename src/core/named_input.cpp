#include "core/named_input.h"

#include "core/files.h"
#include "core/text.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

// Each part in any case of letters, except those that lead upwards.
std::optional<fs::path> Found_Below(fs::path found, const fs::path& relative)
{
    for (const fs::path& part : relative) {
        if (part.empty() || part == ".")
            continue;
        if (part == "..") {
            found /= part;
            continue;
        }
        const auto next = Find_File(found, part);
        if (!next)
            return std::nullopt;
        found = *next;
    }
    return found;
}

} // namespace

std::optional<fs::path> Named_Inputs::Find(std::string_view name)
{
    const std::string slashed = Replace_All(std::string(Trim(name)), "\\", "/");
    if (slashed.empty())
        return std::nullopt;
    const fs::path path = Path_Of(slashed);
    const auto [place, is_new] = Places.try_emplace(slashed.substr(0, slashed.rfind('/') + 1));
    if (is_new)
        place->second =
            Found_Below(path.is_absolute() ? path.root_path() : Run_Directory, path.parent_path().relative_path());
    const std::optional<fs::path>& found = place->second;
    return found ? Found_Below(*found, path.filename()) : std::nullopt;
}

std::optional<fs::path> Named_Input(const fs::path& run_directory, std::string_view name)
{
    return Named_Inputs(run_directory).Find(name);
}

} // namespace orvel
