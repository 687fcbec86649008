#include "records/restore.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/run_name.h"
#include "core/sha256.h"
#include "core/system/lock.h"
#include "core/write_from.h"
#include "output/run_files.h"
#include "output/run_outputs.h"
#include "records/archive_reader.h"
#include "runs/mode.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>

namespace orvel {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Fail(const std::string& what, const fs::path& path, const std::error_code& error)
{
    File_Error failure(what + " " + path.string() + ": " + error.message() + ".");
    failure.Code = error;
    throw failure;
}

bool Is_Installation(const fs::path& directory)
{
    const auto kinds = {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4};
    std::error_code ignored;
    return !List_Files(directory, "orvel*.exe").empty() || std::ranges::any_of(kinds, [&](Mode_Kind kind) {
        return fs::is_directory(Found_Or_New(directory, Mode_Of(kind).Directory), ignored);
    });
}

void Check_Directory(const fs::path& directory)
{
    std::error_code error;
    const auto type = fs::status(directory, error).type();
    if (type == fs::file_type::not_found)
        return;
    if (error)
        Fail("Cannot read", directory, error);
    if (type != fs::file_type::directory)
        throw File_Error(directory.string() + " is no directory.");
    const bool empty = fs::is_empty(directory, error);
    if (error)
        Fail("Cannot read the directory", directory, error);
    if (!empty && !Is_Installation(directory))
        throw File_Error("The directory " + directory.string() +
                         " is neither empty nor an installation: nothing is laid out there.");
}

// Where a file is laid out. No level below the directory may be a link, which leads elsewhere.
fs::path Place_Of(const fs::path& directory, const Recorded_File& file)
{
    fs::path place = directory / Path_Of(file.Name);
    Check_Names(place);
    fs::path level = directory;
    for (const auto& part : place.lexically_relative(directory)) {
        level /= part;
        std::error_code ignored;
        if (fs::symlink_status(level, ignored).type() == fs::file_type::symlink)
            throw File_Error("The directory or file " + level.string() +
                             " is a link, which leads elsewhere: nothing is laid out there.");
    }
    return place;
}

// Whether the same file is there already. Throws File_Error if another one is.
bool Is_There_Already(const fs::path& place, const Recorded_File& file)
{
    std::error_code error;
    const auto type = fs::symlink_status(place, error).type();
    if (type == fs::file_type::not_found)
        return false;
    if (type == fs::file_type::none)
        Fail("Cannot read", place, error);
    if (type == fs::file_type::regular && Digest_Of_File(place).Sha256 == file.Sha256)
        return true;
    throw File_Error(place.string() + " is there already and is not the one of the archive: nothing was laid out.");
}

// Makes the missing levels of a directory and adds them to `made`.
void Make_Directories(const fs::path& directory, std::vector<fs::path>& made)
{
    std::error_code error;
    if (fs::is_directory(directory, error))
        return;
    if (directory.has_parent_path() && directory != directory.parent_path())
        Make_Directories(directory.parent_path(), made);
    if (fs::create_directory(directory, error))
        made.push_back(directory);
    if (error)
        Fail("Cannot make the directory", directory, error);
}

// Files and directories that were made, taken away again unless they are kept.
class Made_So_Far {
public:
    Made_So_Far() = default;
    Made_So_Far(const Made_So_Far&) = delete;
    Made_So_Far& operator=(const Made_So_Far&) = delete;
    ~Made_So_Far()
    {
        std::error_code ignored;
        if (Is_Kept)
            return;
        for (auto file = Files.rbegin(); file != Files.rend(); ++file)
            fs::remove(*file, ignored);
        for (auto directory = Directories.rbegin(); directory != Directories.rend(); ++directory)
            fs::remove(*directory, ignored);
    }

    std::vector<fs::path> Keep()
    {
        Is_Kept = true;
        return Files;
    }

