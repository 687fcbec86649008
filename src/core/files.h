#pragma once

#include "core/error.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// In bytes. No document comes near this size; a larger file is not a document.
constexpr std::size_t Largest_Document = 64U << 20U;

// The path, in the system's own encoding, of a name in bytes of Windows-1252, and back; nothing if the code page lacks
// a character.
std::filesystem::path Path_Of(std::string_view name);
std::optional<std::string> Name_Of(const std::filesystem::path& path);

// The entry of a directory whose name equals `name` without regard to case: the exact name if it is there, else the
// first in order. Throws File_Error for a directory that cannot be searched.
std::optional<std::filesystem::path> Find_File(const std::filesystem::path& directory,
                                               const std::filesystem::path& name);

// The same, or `directory / name` if nothing is found: the path to report as missing, or to create.
std::filesystem::path Found_Or_New(const std::filesystem::path& directory, const std::filesystem::path& name);

// The names of the files (or of the directories) that match a mask with * and ?, sorted; the case of A to Z is ignored
// in both. A directory that is not there has none; one that cannot be read throws File_Error.
std::vector<std::string> List_Files(const std::filesystem::path& directory, std::string_view mask);
std::vector<std::string> List_Directories(const std::filesystem::path& directory, std::string_view mask);
bool Matches(std::string_view name, std::string_view mask);

// The bytes of a file. Throws File_Error with the file's name if it cannot be read or is larger than `most`.
// A link within its directory is followed; a pipe, a device and a link that leads elsewhere are refused.
std::string Read_Whole(const std::filesystem::path& file, std::size_t most = Largest_Document);

// The bytes of a directory's file, its name found without regard to case; empty if it is missing. Throws File_Error.
std::string Read_If_There(const std::filesystem::path& directory, const std::filesystem::path& name);

// The first or the last `most` bytes of a file; empty if it is missing. Throw File_Error.
std::string Read_Head(const std::filesystem::path& file, std::size_t most);
std::string Read_Tail(const std::filesystem::path& file, std::size_t most);

// Writes a file whole: beside the target, flushed to disk, then renamed over it, the target's mode and, if this process
// may give files away, its owner kept. A target without write permission bits is refused, even for root, and so is
// anything but an ordinary file. Throws File_Error; the old file is then unchanged and nothing is left beside it. What
// earlier writers that were killed have left in the directory is removed.
void Write_Whole(const std::filesystem::path& file, std::string_view bytes);

// Throws File_Error, with a sentence that tells why, if this system cannot give every part of a path its name.
void Check_Names(const std::filesystem::path& path);

// Copies a file in the same manner, with its permission bits but always writable by its owner.
void Copy_Whole(const std::filesystem::path& from, const std::filesystem::path& to);

// Makes a directory whose name is `begin` with six random letters appended; nothing if none can be made.
std::optional<std::filesystem::path> Make_Unique_Directory(const std::filesystem::path& begin);

// The read-only attribute of this system: a file is read-only when it has no write permission bit at all.
bool Is_Read_Only(const std::filesystem::path& file);
void Set_Read_Only(const std::filesystem::path& file, bool read_only); // throws File_Error

} // namespace orvel
