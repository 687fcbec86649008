#include "runs/bin_rule.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/json.h"
#include "core/json_reader.h"
#include "core/system/file_identity.h"
#include "runs/bin.h"
#include "runs/run_place.h"

#include <algorithm>
#include <cstdint>
#include <tuple>
#include <vector>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::uint64_t Megabyte = 1'000'000;
constexpr std::time_t Day = 86'400; // s

int Limit_In(const Json_Value& json, std::string_view name, int most)
{
    const auto number = json.At(name).Whole_Number();
    if (number > most)
        throw File_Error("The number " + std::string(name) + " is larger than " + std::to_string(most) + ".");
    return static_cast<int>(number);
}

struct Kept_Run {
    Binned_Run Binned;
    File_Identity Noted; // the system notes when it was put there
    std::uint64_t Size = 0;
};

Kept_Run Look_At(const Binned_Run& binned)
{
    Kept_Run run{.Binned = binned};
    if (const auto directory = Identity_Of(binned.Directory))
        run.Noted = *directory;
    for (const auto& name : List_Files(binned.Directory, "*")) {
        if (const auto file = Identity_Of(binned.Directory / name))
            run.Size += file->Size;
    }
    return run;
}

void Delete_For_Good(const fs::path& mode_directory, const Binned_Run& binned)
try {
    Check_No_Link(mode_directory, binned.Directory);
    std::error_code ignored;
    fs::remove_all(binned.Directory, ignored);
    fs::path level = binned.Directory;
    for (int i = 0; i < Run_Levels; ++i)
        fs::remove(level = level.parent_path(), ignored); // only if it has become empty
} catch (const File_Error&) { // a link leads elsewhere: what lies there is not ours to delete
}

} // namespace

Bin_Rule Read_Bin_Rule(const fs::path& app_path)
{
    const fs::path file = Found_Or_New(app_path, Bin_Rule_Name);
    const std::string text = Read_If_There(app_path, Bin_Rule_Name);
    std::error_code error;
    if (text.empty() && fs::symlink_status(file, error).type() == fs::file_type::not_found)
        return {};
    try {
        const Json_Value json = Parse_Json(text);
        return {.Megabytes = Limit_In(json, "megabytes", Most_Megabytes), .Days = Limit_In(json, "days", Most_Days)};
    } catch (const File_Error& damage) {
        throw File_Error(Located(file.string(), damage));
    }
}

void Write_Bin_Rule(const fs::path& app_path, const Bin_Rule& rule)
{
    Json_Writer json;
    json.Object([&] {
        json.Member("megabytes", rule.Megabytes);
        json.Member("days", rule.Days);
    });
    Write_Whole(Found_Or_New(app_path, Bin_Rule_Name), json.Written());
}

void Empty_Bin(const fs::path& mode_directory, std::time_t now)
{
    const fs::path mode = (fs::absolute(mode_directory) / "").lexically_normal().parent_path();
    const Bin_Rule rule = Read_Bin_Rule(mode.parent_path());
    if (rule == Bin_Rule())
        return;
    std::vector<Kept_Run> runs;
    for (const auto& binned : Runs_In_Bin(mode))
        runs.push_back(Look_At(binned));
    std::ranges::stable_sort(runs, [](const Kept_Run& a, const Kept_Run& b) {
        return std::tuple(a.Binned.Generation, a.Noted.Noted_Seconds, a.Noted.Noted_Nanoseconds) >
               std::tuple(b.Binned.Generation, b.Noted.Noted_Seconds, b.Noted.Noted_Nanoseconds);
    });
    std::uint64_t kept = 0;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        kept += runs[i].Size;
        const bool too_much = rule.Megabytes > 0 && kept > static_cast<std::uint64_t>(rule.Megabytes) * Megabyte;
        const bool too_old = rule.Days > 0 && now - runs[i].Noted.Noted_Seconds > rule.Days * Day;
        if (i > 0 && (too_much || too_old))
            Delete_For_Good(mode, runs[i].Binned);
    }
}

} // namespace orvel
