#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace orvel {

// A directory of a test's own, removed with everything in it.
class Temporary_Directory {
public:
    Temporary_Directory()
    {
        std::string name = (std::filesystem::temp_directory_path() / "orvel.XXXXXX").string();
        if (!::mkdtemp(name.data()))
            throw std::runtime_error("no temporary directory");
        Directory = name;
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
