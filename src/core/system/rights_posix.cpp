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

} // namespace orvel
