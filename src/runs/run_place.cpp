#include "runs/run_place.h"

#include "core/system/rights.h"

namespace orvel {

namespace fs = std::filesystem;

void Check_No_Link(const fs::path& mode_directory, const fs::path& run)
{
    fs::path level = mode_directory;
    for (const auto& part : run.lexically_relative(mode_directory)) {
        level /= part;
        std::error_code ignored;
        if (part == ".." || fs::symlink_status(level, ignored).type() == fs::file_type::symlink)
            throw File_Error("The directory " + level.string() +
                             " is a link, which leads elsewhere: nothing is run, replaced or deleted there.");
    }
}

void Check_Not_Open_To_All(const fs::path& path)
{
    if (Is_Open_To_All(path))
        throw File_Error("Every user of this computer may change " + path.string() +
                         ": no engine is started there until others may not write it.");
}

} // namespace orvel
