#pragma once

#include "core/session.h"
#include "core/system/directory_watch.h"
#include "plans/plan_place.h"
#include "plans/plan_results.h"
#include "plans/plan_table.h"
#include "plans/run_result.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

namespace orvel {

// A plan as a window shows it: its rows, and what their runs have come to.

struct Plan_Rows {
    std::vector<Plan_Column> Columns;
    std::vector<std::vector<std::string>> Cells; // by row and column, UTF-8; empty for a row that cannot be read
    // Where the plan replaces the date of the first application: the columns of day and month, and the month of the
    // document where it stays.
    std::optional<std::size_t> Day_Column, Month_Column;
    int Month = 0;
};

struct Plan_Run {
    orvel::Verdict Verdict = orvel::Verdict::Scheduled;
    std::vector<Result_Row> Rows; // with figures alone
    std::filesystem::file_time_type Ended;
};

// A substance that has figures.
struct Plan_Substance {
    std::string Name, Unit; // bytes of Windows-1252; no unit: not all figures have the same
    bool operator==(const Plan_Substance&) const = default;
};

struct Plan_View {
    int Request = 0; // that it answers
    Plan_Place Place;
    std::shared_ptr<const Plan_Rows> Rows = std::make_shared<Plan_Rows>();
    std::vector<std::shared_ptr<const Plan_Run>> Runs; // by row; nullptr: not begun
    std::vector<Plan_Substance> Substances;            // in the order of their appearance
    Plan_Status Status;
    std::string Failure;   // why the plan cannot be read, a sentence in UTF-8
    std::string Note;      // what else is to be told
    bool Is_Cut = false;   // the plan has more rows
    bool Has_Runs = false; // the directory is that of this plan
    bool Is_Settled = false;

    orvel::Verdict Verdict_Of(std::size_t row) const
    {
        return Runs[row] ? Runs[row]->Verdict : orvel::Verdict::Scheduled;
    }
    std::span<const Result_Row> Results_Of(std::size_t row) const
    {
        return Runs[row] ? std::span<const Result_Row>(Runs[row]->Rows) : std::span<const Result_Row>();
    }
};

// The substances by the runs.
std::vector<Plan_Substance> Substances_Of(const Plan_View& view);

// More rows are not shown.
constexpr std::size_t Most_Rows_Shown = 200000;

// Follows a plan in a thread of its own. While parts of it are at work it looks twice a second at the runs that are not
// complete; else it waits for the system to tell that something has changed. Nothing ends it but its owner.
class Plan_Survey {
public:
    // `publish` is called in the survey's thread.
    using Publish = std::function<void(std::shared_ptr<const Plan_View>)>;

    Plan_Survey(std::filesystem::path app_path, Publish publish);
    Plan_Survey(const Plan_Survey&) = delete;
    Plan_Survey& operator=(const Plan_Survey&) = delete;
    ~Plan_Survey();

    int Follow(Plan_Place place); // the number of the request
    void Look_Again();            // something was started or stopped

private:
    void Work();
    void Begin();
    void Read_Rows();
    void Find_Dates();
    void Look(bool at_everything);
    void Look_At_Block(std::size_t first, std::size_t end, bool at_everything);
    bool Is_Of_Plan();
    void Count();
    void Tell(bool settled);
    void Wait();
    bool Is_Interrupted() const { return Ends || Is_New; }

    const std::filesystem::path App_Path;
    const Publish Publish_View;
    std::mutex Guard;
    Plan_Place Wanted; // guarded, as is the number of its request
    int Request = 0;
    std::atomic<bool> Ends = false, Is_New = false, Looks_Again = false;

    // Of the thread alone.
    Plan_View View;
    std::string Digest;
    bool Is_Watched = false, Has_Changed = true;
    std::optional<std::filesystem::file_time_type> Since;
    Directory_Watch Watch;
    std::thread Thread; // the last one made: it uses all of the above
};

} // namespace orvel
