#include "plans/plan_directory.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/json.h"
#include "core/json_reader.h"
#include "core/sha256.h"
#include "core/system/file_handle.h"
#include "core/system/flush.h"
#include "core/text.h"
#include "jobs/run_recording.h"
#include "output/run_files.h"
#include "plans/run_maker.h"
#include "runs/run_place.h"

#include <algorithm>
#include <map>
#include <memory>
#include <thread>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Plan_Schema = 1;
constexpr std::string_view Set_Up_Lock = "set-up.lock";
constexpr std::chrono::minutes Longest_Set_Up(30); // by another part, which this one waits for

[[noreturn]] void Refuse(const fs::path& directory, const std::string& reason)
{
    throw File_Error("The directory " + directory.string() + " " + reason);
}

[[noreturn]] void Refuse_Part(const fs::path& directory, const std::string& where)
{
    throw Part_At_Work("The directory " + directory.string() + " has another plan run at work" + where + ".");
}

std::string Padded(std::size_t number, std::size_t least)
{
    const std::string digits = std::to_string(number);
    return std::string(least - std::min(least, digits.size()), '0') + digits;
}

std::string Format_Record(const Plan_Record& record)
{
    Json_Writer json;
    json.Object([&] {
        json.Member("schema", Plan_Schema);
        json.Member("plan", record.Sha256);
        json.Member("rows", record.Rows);
        json.Member("engine", record.Engine);
    });
    return json.Written();
}

// What the runs of a plan read, by the place of its copy: found while the rows are checked.
using Sources = std::map<std::string, fs::path>;

// Tells how much of a plan was read, every now and then.
class Told_Check {
public:
    Told_Check(const fs::path& file, const Progress& progress) : Tell(progress)
    {
        std::error_code ignored;
        Size = std::max<std::uintmax_t>(1, fs::file_size(file, ignored));
    }

    Csv_Reader::Source Counted(Csv_Reader::Source source)
    {
        return [this, source = std::move(source)](char* to, std::size_t most) {
            const std::size_t count = source(to, most);
            Read += count;
            return count;
        };
    }

    void Look_At(std::size_t row) const
    {
        constexpr std::size_t Between = 100;
        const double share = std::min(1.0, static_cast<double>(Read) / static_cast<double>(Size));
        if (Tell && row % Between == 1 && !Tell("Row " + std::to_string(row) + " of the plan", share))
            throw Reading_Stopped();
    }

private:
    const Progress& Tell;
    std::uintmax_t Size = 1, Read = 0;
};

// Checks all rows; memory grows with the ids and the documents, not with the rows.
std::size_t Check_Rows(const Program_State& program, const fs::path& file, Sources& sources, const Progress& progress)
{
    Told_Check told(file, progress);
    Plan_Reader plan(told.Counted(Source_Of_File(file)));
    Run_Maker maker(program, Plan_Inputs::Of_User(program.App_Path, file), plan);
    Plan_Ids ids;
    std::vector<File_Error> first;
    std::size_t faults = 0, rows = 0;
    for (Plan_Row row;;) {
        try {
            if (!plan.Next(row))
                break;
            rows = row.Number;
            told.Look_At(rows);
            if (!ids.Add(plan.Cell(row, Plan_Column_Kind::Id)))
                throw File_Error("The id '" + plan.Cell(row, Plan_Column_Kind::Id) + "' is there twice.", row.Line,
                                 plan.Column_Of(Plan_Column_Kind::Id));
            maker.Check(row, [&](const Plan_Input& input) { sources.try_emplace(input.Kept, input.File); });
        } catch (const Reading_Stopped&) {
            throw;
        } catch (const File_Error& error) {
            Pass_On_If_Unreadable(error);
            if (++faults <= Most_Faults)
                first.push_back(error);
        }
    }
    if (faults > 0)
        throw Plan_Faults(std::move(first), faults);
    if (rows == 0)
        throw File_Error("The plan has no rows.");
    return rows;
}

void Make_Directory(const fs::path& directory)
{
    std::error_code error;
    fs::create_directories(directory, error);
    if (error)
        throw File_Error("Cannot create " + directory.string() + ": " + error.message() + ".");
}

