#include "core/system/user_directories.h"

#include "core/system/handle_windows.h"

#include <cstdlib>
#include <shlobj.h>

namespace orvel {

namespace {

std::filesystem::path Known_Directory(REFKNOWNFOLDERID kind)
{
    PWSTR found = nullptr;
    std::filesystem::path path;
    if (::SHGetKnownFolderPath(kind, KF_FLAG_DEFAULT, nullptr, &found) == S_OK)
        path = found;
    ::CoTaskMemFree(found);
    return path;
}

} // namespace

std::filesystem::path User_Directory()
{
    return Known_Directory(FOLDERID_Profile);
}

std::filesystem::path User_State_Directory()
{
    if (const wchar_t* named = ::_wgetenv(L"XDG_STATE_HOME"); named != nullptr && *named != L'\0')
        return std::filesystem::path(named) / "orvelsuite";
    const auto local = Known_Directory(FOLDERID_LocalAppData);
    return local.empty() ? local : local / "orvelsuite";
}

} // namespace orvel
