#include "core/system/rights.h"

#include "core/system/handle_windows.h"

namespace orvel {

bool May_Read(const std::filesystem::path& path)
{
    return static_cast<bool>(Open_Shared(path, GENERIC_READ));
}

bool May_Write(const std::filesystem::path& path)
{
    const DWORD attributes = ::GetFileAttributesW(Long_Path(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return false;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return May_Change_Entries(path);
    // A program that runs cannot be written, but may be replaced.
    return (attributes & FILE_ATTRIBUTE_READONLY) == 0 &&
           (Open_Shared(path, GENERIC_WRITE) || ::GetLastError() == ERROR_SHARING_VIOLATION);
}

bool May_Change_Entries(const std::filesystem::path& directory)
{
    return static_cast<bool>(Open_Shared(directory, FILE_ADD_FILE | FILE_ADD_SUBDIRECTORY | FILE_DELETE_CHILD));
}

} // namespace orvel