fs::path Engine_Of(const Program_State& program)
{
    if (program.Engine_Exe.empty())
        throw File_Error("There is no engine (orvel*.exe) in the installation directory.");
    fs::path engine = Found_Or_New(program.App_Path, Path_Of(program.Engine_Exe));
    Check_Not_Open_To_All(program.App_Path);
    Check_Not_Open_To_All(engine);
    return engine;
}

// Copies everything that the runs read; what an attempt cut off has left is replaced.
void Copy_Inputs(const fs::path& directory, const Sources& sources)
{
    const fs::path inputs = directory / Inputs_Name;
    for (const auto& [kept, source] : sources) {
        const fs::path target = inputs / Path_Of(kept);
        Make_Directory(target.parent_path());
        std::error_code ignored;
        fs::remove(target, ignored);
        Copy_Whole(source, target);
    }
}

// Throws File_Error if the directory holds something else than what a plan's set-up leaves.
void Check_Free(const fs::path& directory)
{
    constexpr std::array<std::string_view, 5> Own = {Set_Up_Lock, Inputs_Name, Plan_Copy_Name, Plan_Locks_Name,
                                                     Plan_Journal_Name};
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (std::ranges::find(Own, name) == Own.end() && !name.starts_with('.'))
            Refuse(directory, "is not empty and holds no plan: it has " + name + ".");
    }
    if (error)
        throw File_Error("Cannot read " + directory.string() + ": " + error.message() + ".");
}

Plan_Record Set_Up(const Program_State& program, const fs::path& plan, const fs::path& directory,
                   const std::string& digest, const Progress& progress)
{
    Check_Free(directory);
    Sources sources;
    Plan_Record record{.Sha256 = digest, .Rows = 0, .Engine = program.Engine_Exe};
    sources.emplace(program.Engine_Exe, Engine_Of(program));
    if (const auto haude = Find_File(program.App_Path, Haude_Name))
        sources.emplace(Haude_Name, *haude);
    record.Rows = Check_Rows(program, plan, sources, progress);
    Copy_Inputs(directory, sources);
    Copy_Whole(plan, directory / Plan_Copy_Name);
    if (Sha256_Of_File(directory / Plan_Copy_Name) != digest)
        throw File_Error("The plan " + plan.string() + " was changed while it was read.");
    Make_Directory(directory / Plan_Locks_Name);
    Make_Directory(directory / Plan_Runs_Name);
    Write_Whole(directory / Plan_Record_Name, Format_Record(record)); // from now on the plan is there
    return record;
}

// The parts whose locks are held: names like "2-of-4".
std::vector<std::string> Parts_At_Work(const fs::path& directory)
{
    std::vector<std::string> parts;
    for (const auto& name : List_Files(directory / Plan_Locks_Name, "*-of-*")) {
        if (Is_Locked(directory / Plan_Locks_Name / name))
            parts.push_back(name);
    }
    return parts;
}

// The caller holds the lock of the set-up, so that two cannot take parts at once.
Lock Take_Part(const fs::path& directory, const Plan_Part& part)
{
    const std::string of = "-of-" + std::to_string(part.Of), name = Part_Name(part);
    for (const auto& other : Parts_At_Work(directory)) {
        if (other == name)
            Refuse_Part(directory, part.Of > 1 ? " on part " + name : "");
        if (!other.ends_with(of))
            Refuse_Part(directory, " on part " + other + ", which shares rows with this one");
    }
    const fs::path file = Lock_Of_Part(directory, name);
    Make_Directory(file.parent_path());
    Write_Whole(file, "");
    auto lock = Lock::Take_Within(file, std::chrono::seconds(2));
    if (!lock)
        Refuse_Part(directory, "");
    return std::move(*lock);
}

// Sets the directory up, unless it is, and does some work with its record while no other plan run can.
template <class Work> auto Do_Set_Up(const Program_State& program, const fs::path& plan, const fs::path& directory,
                                     const Progress& progress, Work work)
{
    const std::string digest = Sha256_Of_File(plan);
    std::error_code ignored;
    const bool is_new = !fs::exists(directory, ignored);
    if (!is_new && !Read_Plan_Record(directory))
        Check_Free(directory);
    Make_Directory(directory);
    try {
        std::error_code error;
        const File_Handle sign(directory / Set_Up_Lock, File_Handle::Use::Update, error);
        if (error)
            throw File_Error("Cannot write in " + directory.string() + ": " + error.message() + ".");
        const auto set_up = Lock::Take_Within(directory / Set_Up_Lock, Longest_Set_Up);
        if (!set_up)
            Refuse(directory, "is being set up by another plan run.");
        auto record = Read_Plan_Record(directory);
        if (record && record->Sha256 != digest)
            Refuse(directory, "holds the runs of another plan.");
        if (!record)
            record = Set_Up(program, plan, directory, digest, progress);
        return work(*record);
    } catch (const File_Error&) {
        if (!Find_File(directory, Plan_Record_Name)) { // wrong rows leave nothing behind
            fs::remove_all(directory / Inputs_Name, ignored);
            fs::remove(directory / Plan_Copy_Name, ignored);
            fs::remove(directory / Set_Up_Lock, ignored);
            if (is_new)
                fs::remove(directory, ignored);
        }
        throw;
    }
}

} // namespace

