#pragma once

#include "core/system/handle_windows.h"

#include <optional>

namespace orvel {

// The system's own locks of files hold neither for directories nor in a program that inherits them. So a lock is an
// object of the kernel, named by what is locked: it is there as long as a process holds a handle to it.

// The name of the lock of an open file or directory, without an end for its kind.
std::wstring Lock_Name(HANDLE file);

// The end of the name of the job object of the programs that were given the lock of a directory.
constexpr const wchar_t* Group_End = L"-group";

enum class Lock_Kind { Alone, Shared };

// The handle that holds the lock; null if another has it.
Held_Handle Hold_Lock(const std::wstring& name, Lock_Kind kind, bool inherited);

bool Is_Held_Alone(const std::wstring& name);

} // namespace orvel
