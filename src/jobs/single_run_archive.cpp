#include "jobs/single_run_archive.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "jobs/single_run_start.h"
#include "output/run_record.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view File_Check = "File check";
constexpr std::string_view Archive_Stem = "Run_";

// The input files that an orvel.inp names, then orvel.inp itself.
std::vector<std::string> Input_Files(std::string_view control)
{
    Line_Reader lines(control);
    const int years = Whole_Part(lines.Next(), 0, Most_Years);
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(years) + 2);
    for (int i = 0; i < years + 2; ++i)
        names.emplace_back(Trim(lines.Next()));
    return names;
}

// Copies the input beside the archived output; gives the names that are missing.
std::string Copy_Input(const fs::path& directory, const fs::path& archive, const std::string& control)
{
    std::string missing;
    for (const std::string& name : Input_Files(control)) {
        const auto source = Find_File(directory, Path_Of(name));
        if (source)
            Copy_Whole(*source, archive / source->filename());
        else if (!Contains(missing, name))
            missing += (missing.empty() ? "" : ", ") + name;
    }
    return missing;
}

void Copy_Into(const fs::path& directory, const fs::path& archive, const fs::path& name)
{
    const fs::path source = Found_Or_New(directory, name);
    Copy_Whole(source, archive / source.filename());
}

bool Remove_Archived(const Ask_Function& ask, const fs::path& directory, const std::vector<std::string>& output)
{
    for (const std::string& name : output) {
        std::error_code error;
        fs::remove(directory / name, error);
        if (!error)
            continue;
        Tell(ask, File_Check,
             "The file " + Path_Text(name) +
                 " is in the archive, but cannot be deleted: " + To_Code_Page(error.message()) + ".");
        return false;
    }
    return true;
}

} // namespace

bool Has_Output(const fs::path& directory)
{
    return !List_Files(directory, "*.orv").empty();
}

std::string Free_Archive_Name(const fs::path& directory)
{
    for (int n = 1;; ++n) {
        std::string name = std::string(Archive_Stem) + std::to_string(n);
        if (!Find_File(directory, name))
            return name;
    }
}

bool Archive_Run(const Ask_Function& ask, const fs::path& directory, const std::string& folder)
{
    auto output = List_Files(directory, "*.orv");
    if (output.empty()) {
        Tell(ask, File_Check, "No output files in the current dirctory");
        return false;
    }
    const auto lock = Lock::Take(directory);
    if (!lock || Is_Locked(Found_Or_New(directory, "echo.orv"))) {
        Tell(ask, File_Check, Still_At_Work);
        return false;
    }
    std::error_code ignored;
    if (fs::exists(directory / Run_Record_Name, ignored))
        output.insert(output.begin(), std::string(Run_Record_Name)); // deleted first: no output is left to it
    const fs::path archive = directory / Path_Of(folder);
    bool made = false;
    try {
        made = !folder.empty() && archive.filename() == Path_Of(folder) && fs::create_directory(archive);
        if (!made)
            throw File_Error("The archive is there already, or its name is none.");
        for (const std::string& name : output)
            Copy_Into(directory, archive, name);
        const std::string control = Read_Whole(Found_Or_New(directory, "orvel.inp"));
        const std::string missing = Copy_Input(directory, archive, control);
        Write_Whole(archive / "orvel.inp", control);
        if (!missing.empty())
            Tell(ask, File_Check,
                 "The archive " + folder + " lacks input that is not there any more: " + missing + ".");
    } catch (const std::exception& error) {
        if (made)
            fs::remove_all(archive, ignored); // nothing has been moved out of the directory yet
        Tell(ask, File_Check, "Cannot open " + Name_Of(archive).value_or(folder) + "\r\n" + To_Code_Page(error.what()));
        return false;
    }
    // The archive is complete: the output may be deleted now, and the archive stays whatever happens.
    return Remove_Archived(ask, directory, output);
}

} // namespace orvel
