// Where an installation lies: its directories, the disk, the locks and the names of its files.
#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/system/file_handle.h"
#include "core/system/lock.h"
#include "core/system/network_file_system.h"
#include "desktop/doctor_checks.h"
#include "documents/unsaved_copy.h"
#include "runs/mode.h"
#include "runs/run_place.h"

#include <algorithm>
#include <optional>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* Directories = "directories";
constexpr const char* Space = "free space";
constexpr const char* Locks = "locks";
constexpr const char* Names = "file names";
constexpr const char* Unsaved = "unsaved changes";

// A file of its own in a directory, removed at the end.
class Trial_File {
public:
    Trial_File(const fs::path& directory, const std::string& name) : File(directory / name)
    {
        std::error_code ignored;
        fs::remove(File, ignored); // of a look that was killed
        File_Handle handle(File, File_Handle::Use::Write_New, Error);
        if (!Error)
            Error = handle.Write("This is a trial.\n");
        if (!Error)
            Error = handle.Close();
    }
    Trial_File(const Trial_File&) = delete;
    Trial_File& operator=(const Trial_File&) = delete;
    ~Trial_File()
    {
        std::error_code ignored;
        fs::remove(File, ignored);
    }

    fs::path File;
    std::error_code Error; // why it cannot be written
};

constexpr const char* Trial_Name = ".orvel-trial";

Finding Directory_Finding(const fs::path& directory)
{
    const std::string name = directory.string();
    const Trial_File trial(directory, Trial_Name);
    if (trial.Error)
        return {Directories, Health::Fault, "Nothing can be written in " + name + ": " + trial.Error.message() + ".",
                "Get the right to write there, or use an installation in a directory of your own."};
    try {
        Check_Not_Open_To_All(directory);
    } catch (const File_Error& error) {
        return {Directories, Health::Fault, error.what(), "Take that right away: chmod o-w " + name};
    }
    return {Directories, Health::Good, name + " can be read and written.", ""};
}

// Whether a lock on a file or directory keeps others out, and lets them in when it is dropped. Each look opens the path
// anew, as another program does.
bool Lock_Works(const fs::path& path)
{
    std::optional<Lock> held = Lock::Take(path);
    if (!held || !Is_Locked(path) || Lock::Take(path))
        return false;
    held.reset();
    return !Is_Locked(path);
}

Finding Lock_Finding(const fs::path& directory)
{
    constexpr const char* Remedy = "Mount it with locks (NFS version 3 needs lockd and statd on both sides), or move "
                                   "the installation to a disk of this computer.";
    const std::string name = directory.string();
    try {
        const auto place = Make_Unique_Directory(directory / Trial_Name);
        if (!place)
            return {Locks, Health::Fault, "No lock can be tried in " + name + ": nothing can be written there.",
                    Remedy};
        bool works = false;
        {
            const Trial_File trial(*place, Trial_Name);
            works = Lock_Works(trial.File) && Lock_Works(*place);
        }
        std::error_code ignored;
        fs::remove(*place, ignored);
        if (!works)
            return {Locks, Health::Fault,
                    "Locks have no effect in " + name + ": two programs would write the same results.", Remedy};
    } catch (const File_Error& error) {
        return {Locks, Health::Fault, "Locks do not work in " + name + ". " + error.what(), Remedy};
    }
    const std::string shared = Network_File_System(directory);
    if (!shared.empty())
        return {Locks, Health::Warning,
                "Locks work in " + name + " on this computer; whether others see them, its " + shared +
                    " server must be asked.",
                "Use the installation from one computer at a time unless the file system passes locks on."};
    return {Locks, Health::Good, "Locks work in " + name + ".", ""};
}

} // namespace

Findings Examine_Directories(const Program_State& program)
{
    Findings findings;
    for (const auto& directory : Directories_Of(program))
        findings.push_back(Directory_Finding(directory));
    for (const auto kind : {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4}) {
        const fs::path directory = Mode_Directory(program, Mode_Of(kind));
        std::error_code ignored;
        if (fs::is_directory(directory, ignored))
            continue;
        const bool is_needed = kind == Mode_Kind::Focus;
        findings.push_back({Directories, is_needed ? Health::Fault : Health::Warning,
                            directory.string() + " is no directory.",
                            is_needed ? "Choose an installation, or make one: orvelctl init DIR"
                                      : "Without it this kind of run is not offered."});
    }
    return findings;
}

