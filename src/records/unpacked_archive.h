#pragma once

#include "core/progress.h"
#include "output/recorded_file.h"

#include <filesystem>
#include <functional>

namespace orvel {

class Archive_Reader;

// A directory of its own among the temporary files, removed with everything in it.
class Temporary_Place {
public:
    Temporary_Place(); // throws File_Error
    Temporary_Place(const Temporary_Place&) = delete;
    Temporary_Place& operator=(const Temporary_Place&) = delete;
    ~Temporary_Place();

    const std::filesystem::path& Path() const { return Directory; }

private:
    std::filesystem::path Directory;
};

// What an archive holds of an installation, laid out in a temporary directory: all files, or those that are wanted.
// Throws as Lay_Out_Files (restore.h) does.
class Unpacked_Archive {
public:
    explicit Unpacked_Archive(const std::filesystem::path& archive, const Progress& progress = {});
    Unpacked_Archive(Archive_Reader& archive, const std::function<bool(const Recorded_File&)>& is_wanted,
                     const Progress& progress = {});

    const std::filesystem::path& Path() const { return Place.Path(); }

private:
    Temporary_Place Place;
};

} // namespace orvel
