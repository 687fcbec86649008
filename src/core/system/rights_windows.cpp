#include "core/system/rights.h"

#include "core/system/handle_windows.h"

#include <aclapi.h>

namespace orvel {

namespace {

bool Lets_Everybody_Write(PACL list, DWORD entry)
{
    constexpr DWORD Write = FILE_WRITE_DATA | FILE_DELETE_CHILD | WRITE_DAC | WRITE_OWNER | GENERIC_WRITE | GENERIC_ALL;
    void* found = nullptr;
    if (::GetAce(list, entry, &found) == 0)
        return false;
    const auto* const allowed = static_cast<const ACCESS_ALLOWED_ACE*>(found);
    return allowed->Header.AceType == ACCESS_ALLOWED_ACE_TYPE && (allowed->Mask & Write) != 0 &&
           (allowed->Header.AceFlags & INHERIT_ONLY_ACE) == 0 &&
           ::IsWellKnownSid(const_cast<DWORD*>(&allowed->SidStart), WinWorldSid) != 0;
}

} // namespace

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

// What the system gives to every new directory of a drive, to all that have an account, is no leave to everybody.
bool Is_Open_To_All(const std::filesystem::path& path)
{
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR about = nullptr;
    std::wstring name = Long_Path(path);
    if (::GetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list,
                                nullptr, &about) != ERROR_SUCCESS)
        return false;
    bool open = list == nullptr; // no list at all: everybody may do everything
    for (DWORD i = 0; list != nullptr && !open && i < list->AceCount; ++i)
        open = Lets_Everybody_Write(list, i);
    ::LocalFree(about);
    return open;
}

} // namespace orvel
