#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvel {

// The SHA-256 of bytes, as 64 lower-case hexadecimal digits.
std::string Sha256(std::string_view bytes);

// The same for a file of any size. Throws File_Error if it cannot be read.
std::string Sha256_Of_File(const std::filesystem::path& file);

} // namespace orvel