Finding Judge_Space(const std::string& directory, std::uintmax_t available)
{
    constexpr std::uintmax_t Megabyte = 1'000'000, Least = 200 * Megabyte, Enough = 2000 * Megabyte;
    const std::string found =
        std::to_string(available / Megabyte) + " MB are free in " + directory + ", where a run writes 1 to 100 MB.";
    if (available >= Enough)
        return {Space, Health::Good, found, ""};
    return {Space, available < Least ? Health::Fault : Health::Warning, found,
            "Delete what is not needed, such as the directories .bin of deleted runs, or move the installation."};
}

Findings Examine_Space(const Program_State& program)
{
    Findings findings;
    std::error_code error;
    const fs::path temporary = fs::temp_directory_path(error);
    if (error)
        return {{Space, Health::Fault, "There is no directory for temporary files: " + error.message() + ".",
                 "Set TMPDIR to a directory that can be written."}};
    if (const auto made = Make_Unique_Directory(temporary / "orvel-"))
        fs::remove(*made);
    else
        findings.push_back({Space, Health::Fault, "No temporary files can be written in " + temporary.string() + ".",
                            "Set TMPDIR to a directory that can be written."});
    for (const auto& directory : {program.App_Path, temporary})
        findings.push_back(Judge_Space(directory.string(), fs::space(directory).available));
    return findings;
}

Findings Examine_Locks(const Program_State& program)
{
    Findings findings;
    for (const auto& directory : Directories_Of(program))
        findings.push_back(Lock_Finding(directory));
    return findings;
}

Findings Examine_Names(const Program_State& program)
{
    std::vector<std::string> unknown;
    Findings findings;
    for (const auto& directory : Directories_Of(program)) {
        for (const auto& entry : fs::directory_iterator(directory)) {
            const fs::path name = entry.path().filename();
            if (!Name_Of(name))
                unknown.push_back(To_Utf8(Path_Text(name)));
        }
    }
    std::ranges::sort(unknown);
    if (!unknown.empty())
        findings.push_back(
            {Names, Health::Warning,
             "Names with characters that Windows-1252 lacks are left out of all lists: " + Some_Of(unknown) + ".",
             "Give these files other names if they are to be used."});
    const std::string name = std::string(Trial_Name) + "-\u00E4\u00D6\u00DF";
    const Trial_File trial(program.App_Path, name);
    const auto kept = [&](const fs::directory_entry& entry) { return entry.path().filename() == name; };
    if (!trial.Error && std::ranges::none_of(fs::directory_iterator(program.App_Path), kept))
        findings.push_back({Names, Health::Fault,
                            "The file system of " + program.App_Path.string() + " changes the names of files.",
                            "Use names of plain letters, or another disk."});
    if (findings.empty())
        findings.push_back(
            {Names, Health::Good, "All names lie within Windows-1252, and umlauts stay as they are.", ""});
    return findings;
}

Findings Examine_Unsaved_Copies(const Program_State&)
{
    constexpr const char* Remedy = "Get the right to write there or make room on its disk, or set XDG_STATE_HOME to a "
                                   "directory of your own; until then save often.";
    const fs::path place = Place_Of_Unsaved_Copies();
    if (place.empty())
        return {
            {Unsaved, Health::Warning, "No copy of unsaved changes can be kept: you have no home directory.", Remedy}};
    fs::path there = place;
    std::error_code error;
    while (!fs::exists(there, error) && !error && there.has_relative_path())
        there = there.parent_path(); // what the first copy will make directories in
    if (!error)
        error = Trial_File(there, Trial_Name).Error;
    if (error)
        return {{Unsaved, Health::Warning,
                 "No copy of unsaved changes can be kept in " + place.string() + ": " + error.message() + ".", Remedy}};
    return {{Unsaved, Health::Good, "Copies of unsaved changes can be kept in " + place.string() + ".", ""}};
}

} // namespace orvel
