#pragma once

#include "core/error.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// No document comes near this size; a larger file is none.
constexpr std::size_t Largest_Document = 64U << 20U;

// The path of a name in the bytes of Windows-1252, in the system's own encoding, and back; nothing where the code page
// lacks a character.
std::filesystem::path Path_Of(std::string_view name);
std::optional<std::string> Name_Of(const std::filesystem::path& path);

// The entry of a directory whose name equals `name` without regard to case: the exact name if it is there, else the
// first in order.
std::optional<std::filesystem::path> Find_File(const std::filesystem::path& directory,
                                               const std::filesystem::path& name);

// The same, or `directory / name` where nothing is found: the path to complain about, or to create.
std::filesystem::path Found_Or_New(const std::filesystem::path& directory, const std::filesystem::path& name);

// The names of the files (or of the directories) that match a mask with * and ?, sorted; neither looks at the case of A
// to Z. An unreadable directory gives none.
std::vector<std::string> List_Files(const std::filesystem::path& directory, std::string_view mask);
std::vector<std::string> List_Directories(const std::filesystem::path& directory, std::string_view mask);
bool Matches(std::string_view name, std::string_view mask);

// The bytes of a file. Throws File_Error with the file's name if it cannot be read or is larger than `most`.
std::string Read_Whole(const std::filesystem::path& file, std::size_t most = Largest_Document);

// The bytes of a directory's file, its name found without regard to case; empty where it is missing or cannot be read.
std::string Read_If_There(const std::filesystem::path& directory, const std::filesystem::path& name);

// The first or the last bytes of a file; empty where it cannot be read.
std::string Read_Head(const std::filesystem::path& file, std::size_t most);
std::string Read_Tail(const std::filesystem::path& file, std::size_t most);

// Writes a file whole: beside the target, flushed to disk, then renamed over it, the target's mode kept. A target
// without write permission bits is refused, for root too. Throws File_Error; then the old file is as it was and nothing
// is left beside it.
void Write_Whole(const std::filesystem::path& file, std::string_view bytes);

// Copies a file whole in the same manner, its permission bits with it but always writable for its owner.
void Copy_Whole(const std::filesystem::path& from, const std::filesystem::path& to);

// A new directory whose name is this one with six letters behind it; nothing if none can be made.
std::optional<std::filesystem::path> Make_Unique_Directory(const std::filesystem::path& begin);

// The read-only attribute of this system: a file is read-only when it has no write permission bit at all.
bool Is_Read_Only(const std::filesystem::path& file);
void Set_Read_Only(const std::filesystem::path& file, bool read_only); // throws File_Error

} // namespace orvel
