#include "plans/plan_survey.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/sha256.h"
#include "core/text.h"
#include "files/pesticide_file.h"
#include "plans/plan_directory.h"
#include "plans/plan_inputs.h"
#include "runs/selection.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;

constexpr auto Between_Looks_At_Work = 500ms;
constexpr auto Between_Looks_Unwatched = 2s; // where there is no directory yet, or the system tells nothing
constexpr auto Between_Full_Looks = 60s;
constexpr std::size_t Block = 1000; // rows whose directories lie together

// What a program that ran the plan without a terminal has said last.
std::string Last_Line_Of_Journal(const fs::path& directory)
{
    constexpr std::size_t Enough = 2000;
    std::string text = Read_Tail(directory / Plan_Journal_Name, Enough);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    return text.substr(text.find_last_of("\r\n") + 1);
}

std::shared_ptr<const Plan_Run> Run_Of(const fs::path& directory, std::size_t number)
{
    const Row_State state = State_Of_Row(directory, number);
    const auto lines = Parse_Result(state.Result);
    if (!lines && state.Verdict == Verdict::Scheduled)
        return nullptr;
    Plan_Run run{.Verdict = state.Verdict, .Rows = {}, .Ended = {}};
    if (lines) {
        for (const auto& line : *lines) {
            if (auto row = Parse_Figures(line.Figures))
                run.Rows.push_back(std::move(*row));
        }
        std::error_code ignored;
        run.Ended = fs::last_write_time(Directory_Of_Row(directory, number) / Result_Name, ignored);
    }
    return std::make_shared<const Plan_Run>(std::move(run));
}

bool Is_Complete(const std::shared_ptr<const Plan_Run>& run)
{
    return run && run->Verdict == Verdict::Complete;
}

std::optional<std::size_t> Place_Of(const std::vector<Plan_Column>& columns, std::string_view name)
{
    const auto found = std::ranges::find(columns, name, &Plan_Column::Name);
    return found == columns.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - columns.begin()));
}

} // namespace

std::vector<Plan_Substance> Substances_Of(const Plan_View& view)
{
    std::vector<Plan_Substance> substances;
    for (std::size_t row = 0; row < view.Runs.size(); ++row) {
        for (const auto& result : view.Results_Of(row)) {
            const auto known = std::ranges::find(substances, result.Substance, &Plan_Substance::Name);
            if (known == substances.end())
                substances.push_back({result.Substance, result.Unit});
            else if (known->Unit != result.Unit)
                known->Unit.clear();
        }
    }
    return substances;
}

Plan_Survey::Plan_Survey(fs::path app_path, Publish publish)
    : App_Path(std::move(app_path)),
      Publish_View(std::move(publish)),
      Thread([this] { Work(); })
{}

Plan_Survey::~Plan_Survey()
{
    Ends = true;
    Watch.Wake();
    Thread.join();
}

int Plan_Survey::Follow(Plan_Place place)
{
    const std::scoped_lock lock(Guard);
    Wanted = std::move(place);
    Is_New = true;
    Watch.Wake();
    return ++Request;
}

void Plan_Survey::Look_Again()
{
    Looks_Again = true;
    Watch.Wake();
}

void Plan_Survey::Work()
{
    while (!Ends) {
        if (Is_New)
            Begin();
        const bool at_everything = Has_Changed;
        Has_Changed = false;
        if (!View.Place.Plan.empty() && View.Failure.empty())
            Look(at_everything);
        if (!Is_Interrupted())
            Wait();
    }
}

void Plan_Survey::Begin()
{
    Is_New = false;
    View = {};
    {
        const std::scoped_lock lock(Guard);
        View.Place = Wanted;
        View.Request = Request;
    }
    Since.reset();
    Has_Changed = true;
    try {
        Watch.Add(View.Place.Plan.parent_path());
        Digest = Sha256_Of_File(View.Place.Plan);
        Read_Rows();
        Find_Dates();
    } catch (const std::exception& error) {
        View.Failure = error.what();
    }
    Tell(!View.Failure.empty());
}

