// Files by the library's streams alone, for tests of the functions that read and write them.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace orvel {

inline void Put(const std::filesystem::path& file, std::string_view bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

inline std::string Slurp(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// The number of entries of a directory.
inline std::size_t Entries(const std::filesystem::path& directory)
{
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(directory), std::filesystem::directory_iterator()));
}

} // namespace orvel
