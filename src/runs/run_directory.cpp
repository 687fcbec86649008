#include "runs/run_directory.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/run_name.h"
#include "core/system/file_handle.h"
#include "core/system/flush.h"
#include "core/system/lock.h"
#include "core/system/rename.h"
#include "core/system/rights.h"
#include "output/run_outputs.h"
#include "output/run_record.h"
#include "runs/bin.h"
#include "runs/run_place.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Old_Output = 1;
constexpr int Old_Directory = 2;
constexpr int Creating_Directory = 3;
constexpr const char* Aside_Begin = "marked-"; // followed by six letters
// In place of ".run": while it is made, and while the run that it replaces goes to the bin.
constexpr std::string_view Beside_End = ".new", Replacing_End = ".put";

std::string Rights_Text()
{
    return "If you are using Windows NT or Windows 2000, please check whether you have sufficient rights to create or "
           "delete directories.";
}

[[noreturn]] void Refuse_Old_Directory(const fs::path& place)
{
    throw Stage_Error(Old_Directory, "ORVEL could not delete the following directory (previous simulation): \r\n" +
                                         Path_Text(place) +
                                         ".\r\n\r\nPlease Check whether there are still files left in the directory. " +
                                         Rights_Text());
}

[[noreturn]] void Refuse_New_Directory(const fs::path& place)
{
    throw Stage_Error(Creating_Directory, "ORVEL could not create the following directory for the new simulation.\r\n" +
                                              Path_Text(place) + ".\r\n\r\n" + Rights_Text());
}

void Check_Replaceable(const fs::path& place)
{
    std::error_code error;
    if (!fs::exists(place, error))
        return;
    const auto echo = Find_File(place, "echo.orv");
    if (Is_Locked(place) || (echo && Is_Locked(*echo)) || !May_Change_Entries(place))
        Refuse_Old_Output(place);
    for (fs::directory_iterator entry(place, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_directory(ignored))
            Refuse_Old_Directory(place);
    }
    if (error)
        Refuse_Old_Directory(place);
}

// Ends what an attempt killed half-way has left behind; no list shows it, since it does not end in ".run". The run that
// it was replacing comes back from the bin if its place is empty.
void Clear_Leftovers(const fs::path& crop)
{
    std::error_code ignored;
    const fs::path mode_directory = crop.parent_path().parent_path();
    for (const auto& name : List_Directories(crop, "*" + std::string(Replacing_End))) {
        const fs::path place = (crop / name).replace_extension(".run");
        const auto binned = fs::exists(place, ignored) ? std::vector<Binned_Run>() : Runs_In_Bin(mode_directory);
        const auto last = std::ranges::find(binned, place.lexically_relative(mode_directory), &Binned_Run::Run);
        if (last != binned.end())
            Put_Back(mode_directory, *last);
        fs::remove_all(crop / name, ignored);
    }
    for (const auto& mask : {"*" + std::string(Beside_End), std::string(Aside_Begin) + "??????"}) {
        for (const auto& name : List_Directories(crop, mask))
            fs::remove_all(crop / name, ignored);
    }
}

// The copy is flushed later, together with all others.
void Copy(const fs::path& from, const fs::path& to)
{
    const std::string bytes = Read_Whole(from);
    std::error_code error;
    const fs::perms rights = fs::status(from, error).permissions() & fs::perms::all;
    File_Handle copy(to, File_Handle::Use::Write_New, error, rights | fs::perms::owner_write);
    if (!error)
        error = copy.Write(bytes);
    if (error)
        throw File_Error("Cannot copy " + from.string() + ": " + error.message() + ".");
}

} // namespace

void Refuse_Old_Output(const fs::path& place)
{
    throw Stage_Error(Old_Output,
                      "ORVEL could not delete the output files of the following (previous) simulation: \r\n" +
                          Path_Text(place) +
                          ".\r\n\r\n"
                          "You are eventually running a ORVEL-Simulation using this combination. "
                          "Please wait until the current simulation has finished.\r\n"
                          "If you are not running a ORVEL simulation, please check whether you opened any ORVEL output "
                          "files (extension ORV.)"
                          "\r\n\r\n");
}

