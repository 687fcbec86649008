#include "runs/bin.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/run_name.h"
#include "core/system/flush.h"
#include "core/system/lock.h"
#include "core/system/rename.h"
#include "output/run_outputs.h"
#include "output/run_record.h"
#include "runs/run_place.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Attempts = 100; // at a place that no other program takes first

[[noreturn]] void Refuse(const fs::path& what, const std::error_code& error)
{
    throw File_Error("Cannot move " + what.string() + " to the bin: " + error.message() + ".");
}

int Number_Of(const std::string& name)
{
    const bool digits = !name.empty() && name.find_first_not_of("0123456789") == std::string::npos;
    return digits ? static_cast<int>(std::min(Val(name), 1e9)) : 0;
}

// The numbers of the generations, ascending.
std::vector<int> Generations(const fs::path& bin)
{
    std::vector<int> numbers;
    for (const auto& name : List_Directories(bin, "*")) {
        if (const int number = Number_Of(name); number > 0)
            numbers.push_back(number);
    }
    std::ranges::sort(numbers);
    return numbers;
}

fs::path Generation(const fs::path& bin, int number)
{
    return bin / Format_Pattern(number, "0000");
}

fs::path Bin_Of(const fs::path& mode_directory)
{
    fs::path bin = mode_directory / Bin_Name;
    Check_No_Link(mode_directory, bin);
    std::error_code error;
    fs::create_directory(bin, error);
    if (error)
        Refuse(bin, error);
    return bin;
}

// Makes the place of something in the newest generation that does not have it yet; the place itself is not made.
fs::path Free_Place(const fs::path& bin, const fs::path& what, int attempt)
{
    const auto numbers = Generations(bin);
    int number = numbers.empty() ? 1 : numbers.back();
    std::error_code error;
    if (attempt > 0 || fs::exists(fs::symlink_status(Generation(bin, number) / what, error)))
        ++number;
    fs::path place = Generation(bin, number) / what;
    Check_No_Link(bin, place);
    fs::create_directories(place.parent_path(), error);
    if (error)
        Refuse(what, error);
    return place;
}

// Moves it to a place of its own in the bin.
fs::path Move(const fs::path& mode_directory, const fs::path& from, const fs::path& name)
{
    const fs::path bin = Bin_Of(mode_directory);
    std::error_code error;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        fs::path place = Free_Place(bin, name, attempt);
        error = Rename(from, place); // never over what another program has put there: a directory with files
        if (!error) {
            Flush_Directory(place.parent_path());
            return place;
        }
        if (error != std::errc::directory_not_empty && error != std::errc::file_exists)
            break;
    }
    Refuse(from, error);
}

// A new directory of that name in the newest generation that does not have it yet.
fs::path New_Directory(const fs::path& bin, const fs::path& name)
{
    std::error_code error;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        fs::path place = Free_Place(bin, name, attempt);
        if (fs::create_directory(place, error))
            return place;
        if (error)
            break;
    }
    Refuse(name, error);
}

void Link_Or_Copy(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    fs::create_hard_link(from, to, error);
    if (error && error != std::errc::file_exists)
        Copy_Whole(from, to);
}

bool Is_Of_Output(const std::string& name)
{
    return Matches(name, "*.orv") || name == Run_Record_Name;
}

} // namespace

void Begin_Generation(const fs::path& mode_directory)
{
    const fs::path bin = mode_directory / Bin_Name;
    std::error_code error;
    if (!fs::exists(bin, error))
        return;
    Check_No_Link(mode_directory, bin);
    auto numbers = Generations(bin);
    if (!numbers.empty() && !fs::is_empty(Generation(bin, numbers.back()), error) && !error) {
        numbers.push_back(numbers.back() + 1);
        fs::create_directory(Generation(bin, numbers.back()), error);
    }
    for (std::size_t i = 0; i + Kept_Generations < numbers.size(); ++i)
        fs::remove_all(Generation(bin, numbers[i]), error); // what cannot be deleted is tried again next time
}

fs::path Move_To_Bin(const fs::path& mode_directory, const fs::path& what)
{
    Check_No_Link(mode_directory, what);
    return Move(mode_directory, what, what.lexically_relative(mode_directory));
}

void Move_Output_To_Bin(const fs::path& mode_directory, const fs::path& run)
{
    std::vector<std::string> output, input;
    for (const auto& name : List_Files(run, "*")) {
        if (!Matches(name, "orvel*.exe"))
            (Is_Of_Output(name) ? output : input).push_back(name);
    }
    if (output.empty())
        return;
    Check_No_Link(mode_directory, run);
    const fs::path place = New_Directory(Bin_Of(mode_directory), run.lexically_relative(mode_directory));
    for (const auto& name : input)
        Link_Or_Copy(run / name, place / name);
    // The record goes first: what then remains without one counts as cut off, never as finished.
    std::ranges::stable_partition(output, [](const std::string& name) { return name == Run_Record_Name; });
    for (const auto& name : output) {
        if (const auto error = Rename(run / name, place / name))
            Refuse(run / name, error);
    }
    Flush_Directory(place);
}

std::vector<Binned_Run> Runs_In_Bin(const fs::path& mode_directory)
{
    const fs::path bin = mode_directory / Bin_Name;
    std::vector<Binned_Run> runs;
    auto numbers = Generations(bin);
    std::ranges::reverse(numbers);
    for (const int number : numbers) {
        const fs::path generation = Generation(bin, number);
        for (const auto& pesticide : List_Run_Levels(generation)) {
            for (const auto& crop : List_Run_Levels(generation / pesticide)) {
                for (const auto& location : List_Run_Levels(generation / pesticide / crop)) {
                    const fs::path run = fs::path(pesticide) / crop / location;
                    runs.push_back({number, run, generation / run});
                }
            }
        }
    }
    return runs;
}

void Put_Back(const fs::path& mode_directory, const Binned_Run& binned)
{
    const fs::path place = mode_directory / binned.Run;
    Check_No_Link(mode_directory, place);
    Check_No_Link(mode_directory, binned.Directory);
    std::error_code error;
    if (fs::exists(place, error)) {
        const auto lock = Lock::Take(place);
        if (!lock)
            throw File_Error("A simulation is at work in " + place.string() + ".");
        Move_To_Bin(mode_directory, place);
    }
    fs::create_directories(place.parent_path(), error);
    if (!error)
        error = Rename(binned.Directory, place);
    if (error)
        throw File_Error("Cannot put back " + place.string() + ": " + error.message() + ".");
    Flush_Directory(place.parent_path());
    const fs::path crop = binned.Directory.parent_path();
    fs::remove(crop, error); // only if it has become empty
    fs::remove(crop.parent_path(), error);
}

} // namespace orvel