Plan_Faults::Plan_Faults(std::vector<File_Error> first, std::size_t count)
    : File_Error(std::to_string(count) + (count == 1 ? " row of the plan is" : " rows of the plan are") + " wrong."),
      First(std::move(first)),
      Count(count)
{}

std::string Part_Name(const Plan_Part& part)
{
    return std::to_string(part.Number) + "-of-" + std::to_string(part.Of);
}

fs::path Lock_Of_Part(const fs::path& directory, std::string_view part_name)
{
    return directory / Plan_Locks_Name / part_name;
}

std::optional<Plan_Record> Read_Plan_Record(const fs::path& directory)
try {
    const std::string text = Read_If_There(directory, Plan_Record_Name);
    if (text.empty())
        return std::nullopt;
    const Json_Value json = Parse_Json(text);
    if (json.At("schema").Whole_Number() != Plan_Schema)
        throw File_Error("It is of another version of this program.");
    return Plan_Record{.Sha256 = json.At("plan").Text(),
                       .Rows = static_cast<std::size_t>(json.At("rows").Whole_Number()),
                       .Engine = To_Code_Page(json.At("engine").Text())};
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    throw File_Error(Located((directory / Plan_Record_Name).string(), error));
}

fs::path Directory_Of_Row(const fs::path& directory, std::size_t row)
{
    constexpr std::size_t Together = 1000;
    return directory / Plan_Runs_Name / Padded((row - 1) / Together, 4) / Padded(row, 7);
}

Csv_Reader::Source Source_Of_File(const fs::path& file)
{
    std::error_code error;
    const auto open = std::make_shared<File_Handle>(file, File_Handle::Use::Read, error);
    const auto fail = [file](const std::error_code& reason) {
        File_Error failure("Cannot read " + file.string() + ": " + reason.message() + ".");
        failure.Code = reason;
        throw failure;
    };
    if (error)
        fail(error);
    return [open, fail](char* to, std::size_t most) {
        std::error_code reason;
        const std::size_t count = open->Read(to, most, reason);
        if (reason)
            fail(reason);
        return count;
    };
}

Held_Plan Hold_Plan(const Program_State& program, const fs::path& plan, const fs::path& directory,
                    const Plan_Part& part, std::chrono::seconds patience, const Progress& progress)
{
    constexpr std::chrono::seconds Pause(1);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (true) {
        try {
            return Do_Set_Up(program, plan, directory, progress, [&](const Plan_Record& record) {
                return Held_Plan{record, Take_Part(directory, part)};
            });
        } catch (const Part_At_Work&) {
            if (std::chrono::steady_clock::now() >= end)
                throw;
        }
        std::this_thread::sleep_for(Pause);
    }
}

Plan_Record Prepare_Plan(const Program_State& program, const fs::path& plan, const fs::path& directory,
                         const Progress& progress)
{
    return Do_Set_Up(program, plan, directory, progress, [&](const Plan_Record& record) {
        const auto parts = Parts_At_Work(directory);
        if (!parts.empty())
            Refuse_Part(directory, parts.front() == "1-of-1" ? "" : " on part " + parts.front());
        return record;
    });
}

std::optional<fs::file_time_type> At_Work_Since(const fs::path& directory)
{
    std::optional<fs::file_time_type> since;
    for (const auto& part : Parts_At_Work(directory)) {
        std::error_code error;
        const auto begun = fs::last_write_time(directory / Plan_Locks_Name / part, error);
        if (!error)
            since = std::min(since.value_or(begun), begun);
    }
    return since;
}

} // namespace orvel
