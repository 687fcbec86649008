#include "output/run_record.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/run_name.h"
#include "core/text.h"
#include "output/record_members.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace orvel {

namespace {

constexpr int Record_Schema = 1;
constexpr std::size_t Largest_Record = 1U << 20U;
constexpr std::array<std::string_view, 7> Verdict_Texts = {"complete", "incomplete", "failed",    "stopped",
                                                           "running",  "scheduled",  "unrecorded"};
constexpr std::size_t Recorded_Verdicts = 4;

std::optional<int> Small_Or_Null(const Json_Value& value)
{
    return value.Is_Null() ? std::nullopt : std::optional(Small(value));
}

std::time_t Time_In(const Json_Value& object, std::string_view name)
{
    return Member(object, name, [](const Json_Value& value) {
        if (value.Is_Null())
            return std::time_t{};
        const std::time_t time = Time_Of_Utc(value.Text());
        if (time == 0)
            throw File_Error("It is no time.");
        return time;
    });
}

Verdict Verdict_Of(const Json_Value& value)
{
    const auto* const end = Verdict_Texts.begin() + Recorded_Verdicts;
    const auto* const found = std::find(Verdict_Texts.begin(), end, value.Text());
    if (found == end)
        throw File_Error("It is no verdict.");
    return static_cast<Verdict>(found - Verdict_Texts.begin());
}

void Put_Or_Null(Json_Writer& json, std::string_view name, const std::optional<int>& number)
{
    json.Key(name);
    if (number)
        json.Value(*number);
    else
        json.Null();
}

void Put_Time(Json_Writer& json, std::string_view name, std::time_t time)
{
    json.Key(name);
    if (time == 0)
        json.Null();
    else
        json.Value(Utc_Text(time));
}

void Put_Engine(Json_Writer& json, const Run_Record& record)
{
    json.Key("engine");
    json.Object([&] {
        json.Member("name", record.Engine.Name);
        json.Member("version", record.Engine_Version);
        json.Member("sha256", record.Engine.Sha256);
        json.Member("size", static_cast<double>(record.Engine.Size));
    });
    json.Member("processor", record.Processor);
}

// What in the record of a complete run says that it is none; empty if nothing does.
std::string Contradiction_In(const Run_Record& record)
{
    if (record.Verdict != Verdict::Complete)
        return {};
    if (record.Exit != 0 || record.Signal)
        return "the engine did not end with exit code 0";
    if (record.Inputs.empty() || record.Outputs.empty())
        return "it names no files";
    int fewest = record.Years_Expected;
    for (const auto& output : record.Outputs)
        fewest = std::min(fewest, output.Years.value_or(fewest));
    if (record.Years_Expected < 1 || record.Years_Found != record.Years_Expected || fewest != record.Years_Found)
        return "its years differ";
    return {};
}

std::string Optional_Text_In(const Json_Value& object, std::string_view name)
{
    return object.Find(name) ? Text_In(object, name) : std::string();
}

} // namespace

std::string Recorded_Directory(const std::filesystem::path& run_directory)
{
    const auto run = std::filesystem::absolute(run_directory / "").lexically_normal().parent_path();
    if (!Is_Run_Level(run.filename().string()))
        return {};
    return Run_Directory_Of(run.parent_path().parent_path().parent_path(), run);
}

std::string_view Verdict_Text(Verdict verdict)
{
    return Verdict_Texts[static_cast<std::size_t>(verdict)];
}

