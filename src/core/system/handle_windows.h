#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

namespace orvel {

// Why the last system call failed; the category of the library compares its codes with those of std::errc.
inline std::error_code Last_Error()
{
    return {static_cast<int>(::GetLastError()), std::system_category()};
}

// A handle as a number: only 32 bits of it count, and the number of none is -1.
inline int Number_Of(HANDLE handle)
{
    return static_cast<int>(reinterpret_cast<std::intptr_t>(handle));
}

inline HANDLE Handle_Of(int number)
{
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(number));
}

// Closes a handle at the end; none is null.
class Held_Handle {
public:
    explicit Held_Handle(HANDLE handle = nullptr) : Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    Held_Handle(Held_Handle&& other) noexcept : Handle(std::exchange(other.Handle, nullptr)) {}
    Held_Handle& operator=(Held_Handle&& other) noexcept
    {
        std::swap(Handle, other.Handle);
        return *this;
    }
    Held_Handle(const Held_Handle&) = delete;
    Held_Handle& operator=(const Held_Handle&) = delete;
    ~Held_Handle()
    {
        if (Handle != nullptr)
            ::CloseHandle(Handle);
    }
    HANDLE Get() const { return Handle; }
    HANDLE Release() { return std::exchange(Handle, nullptr); }
    explicit operator bool() const { return Handle != nullptr; }

private:
    HANDLE Handle;
};

// A path that may be longer than 260 characters.
std::wstring Long_Path(const std::filesystem::path& path);

// The same place by the short names that the system may have given to what has a long one: a working directory has no
// more than 258 characters. The path itself if it is short, or has no such names.
std::wstring Short_Path(const std::filesystem::path& path);

// Text of the system, UTF-16, as UTF-8 and back.
std::string To_Utf8_Text(std::wstring_view text);
std::wstring From_Utf8_Text(std::string_view text);

// Opens what a path leads to without keeping anybody else from it; a directory too.
Held_Handle Open_Shared(const std::filesystem::path& path, DWORD access, DWORD disposition = OPEN_EXISTING,
                        DWORD flags = FILE_FLAG_BACKUP_SEMANTICS, bool inherited = false);

} // namespace orvel