    std::vector<fs::path> Files, Directories;

private:
    bool Is_Kept = false;
};

// A run that is laid out is not to be started or cleaned away meanwhile.
std::optional<Lock> Lock_Of_Run(const fs::path& directory)
{
    if (!Is_Run_Level(directory.filename().string()))
        return std::nullopt;
    auto lock = Lock::Take(directory);
    if (!lock)
        throw File_Error("The simulation in " + directory.string() + " is at work: nothing is laid out there.");
    return lock;
}

bool Is_Record(const Recorded_File& file)
{
    return Path_Of(file.Name).filename() == Run_Record_Name;
}

void Check_Space(const fs::path& directory, std::uint64_t needed)
{
    fs::path place = directory;
    std::error_code error;
    while (!fs::exists(place, error) && place.has_parent_path() && place != place.parent_path())
        place = place.parent_path();
    const auto space = fs::space(place, error);
    if (!error && space.available < needed)
        throw File_Error("There is not enough space on the disk of " + directory.string() + " for the archive.");
}

// Reports the share of the bytes of a pass over the archive.
class Pass {
public:
    Pass(const Archive_Manifest& manifest, const Progress& progress, double begin, double share)
        : Report(progress),
          Begin(begin),
          Share(share)
    {
        for (const auto& file : manifest.Files)
            Total += static_cast<double>(file.Size);
    }

    void Tell(const std::string& name, std::size_t read)
    {
        Done += static_cast<double>(read);
        if (Report && !Report(name, Begin + Share * Done / std::max(Total, 1.0)))
            throw Reading_Stopped();
    }

private:
    const Progress& Report;
    double Begin, Share, Total = 0, Done = 0;
};

void Verify_Bytes(Archive_Reader& archive, const Progress& progress)
{
    const auto& files = archive.Manifest().Files;
    Pass pass(archive.Manifest(), progress, 0, 0.5);
    for (std::size_t i = 0; i < files.size(); ++i)
        archive.Read(i, [&](std::string_view block) { pass.Tell(To_Utf8(files[i].Name), block.size()); });
}

// The list shows the time of a run's directory, and no stored table may seem older than its run.
void Set_Times(const fs::path& run)
{
    const auto record = Read_Run_Record(run);
    if (!record || record->End == 0)
        return;
    const auto end = fs::file_time_type::clock::from_sys(std::chrono::sys_seconds(std::chrono::seconds(record->End)));
    std::error_code ignored;
    for (const auto& name : List_Files(run, "*"))
        fs::last_write_time(run / name, end, ignored);
    fs::last_write_time(run, end, ignored);
}

} // namespace

bool Restored_Assessment::Is_Ok() const
{
    return std::ranges::all_of(Runs, [](const Restored_Run& run) { return run.Verified.Result == Check::Ok; });
}

std::string Restored_Lines(const Restored_Assessment& restored)
{
    std::string lines;
    for (const auto& run : restored.Runs)
        lines += Verified_Line(run.Verified, run.Directory);
    return lines;
}

std::vector<fs::path> Lay_Out_Files(Archive_Reader& archive, const fs::path& directory,
                                    const std::function<bool(const Recorded_File&)>& is_wanted,
                                    const Progress& progress)
{
    const auto& files = archive.Manifest().Files;
    Made_So_Far made;
    Pass pass(archive.Manifest(), progress, 0.5, 0.5);
    for (const bool records : {false, true}) {
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (Is_Record(files[i]) != records || !is_wanted(files[i]))
                continue;
            const fs::path place = Place_Of(directory, files[i]);
            Make_Directories(place.parent_path(), made.Directories);
            const auto lock = Lock_Of_Run(place.parent_path());
            if (Is_There_Already(place, files[i]))
                continue;
            Write_Whole_From(place, [&](File_Handle& to) {
                archive.Read(i, [&](std::string_view block) {
                    pass.Tell(To_Utf8(files[i].Name), block.size());
                    if (const auto error = to.Write(block))
                        Fail("Cannot write", place, error);
                });
            });
            made.Files.push_back(place);
        }
    }
    return made.Keep();
}

Restored_Assessment Restore(const fs::path& archive, const fs::path& given, const Progress& progress)
{
    const fs::path absolute = fs::absolute(given).lexically_normal();
    const fs::path directory = absolute.has_filename() ? absolute : absolute.parent_path();
    Archive_Reader reader(archive);
    Check_Directory(directory);
    std::uint64_t needed = 0;
    Restored_Assessment restored;
    for (const auto& file : reader.Manifest().Files) {
        if (Is_There_Already(Place_Of(directory, file), file))
            ++restored.Kept;
        else
            needed += file.Size;
    }
    Check_Space(directory, needed);
    Verify_Bytes(reader, progress);
    restored.Written = Lay_Out_Files(
                           reader, directory, [](const Recorded_File&) { return true; }, progress)
                           .size();
    Verifier verifier(directory);
    for (const auto& run : reader.Manifest().Runs) {
        const fs::path place = directory / Path_Of(run.Directory);
        Set_Times(place);
        restored.Runs.push_back({place, verifier.Verify(place)});
    }
    return restored;
}

} // namespace orvel