// A row that is wrong is told, and has no cells.
void Plan_Survey::Read_Rows()
{
    auto rows = std::make_shared<Plan_Rows>();
    Plan_Reader plan(Source_Of_File(View.Place.Plan));
    rows->Columns = plan.Columns().All;
    std::size_t wrong = 0;
    for (Plan_Row row; !Is_Interrupted();) {
        try {
            if (!plan.Next(row))
                break;
        } catch (const File_Error& error) {
            Pass_On_If_Unreadable(error);
            if (++wrong == 1)
                View.Note = error.what();
            row.Cells.clear();
        }
        if (rows->Cells.size() == Most_Rows_Shown) {
            View.Is_Cut = true;
            break;
        }
        row.Cells.resize(rows->Columns.size());
        rows->Cells.push_back(row.Cells);
    }
    if (wrong > 1)
        View.Note += " " + std::to_string(wrong - 1) + " more rows are wrong.";
    View.Runs.resize(rows->Cells.size());
    View.Rows = std::move(rows);
}

// Where the dates of the first application stand; without any, charts show the days of the shift.
void Plan_Survey::Find_Dates()
try {
    const auto& columns = View.Rows->Columns;
    const auto pesticide = Place_Of(columns, "pesticide"), location = Place_Of(columns, "location");
    if (View.Rows->Cells.empty() || !pesticide || !location)
        return;
    const auto& row = View.Rows->Cells.front();
    const bool is_kept = Read_Plan_Record(View.Place.Directory).has_value();
    const auto inputs =
        is_kept ? Plan_Inputs::Of_Plan(View.Place.Directory) : Plan_Inputs::Of_User(App_Path, View.Place.Plan);
    const auto document = std::make_unique<Pesticide_Document>();
    Parse_PSM(Read_Whole(inputs.Pesticide(From_Utf8(row[*pesticide]).value_or("")).File), *document);
    const int block = Block_Of_Location(*document, From_Utf8(row[*location]).value_or(""));
    if (document->App_Mode == App_Mode_Relative || block < 0)
        return;
    const std::string first = "psm.Applications[" + std::to_string(block) + "][1].";
    auto dated = std::make_shared<Plan_Rows>(*View.Rows);
    dated->Day_Column = Place_Of(columns, first + "App_Day");
    dated->Month_Column = Place_Of(columns, first + "App_Month");
    dated->Month = document->Applications[static_cast<std::size_t>(block)][1].App_Month;
    View.Rows = std::move(dated);
} catch (const File_Error&) { // what is wrong with the plan is told when it is run
}

// Whether the directory holds the runs of this plan; if not, why.
bool Plan_Survey::Is_Of_Plan()
{
    View.Has_Runs = false;
    const auto record = Read_Plan_Record(View.Place.Directory);
    if (!record)
        return false;
    View.Has_Runs = record->Sha256 == Digest;
    if (!View.Has_Runs)
        View.Note = "The directory " + View.Place.Directory.string() + " holds the runs of another plan.";
    return View.Has_Runs;
}

