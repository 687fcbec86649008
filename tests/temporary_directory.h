#pragma once

#include "core/files.h"

#include <filesystem>
#include <stdexcept>

namespace orvel {

// A directory of a test's own, removed with everything in it.
class Temporary_Directory {
public:
    Temporary_Directory()
    {
        const auto made = Make_Unique_Directory(std::filesystem::temp_directory_path() / "orvel.");
        if (!made)
            throw std::runtime_error("no temporary directory");
        Directory = *made;
    }
    Temporary_Directory(const Temporary_Directory&) = delete;
    Temporary_Directory& operator=(const Temporary_Directory&) = delete;
    ~Temporary_Directory()
    {
        std::error_code ignored;
        std::filesystem::remove_all(Directory, ignored);
    }
    const std::filesystem::path& Path() const { return Directory; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return Directory / name; }

private:
    std::filesystem::path Directory;
};

} // namespace orvel
