#include "installation/lay_out.h"

#include "core/files.h"
#include "core/system/file_handle.h"
#include "core/system/flush.h"
#include "core/system/lock.h"
#include "core/system/rename.h"
#include "core/version.h"
#include "installation/installation_files.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::array<const char*, 3> Utilities = {"wyear.exe", "wmonth.exe", "wday.exe"};
constexpr const char* Staging = ".orvel-init"; // within the new installation, until it is complete

// The file in the first directory that has it, ignoring case.
std::optional<fs::path> Find_Part(const std::vector<fs::path>& parts, std::string_view name)
{
    for (const auto& directory : parts) {
        auto found = Find_File(directory, name);
        if (found && fs::is_regular_file(*found))
            return found;
    }
    return std::nullopt;
}

} // namespace

// Its files are there, and the engine, which is moved up last, is not.
bool Is_Unfinished(const fs::path& directory)
{
    std::error_code unreadable; // which the first file that is read will tell
    return fs::exists(directory / Staging, unreadable) && !fs::exists(directory / Engine_File_Name, unreadable);
}

namespace {

// What an installation has in its directory.
std::set<fs::path> Names_Of_Installation()
{
    std::set<fs::path> names(Utilities.begin(), Utilities.end());
    names.insert(Staging);
    Make_Data_Files([&](const std::string& path, std::string_view) { names.insert(*fs::path(path).begin()); });
    return names;
}

// Whether nothing is there but the remains of an attempt that was killed.
bool Is_Free(const fs::path& directory)
{
    if (fs::is_empty(directory))
        return true;
    if (!Is_Unfinished(directory))
        return false;
    const auto names = Names_Of_Installation();
    return std::ranges::all_of(fs::directory_iterator(directory),
                               [&](const auto& entry) { return names.contains(entry.path().filename()); });
}

void Write_New(const fs::path& file, std::string_view bytes)
{
    fs::create_directories(file.parent_path());
    std::error_code error;
    File_Handle out(file, File_Handle::Use::Write, error);
    if (!error)
        error = out.Write(bytes);
    if (!error)
        error = out.Close();
    if (error)
        throw File_Error("Cannot write " + file.string() + ": " + error.message() + ".");
}

// The directory that becomes an installation. Unless Keep is called, the destructor removes everything again: its
// contents, the directory itself, and the parents created for it.
class New_Directory {
public:
    explicit New_Directory(const fs::path& directory) : Path(directory)
    {
        for (fs::path missing = directory; !missing.empty() && !fs::exists(missing); missing = missing.parent_path())
            Made.push_back(missing);
        fs::create_directories(directory);
    }
    New_Directory(const New_Directory&) = delete;
    New_Directory& operator=(const New_Directory&) = delete;
    ~New_Directory()
    {
        if (Kept)
            return;
        std::error_code ignored;
        if (Emptied) {
            for (const auto& entry : fs::directory_iterator(Path, ignored))
                fs::remove_all(entry.path(), ignored);
        }
        for (const auto& made : Made)
            fs::remove(made, ignored);
    }
    void Own() { Emptied = true; }
    void Keep() { Kept = true; }

private:
    fs::path Path;
    std::vector<fs::path> Made; // innermost first
    bool Emptied = false, Kept = false;
};

void Fill(const fs::path& staging, const fs::path& engine, const std::vector<fs::path>& parts)
{
    Make_Installation_Files([&](const std::string& path, std::string_view bytes) { Write_New(staging / path, bytes); });
    for (const auto* const name : Utilities) {
        if (const auto found = Find_Part(parts, name))
            Copy_Whole(*found, staging / name);
    }
    Copy_Whole(engine, staging / Engine_File_Name);
}

void Move_Into(const fs::path& from, const fs::path& to, const fs::path& name)
{
    if (const auto error = Rename(from / name, to / name))
        throw fs::filesystem_error("Cannot move", from / name, to / name, error);
}

// The engine is moved last: a directory without one is not an installation.
void Move_Up(const fs::path& staging, const fs::path& directory)
{
    std::vector<fs::path> names;
    for (const auto& entry : fs::directory_iterator(staging))
        names.push_back(entry.path().filename());
    for (const auto& name : names) {
        if (name == Engine_File_Name)
            continue;
        fs::remove_all(directory / name); // moved up by an attempt that was killed
        Move_Into(staging, directory, name);
    }
    Move_Into(staging, directory, Engine_File_Name);
    fs::remove(staging);
    Flush_Directory(directory);
}

void Lay_Out(const fs::path& directory, const std::vector<fs::path>& parts)
{
    const auto engine = Find_Part(parts, Engine_File_Name);
    if (!engine)
        throw File_Error("The engine " + std::string(Engine_File_Name) +
                         " does not stand beside this program, so that no installation can be laid out.");
    Check_Names(directory);
    if (fs::exists(directory) && !fs::is_directory(directory))
        throw File_Error(directory.string() + " is no directory.");

    New_Directory made(directory);
    const auto lock = Lock::Take(directory);
    if (!lock)
        throw File_Error("The directory " + directory.string() + " is in use by another program.");
    if (!Is_Free(directory))
        throw File_Error("The directory " + directory.string() + " is not empty.");
    made.Own();
    fs::remove_all(directory / Staging);
    Fill(directory / Staging, *engine, parts);
    if (const auto error = Flush_File_System(directory))
        throw File_Error("Cannot write " + directory.string() + ": " + error.message() + ".");
    Move_Up(directory / Staging, directory);
    made.Keep();
}

} // namespace

void Lay_Out_Installation(const fs::path& directory, const std::vector<fs::path>& parts)
try {
    const fs::path path = fs::absolute(directory).lexically_normal();
    Lay_Out(path.has_filename() ? path : path.parent_path(), parts);
} catch (const fs::filesystem_error& error) {
    throw File_Error("Cannot lay out " + directory.string() + ": " + error.code().message() + ".");
}

void Refuse_Unfinished(const fs::path& directory)
{
    if (Is_Unfinished(directory))
        throw File_Error("The installation in " + directory.string() +
                         " is not complete. Please lay it out again: orvelctl init " + directory.string());
}

std::vector<fs::path> Parts_Beside(const fs::path& program)
{
    const fs::path directory = program.parent_path();
    const fs::path prefix = directory.parent_path();
    return {directory, prefix / "libexec" / "orvelsuite", prefix / "share" / "orvelsuite"};
}

} // namespace orvel
