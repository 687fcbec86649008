#include "core/named_input.h"

#include "core/files.h"
#include "core/text.h"

namespace orvel {

namespace fs = std::filesystem;

std::optional<fs::path> Named_Input(const fs::path& run_directory, std::string_view name)
{
    const std::string slashed = Replace_All(std::string(Trim(name)), "\\", "/");
    if (slashed.empty())
        return std::nullopt;
    const fs::path path = Path_Of(slashed);
    fs::path found = path.is_absolute() ? fs::path("/") : run_directory;
    for (const fs::path& part : path.relative_path()) {
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

} // namespace orvel
