#pragma once

#include "core/session.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace orvel {

// Files as a window shows them: bytes of Windows-1252, lines end in CR LF.

constexpr std::size_t Largest_Shown_File = 32767;

// The text of a file. Only the first part of a very large one, and the user is told. Nothing: it cannot be read, and
// the user has been told.
std::optional<std::string> Shown_File(const Session& session, const std::filesystem::path& file);

// The same without a limit.
std::optional<std::string> Shown_Whole(const Session& session, const std::filesystem::path& file);

// The whole echo of the input of a run. Nothing: it cannot be read, and the user has been told.
std::optional<std::string> Shown_Echo(const Session& session, const std::filesystem::path& run_directory);

// Whether a shown text is that of the whole file, line ends aside: only then may an edited text replace the file.
// Throws File_Error for a file that cannot be read.
bool Is_Shown_As_It_Is(std::string_view text, const std::filesystem::path& file);

// Writes a text that was edited in a window, lines ending in CR LF, the last one too. A file that has changed since it
// was shown is replaced only if the user agrees. False: nothing was written, and the user has been told or asked.
bool Save_Shown(const Session& session, const std::filesystem::path& file, std::string_view was_shown,
                std::string_view edited);

// The same to another file; the dialog has already asked before replacing one.
bool Save_Shown_As(const Session& session, const std::filesystem::path& file, std::string_view edited);

// Asks before an edited text is discarded; true: the window may close.
bool May_Give_Up_Text(const Session& session);

} // namespace orvel
