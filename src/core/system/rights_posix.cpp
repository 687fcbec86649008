#include "core/system/rights.h"

#include <unistd.h>

namespace orvel {

bool May_Read(const std::filesystem::path& path)
{
    return ::access(path.c_str(), R_OK) == 0;
}

bool May_Write(const std::filesystem::path& path)
{
    return ::access(path.c_str(), W_OK) == 0;
}

bool May_Change_Entries(const std::filesystem::path& directory)
{
    return ::access(directory.c_str(), W_OK | X_OK) == 0;
}

bool Is_Open_To_All(const std::filesystem::path& path)
{
    std::error_code missing;
    const auto rights = std::filesystem::status(path, missing).permissions();
    return !missing && (rights & std::filesystem::perms::others_write) != std::filesystem::perms::none;
}

} // namespace orvel