Run_Record Parse_Run_Record(std::string_view text)
{
    const Json_Value json = Parse_Json(text);
    if (Member(json, "schema", Small) != Record_Schema)
        throw File_Error("The record has a schema that this program does not know.");
    Run_Record record;
    const Json_Value& program = json.At("program");
    record.Program = Text_In(program, "name");
    record.Program_Version = Text_In(program, "version");
    record.Engine = Member(json, "engine", File_Of);
    record.Engine_Version = Text_In(json.At("engine"), "version");
    record.Directory = Optional_Text_In(json, "directory"); // older records lack it
    record.Processor = Text_In(json, "processor");
    record.Inputs = List_In(json, "inputs", File_Of);
    record.Start = Time_In(json, "start");
    record.End = Time_In(json, "end");
    record.Exit = Member(json, "exit", Small_Or_Null);
    record.Signal = Member(json, "signal", Small_Or_Null);
    record.Limit = Member(json, "limit", Small_Or_Null);
    record.Years_Expected = Member(json, "years_expected", Small);
    record.Outputs = List_In(json, "outputs", [](const Json_Value& value) {
        return Recorded_Output{File_Of(value), Member(value, "years", Small_Or_Null)};
    });
    record.Years_Found = Member(json, "years_found", Small);
    record.Verdict = Member(json, "verdict", Verdict_Of);
    record.Reason = Text_In(json, "reason");
    if (const auto contradiction = Contradiction_In(record); !contradiction.empty())
        throw File_Error("The record contradicts itself: complete, but " + contradiction + ".");
    return record;
}

std::string Format_Run_Record(const Run_Record& record)
{
    Json_Writer json;
    json.Object([&] {
        json.Member("schema", Record_Schema);
        json.Key("program");
        json.Object([&] {
            json.Member("name", record.Program);
            json.Member("version", record.Program_Version);
        });
        json.Member("directory", record.Directory);
        Put_Engine(json, record);
        json.Key("inputs");
        json.Array([&] {
            for (const auto& input : record.Inputs)
                json.Object([&] { Put_File(json, input); });
        });
        Put_Time(json, "start", record.Start);
        Put_Time(json, "end", record.End);
        Put_Or_Null(json, "exit", record.Exit);
        Put_Or_Null(json, "signal", record.Signal);
        Put_Or_Null(json, "limit", record.Limit);
        json.Member("years_expected", record.Years_Expected);
        json.Key("outputs");
        json.Array([&] {
            for (const auto& output : record.Outputs) {
                json.Object([&] {
                    Put_File(json, output.File);
                    Put_Or_Null(json, "years", output.Years);
                });
            }
        });
        json.Member("years_found", record.Years_Found);
        json.Member("verdict", Verdict_Text(record.Verdict));
        json.Member("reason", record.Reason);
    });
    return json.Written();
}

std::optional<Run_Record> Read_Run_Record(const std::filesystem::path& run_directory)
{
    const auto file = run_directory / Run_Record_Name;
    std::error_code error;
    if (std::filesystem::symlink_status(file, error).type() == std::filesystem::file_type::not_found)
        return std::nullopt;
    const std::string text = Read_Whole(file, Largest_Record);
    try {
        return Parse_Run_Record(text);
    } catch (const File_Error& damage) {
        throw File_Error(Located(file.string(), damage));
    }
}

std::optional<Run_Record> Read_Good_Record(const std::filesystem::path& run_directory)
try {
    return Read_Run_Record(run_directory);
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return std::nullopt;
}

std::string Utc_Text(std::time_t time)
{
    const auto point = std::chrono::sys_seconds(std::chrono::seconds(time));
    const auto midnight = std::chrono::floor<std::chrono::days>(point);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss clock(point - midnight);
    const auto two = [](auto number) { return Format_Pattern(static_cast<double>(number), "00"); };
    return Format_Pattern(static_cast<int>(date.year()), "0000") + "-" + two(static_cast<unsigned>(date.month())) +
           "-" + two(static_cast<unsigned>(date.day())) + "T" + two(clock.hours().count()) + ":" +
           two(clock.minutes().count()) + ":" + two(clock.seconds().count()) + "Z";
}

std::time_t Time_Of_Utc(std::string_view text)
{
    const auto part = [text](std::size_t first, std::size_t width) {
        return Whole_Part(Columns(text, first, width), 0, 9999);
    };
    using namespace std::chrono;
    const year_month_day date(year(part(1, 4)), month(static_cast<unsigned>(part(6, 2))),
                              day(static_cast<unsigned>(part(9, 2))));
    if (!date.ok())
        return 0;
    const auto point = sys_days(date) + hours(part(12, 2)) + minutes(part(15, 2)) + seconds(part(18, 2));
    const std::time_t time = duration_cast<seconds>(point.time_since_epoch()).count();
    return Utc_Text(time) == text ? time : 0;
}

} // namespace orvel
