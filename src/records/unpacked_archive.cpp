#include "records/unpacked_archive.h"

#include "core/error.h"
#include "core/files.h"
#include "records/archive_reader.h"
#include "records/restore.h"

namespace orvel {

namespace fs = std::filesystem;

Temporary_Place::Temporary_Place()
{
    std::error_code error;
    const fs::path begin = fs::temp_directory_path(error) / "orvel-";
    const auto made = error ? std::nullopt : Make_Unique_Directory(begin);
    if (!made)
        throw File_Error("No directory for temporary files can be made: " + begin.string() + "...");
    Directory = *made;
    fs::permissions(Directory, fs::perms::owner_all, error);
}

Temporary_Place::~Temporary_Place()
{
    std::error_code ignored;
    fs::remove_all(Directory, ignored);
}

Unpacked_Archive::Unpacked_Archive(const fs::path& archive, const Progress& progress)
{
    Archive_Reader reader(archive);
    Lay_Out_Files(
        reader, Path(), [](const Recorded_File&) { return true; }, progress);
}

Unpacked_Archive::Unpacked_Archive(Archive_Reader& archive, const std::function<bool(const Recorded_File&)>& is_wanted,
                                   const Progress& progress)
{
    Lay_Out_Files(archive, Path(), is_wanted, progress);
}

} // namespace orvel
