#pragma once

#include <compare>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace orvel {

// What tells whether a file is still the one that was read: where it lies on its disk, its size, its last change, and
// when the system last noted a change of any kind, a time that no program can set.
struct File_Identity {
    std::uint64_t Device = 0, Number = 0, Size = 0;
    std::int64_t Seconds = 0, Nanoseconds = 0;
    std::int64_t Noted_Seconds = 0, Noted_Nanoseconds = 0;
    auto operator<=>(const File_Identity&) const = default;
};

// Nothing if the file is not there.
std::optional<File_Identity> Identity_Of(const std::filesystem::path& file);

} // namespace orvel