// The locks are looked at before the runs: what no part is at work on is found as it stays.
void Plan_Survey::Look(bool at_everything)
try {
    const fs::path& directory = View.Place.Directory;
    std::error_code ignored;
    Is_Watched = fs::is_directory(directory, ignored) && Watch.Add(directory);
    const bool had_runs = View.Has_Runs;
    if (Is_Of_Plan()) {
        at_everything = at_everything || !had_runs;
        Is_Watched = Watch.Add(directory / Plan_Locks_Name) && Watch.Add(directory / Plan_Runs_Name) && Is_Watched;
        const bool was_at_work = Since.has_value();
        Since = At_Work_Since(directory);
        if (Since || was_at_work || at_everything) {
            for (std::size_t first = 0; first < View.Runs.size() && !Is_Interrupted(); first += Block)
                Look_At_Block(first, std::min(first + Block, View.Runs.size()), at_everything);
        }
        if (Since || was_at_work)
            View.Note.clear();
        const bool all_complete = std::ranges::all_of(View.Runs, Is_Complete);
        if (was_at_work && !Since && !all_complete)
            View.Note = Last_Line_Of_Journal(directory);
    } else {
        std::ranges::fill(View.Runs, nullptr);
        Since.reset();
    }
    Count();
    if (!Is_Interrupted())
        Tell(true);
} catch (const std::exception& error) { // told, and looked at again
    View.Note = error.what();
    Tell(true);
}

void Plan_Survey::Look_At_Block(std::size_t first, std::size_t end, bool at_everything)
{
    const fs::path& directory = View.Place.Directory;
    std::error_code error;
    if (!fs::exists(Directory_Of_Row(directory, first + 1).parent_path(), error) && !error) {
        std::fill(View.Runs.begin() + static_cast<long>(first), View.Runs.begin() + static_cast<long>(end), nullptr);
        return;
    }
    for (std::size_t row = first; row < end && !Is_Interrupted(); ++row) {
        auto& known = View.Runs[row];
        if (Is_Complete(known) && !at_everything)
            continue;
        auto found = Run_Of(directory, row + 1);
        const bool same = (known == nullptr) == (found == nullptr) &&
                          (!known || (known->Verdict == found->Verdict && known->Ended == found->Ended));
        if (!same)
            known = std::move(found);
    }
}

void Plan_Survey::Count()
{
    View.Status = {.Runs = View.Runs.size(), .At_Work = Since.has_value()};
    std::size_t ended = 0;
    for (std::size_t row = 0; row < View.Runs.size(); ++row) {
        ++View.Status.By_Verdict[static_cast<std::size_t>(View.Verdict_Of(row))];
        if (Since && View.Runs[row] && View.Runs[row]->Verdict != Verdict::Running && View.Runs[row]->Ended >= *Since)
            ++ended;
    }
    if (Since)
        Estimate(View.Status, *Since, ended);
    View.Substances = Substances_Of(View);
}

void Plan_Survey::Tell(bool settled)
{
    View.Is_Settled = settled;
    Publish_View(std::make_shared<const Plan_View>(View));
}

void Plan_Survey::Wait()
{
    const auto most = View.Place.Plan.empty() ? std::chrono::milliseconds(Between_Full_Looks)
                      : Since                 ? std::chrono::milliseconds(Between_Looks_At_Work)
                      : Is_Watched            ? std::chrono::milliseconds(Between_Full_Looks)
                                              : std::chrono::milliseconds(Between_Looks_Unwatched);
    const auto begun = std::chrono::steady_clock::now();
    const auto events = Watch.Wait(most);
    const fs::path& directory = View.Place.Directory;
    const bool is_of_runs = std::ranges::any_of(events, [&](const Directory_Watch::Event& event) {
        return event.Directory.empty() || event.Directory == directory ||
               event.Directory == directory / Plan_Locks_Name || event.Directory == directory / Plan_Runs_Name;
    });
    const bool is_plan_new = std::ranges::any_of(events, [&](const Directory_Watch::Event& event) {
        return event.Directory == View.Place.Plan.parent_path() && event.Name == View.Place.Plan.filename();
    });
    const bool is_late = std::chrono::steady_clock::now() - begun >= Between_Full_Looks;
    Has_Changed = is_late || Looks_Again.exchange(false) || (!Since && is_of_runs);
    if (is_plan_new) { // it was saved anew, or has gone
        try {
            if (Sha256_Of_File(View.Place.Plan) != Digest)
                Is_New = true;
        } catch (const File_Error&) {
            Is_New = true;
        }
    }
}

} // namespace orvel
