#pragma once

#include "core/error.h"
#include "core/progress.h"
#include "core/session.h"
#include "core/system/lock.h"
#include "plans/plan_table.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The directory of a plan: a copy of the plan and of everything that its runs read, so that nothing that changes
// elsewhere reaches them, and a directory a run. docs/formats.md tells what lies where.

constexpr std::string_view Plan_Copy_Name = "plan.csv", Plan_Record_Name = "plan.json", Plan_Journal_Name = "plan.log",
                           Plan_Locks_Name = "locks", Plan_Runs_Name = "runs";

// What is known of a plan once its directory was set up.
struct Plan_Record {
    std::string Sha256; // of the plan
    std::size_t Rows = 0;
    std::string Engine; // file name below the inputs
};

// Nothing if the directory holds no plan. Throws File_Error for a record that cannot be read.
std::optional<Plan_Record> Read_Plan_Record(const std::filesystem::path& directory);

// The directory of a run by the number of its row; a thousand share one above.
std::filesystem::path Directory_Of_Row(const std::filesystem::path& directory, std::size_t row);

// Reads a plan from a file; the file is held open.
Csv_Reader::Source Source_Of_File(const std::filesystem::path& file);

// The rows of a plan that are wrong, each with line and column.
struct Plan_Faults : File_Error {
    Plan_Faults(std::vector<File_Error> first, std::size_t count);
    std::vector<File_Error> First; // at most Most_Faults
    std::size_t Count = 0;
};
constexpr std::size_t Most_Faults = 100;

// Part `Number` of `Of` of a plan, from 1.
struct Plan_Part {
    std::size_t Number = 1, Of = 1;
    bool Has(std::size_t row) const { return (row - 1) % Of == Number - 1; }
    bool operator==(const Plan_Part&) const = default;
};

std::string Part_Name(const Plan_Part& part); // "2-of-4"
// What a part holds by a lock while it is at work.
std::filesystem::path Lock_Of_Part(const std::filesystem::path& directory, std::string_view part_name);

// A plan whose directory is ready, held by its part for as long as this lives.
struct Held_Plan {
    Plan_Record Record;
    Lock Held;
};

// A part that is wanted is held by another plan run.
struct Part_At_Work : File_Error {
    using File_Error::File_Error;
};

// Checks a plan and sets up its directory, or finds it set up with the same plan, and takes the part. A run at work on
// the same part has `patience` to end. Throws Plan_Faults for wrong rows, nothing being left then; Part_At_Work if this
// part, or parts of another number, are at work there; File_Error if the directory holds another plan or anything else.
// `progress` is called as the rows are checked, and may stop that with Reading_Stopped.
Held_Plan Hold_Plan(const Program_State& program, const std::filesystem::path& plan,
                    const std::filesystem::path& directory, const Plan_Part& part, std::chrono::seconds patience = {},
                    const Progress& progress = {});

// The same for a plan whose parts other programs will take. Throws Part_At_Work if one of them is.
Plan_Record Prepare_Plan(const Program_State& program, const std::filesystem::path& plan,
                         const std::filesystem::path& directory, const Progress& progress = {});

// Since when the parts have been at work that are; nothing if none is.
std::optional<std::filesystem::file_time_type> At_Work_Since(const std::filesystem::path& directory);

} // namespace orvel