Run_Sources Sources_Of_Run(const Program_State& program, const Mode& mode, const Run_Choice& choice)
{
    const fs::path& installation = program.App_Path;
    const fs::path directory = Mode_Directory(program, mode);
    const std::string last = mode.Last_Copy.empty() ? choice.Scenario : std::string(mode.Last_Copy);
    return {.Pesticide = Found_Or_New(installation, Path_Of(choice.Pesticide)),
            .Engine = Found_Or_New(installation, Path_Of(program.Engine_Exe)),
            .Haude = Found_Or_New(installation, "Haude.dat"),
            .Run_Control = Found_Or_New(directory, "orvel.inp"),
            .Last = Found_Or_New(directory, Path_Of(last)),
            .Engine_Name = program.Engine_Exe,
            .Last_Stage = mode.Last_Copy_Stage};
}

void End_Interrupted_Marks(const fs::path& mode_directory)
{
    for (const auto& pesticide : List_Run_Levels(mode_directory)) {
        for (const auto& crop : List_Run_Levels(mode_directory / pesticide)) {
            try {
                Clear_Leftovers(mode_directory / pesticide / crop);
            } catch (const File_Error&) {
                continue; // what it had moved stays in the bin
            }
        }
    }
}

New_Run_Directory::New_Run_Directory(const fs::path& place, const Run_Sources& sources) : Place(place)
{
    Check_Replaceable(place);
    try {
        Make();
        Fill(sources);
    } catch (...) {
        Take_Back();
        throw;
    }
}

New_Run_Directory::~New_Run_Directory()
{
    if (!Kept)
        Take_Back();
}

void New_Run_Directory::Make()
{
    constexpr std::size_t Longest_Name = 255;
    const fs::path crop = Place.parent_path();
    for (const auto& level : {crop.parent_path(), crop}) {
        std::error_code error;
        if (fs::create_directory(level, error))
            Made_Above.push_back(level);
        else if (error)
            Refuse_New_Directory(Place);
    }
    Clear_Leftovers(crop);
    const fs::path beside = fs::path(Place).replace_extension(Beside_End);
    std::error_code error;
    if (Place.filename().string().size() > Longest_Name || !fs::create_directory(beside, error))
        Refuse_New_Directory(Place);
    Beside = beside;
}

void New_Run_Directory::Fill(const Run_Sources& sources)
{
    constexpr int Pesticide_Stage = 4;
    int stage = Pesticide_Stage;
    const auto copy = [&stage, this](const fs::path& from, const fs::path& name) {
        Copy(from, Beside / name);
        ++stage;
    };
    try {
        copy(sources.Pesticide, sources.Pesticide.filename());
        if (sources.Engine_Name.empty())
            throw File_Error("There is no engine (orvel*.exe) in the installation directory.");
        copy(sources.Engine, sources.Engine.filename());
        copy(sources.Haude, "Haude.dat");
        copy(sources.Run_Control, "orvel.inp");
        stage = sources.Last_Stage;
        copy(sources.Last, sources.Last.filename());
        if (!Flush_Directory_And_Files(Beside))
            throw File_Error("Cannot write to disk in " + Beside.string() + ".");
    } catch (const File_Error& error) {
        throw Stage_Error(stage, To_Code_Page(error.what()));
    }
}

void New_Run_Directory::Put_In_Place()
{
    std::error_code error;
    const bool has_results = Has_Engine_Output(Place) || fs::exists(Place / Run_Record_Name, error);
    if (has_results) {
        const fs::path replacing = fs::path(Place).replace_extension(Replacing_End);
        if (Rename(Beside, replacing))
            Refuse_New_Directory(Place);
        Beside = replacing;
        try {
            Earlier = Move_To_Bin(Place.parent_path().parent_path().parent_path(), Place);
            Earlier_Is_Binned = true;
        } catch (const File_Error& refusal) {
            throw Stage_Error(Old_Directory, To_Code_Page(refusal.what()));
        }
    } else if (fs::exists(Place, error)) {
        const auto aside = Make_Unique_Directory(Place.parent_path() / Aside_Begin);
        if (aside)
            error = Rename(Place, *aside);
        if (!aside || error)
            Refuse_Old_Directory(Place);
        Earlier = *aside;
    }
    if (Rename(Beside, Place))
        Refuse_New_Directory(Place);
    In_Place = true;
}

void New_Run_Directory::Keep()
{
    Kept = true;
    std::error_code ignored;
    if (!Earlier.empty() && !Earlier_Is_Binned)
        fs::remove_all(Earlier, ignored);
}

void New_Run_Directory::Take_Back()
{
    std::error_code ignored;
    fs::remove_all(In_Place ? Place : Beside, ignored);
    if (!Earlier.empty())
        static_cast<void>(Rename(Earlier, Place));
    for (auto level = Made_Above.rbegin(); level != Made_Above.rend(); ++level)
        fs::remove(*level, ignored);
}

} // namespace orvel
