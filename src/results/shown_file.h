#pragma once

#include "core/session.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

// Files as a window shows them: bytes of Windows-1252, lines end in CR LF.

constexpr std::size_t Largest_Shown_File = 32767;

// The text of a file. Of a larger one only the first part, and the user is told. Nothing: it cannot be read, and the user has been told.
std::optional<std::string> Shown_File(const Session& session, const std::filesystem::path& file);

// The same without a limit.
std::optional<std::string> Shown_Whole(const Session& session, const std::filesystem::path& file);

// The whole echo of the input of a run. Nothing: it cannot be read, and the user has been told.
std::optional<std::string> Shown_Echo(const Session& session, const std::filesystem::path& run_directory);
