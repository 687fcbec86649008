// What all sources for Windows use: see handle_windows.h.
#include "core/system/handle_windows.h"

namespace orvel {

namespace fs = std::filesystem;
using namespace std::string_literals;

namespace {

constexpr std::size_t Short_Enough = 240; // a name of eight and three still fits behind a directory

bool Is_Taken_As_It_Is(const fs::path& path)
{
    if (path.native().starts_with(LR"(\\?\)") || path.native().starts_with(LR"(\\.\)"))
        return true; // already as the system takes it
    const std::size_t before = path.is_absolute() ? 0 : ::GetCurrentDirectoryW(0, nullptr);
    return before + path.native().size() < Short_Enough;
}

} // namespace

std::wstring Long_Path(const fs::path& path)
{
    if (Is_Taken_As_It_Is(path))
        return path.wstring();
    std::error_code error;
    fs::path whole = path.is_absolute() ? path : fs::absolute(path, error);
    std::wstring text = error ? path.wstring() : whole.lexically_normal().make_preferred().wstring();
    if (text.size() < Short_Enough)
        return path.wstring();
    return text.starts_with(LR"(\\)") ? LR"(\\?\UNC\)" + text.substr(2) : LR"(\\?\)" + text;
}

std::wstring Short_Path(const fs::path& path)
{
    const std::wstring text = Long_Path(path);
    constexpr std::size_t Prefix = 4; // of a long name
    if (text == path.wstring())
        return text;
    std::wstring brief(text.size() + 1, L'\0');
    brief.resize(::GetShortPathNameW(text.c_str(), brief.data(), static_cast<DWORD>(brief.size())));
    if (brief.starts_with(LR"(\\?\UNC\)"))
        return LR"(\\)" + brief.substr(LR"(\\?\UNC\)"s.size());
    return brief.size() <= Prefix ? path.wstring() : brief.substr(Prefix);
}

std::string To_Utf8_Text(std::wstring_view text)
{
    const auto length = static_cast<int>(text.size());
    std::string bytes(
        static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
        '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                          nullptr);
    return bytes;
}

std::wstring From_Utf8_Text(std::string_view text)
{
    const auto length = static_cast<int>(text.size());
    std::wstring wide(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0)),
                      L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

Held_Handle Open_Shared(const fs::path& path, DWORD access, DWORD disposition, DWORD flags, bool inherited)
{
    SECURITY_ATTRIBUTES security{.nLength = sizeof security, .bInheritHandle = inherited ? TRUE : FALSE};
    return Held_Handle(::CreateFileW(Long_Path(path).c_str(), access,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &security, disposition,
                                     flags, nullptr));
}

} // namespace orvel
