#include "plans/run_plan.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/processors.h"
#include "core/write_unflushed.h"
#include "jobs/engine_start.h"
#include "jobs/engines.h"
#include "jobs/run_recording.h"
#include "output/run_outputs.h"
#include "output/run_state.h"
#include "plans/run_maker.h"
#include "plans/run_result.h"

#include <algorithm>
#include <array>
#include <deque>

namespace orvel {

namespace fs = std::filesystem;

namespace {

using Named_Keep = std::pair<std::string_view, Plan_Keep>;
constexpr std::array<Named_Keep, 3> Keep_Names = {
    {{"records", Plan_Keep::Records}, {"tables", Plan_Keep::Tables}, {"all", Plan_Keep::All}}};
constexpr std::uintmax_t Least_Space = 1U << 20U; // with less, a run that failed may have failed for that

void Remove(const fs::path& file)
{
    std::error_code error;
    fs::remove(file, error);
    if (error)
        throw File_Error("Cannot delete " + file.string() + ": " + error.message() + ".");
}

bool Is_Table(const std::string& name)
{
    return name == "year.orv" || name == "period.orv" || Matches(name, "PECsoil_*.orv");
}

// Takes away what is not kept. orvel.inp goes last: as long as it is there, a run is not tidied up.
void Tidy_Up(const fs::path& run, Plan_Keep keep)
{
    if (keep == Plan_Keep::All)
        return Remove(run / Progress_Name);
    for (const auto& name : List_Files(run, "*")) {
        const bool kept = name == Run_Record_Name || name == Result_Name || name == Control_Name ||
                          (keep == Plan_Keep::Tables && Is_Table(name));
        if (!kept)
            Remove(run / name);
    }
    Remove(run / Control_Name);
}

class Plan_Runner {
public:
    Plan_Runner(const Program_State& program, const Plan_Order& order, const Plan_Record& record,
                const Plan_Watch& watch)
        : Order(order),
          Watch(watch),
          Plan(Source_Of_File(order.Directory / Plan_Copy_Name)),
          Maker(program, Plan_Inputs::Of_Plan(order.Directory), Plan),
          Engine(order.Directory / Inputs_Name / Path_Of(record.Engine)),
          At_Work(order.Directory / Plan_Stop_Name,
                  [this](std::size_t run, const Run_Record& ended, const std::string& error) {
                      Ended.push_back({run, ended, error});
                  })
    {
        Count.Runs = record.Rows / order.Part.Of + (record.Rows % order.Part.Of >= order.Part.Number ? 1 : 0);
        const auto haude = Find_File(order.Directory / Inputs_Name, Haude_Name);
        if (haude)
            Haude = Read_Whole(*haude);
    }

    Plan_Progress Work()
    {
        Remove(Order.Directory / Plan_Stop_Name);
        const auto jobs = static_cast<std::size_t>(Order.Jobs > 0 ? Order.Jobs : Processors());
        try {
            for (Plan_Row row; Goes_On() && Plan.Next(row);) {
                if (!Order.Part.Has(row.Number))
                    continue;
                Look_At(row);
                while (At_Work.At_Work() >= jobs)
                    Wait();
            }
        } catch (const std::runtime_error& error) { // File_Error and Run_Refused
            Note_Trouble(error.what());
        }
        while (At_Work.At_Work() > 0)
            Wait();
        Tell_Progress();
        if (!Trouble.empty())
            throw File_Error(Trouble);
        return Count;
    }

private:
    struct Ended_Run {
        std::size_t Row;
        Run_Record Record;
        std::string Error;
    };

    bool Goes_On()
    {
        At_Work.Look_For_Stop();
        return Trouble.empty() && !At_Work.Stopped();
    }

    // Begins the run of a row, unless it is complete.
    void Look_At(const Plan_Row& row)
    {
        const fs::path run = Directory_Of_Row(Order.Directory, row.Number);
        const std::string result = Read_Result(run);
        const auto done = Parse_Result(result);
        if (done && done->front().Verdict == Verdict_Text(Verdict::Complete)) {
            std::error_code ignored;
            if (fs::exists(run / Control_Name, ignored))
                Tidy_Up(run, Order.Keep);
            ++Count.Complete;
            return;
        }
        std::error_code error;
        fs::create_directories(run, error);
        if (error)
            throw File_Error("Cannot create " + run.string() + ": " + error.message() + ".");
        auto lock = Lock_Of(run);
        if (!lock)
            return Fail(row.Number, "An engine is still at work in " + run.string() + ".");
        const Run_State state = State_Of_Run_Held(run);
        if (state.Record && state.Verdict == Verdict::Complete && !done) { // it was cut off behind its end
            lock.reset();
            Note_Kind(row);
            return Take_Result(row.Number, *state.Record);
        }
        Begin(row, run, std::move(*lock));
    }

    // The engine of a plan run that was killed may still be at work: it is ended, since nobody records its end.
    static std::optional<Lock> Lock_Of(const fs::path& run)
    {
        constexpr std::chrono::seconds Longest_Wait(5);
        if (auto lock = Lock::Take(run))
            return lock;
        End_Holders(run);
        return Lock::Take_Within(run, Longest_Wait);
    }

    void Begin(const Plan_Row& row, const fs::path& run, Lock lock)
    {
        Remove(run / Result_Name);
        Delete_Output(run);
        Made_Run made = Maker.Make(row);
        if (made.Pesticide)
            Write_Unflushed(run / Path_Of(made.Pesticide_Name), *made.Pesticide);
        if (made.Scenario)
            Write_Unflushed(run / Path_Of(made.Scenario_Name), *made.Scenario);
        if (Haude)
            Write_Unflushed(run / Haude_Name, *Haude);
        Write_Unflushed(run / Control_Name, made.Control);
        Program_Start start = Engine_Start(run, Engine);
        Run_Record record = At_Work.Recorder.Begin(run, Engine, Order.Limit);
        start.Kept_Descriptor = lock.Descriptor();
        start.Own_Group = true;
        At_Work.Add({.Run = row.Number, .Directory = run, .Limit = Order.Limit, .Held = std::move(lock)},
                    std::move(record), start);
        Note_Kind(row);
        ++Count.Begun;
    }

    void Note_Kind(const Plan_Row& row)
    {
        const Mode* mode =
            Plan.Columns().Kind == Plan_Kind::Modes ? Mode_Named(Plan.Cell(row, Plan_Column_Kind::Mode)) : nullptr;
        if (mode != nullptr && mode->Kind != Mode_Kind::Focus)
            Soil_Runs.insert(row.Number);
    }

    // The tables of a run are built when its lock is free.
    void Wait()
    {
        At_Work.Wait();
        for (; !Ended.empty(); Ended.pop_front()) {
            const Ended_Run& run = Ended.front();
            try {
                if (!run.Error.empty())
                    throw File_Error(run.Error);
                Take_Result(run.Row, run.Record);
            } catch (const std::runtime_error& error) {
                Note_Trouble(error.what());
            }
        }
        Tell_Progress();
    }

    void Take_Result(std::size_t row, const Run_Record& record)
    {
        const fs::path run = Directory_Of_Row(Order.Directory, row);
        if (record.Verdict != Verdict::Complete)
            Check_Space(record);
        const auto kind = Soil_Runs.erase(row) > 0 ? Result_Kind::Soil : Result_Kind::Leachate;
        Write_Whole(run / Result_Name, Format_Result(Result_Of_Run(run, record, kind)));
        ++Count.Ended;
        if (record.Verdict == Verdict::Stopped)
            return;
        if (record.Verdict != Verdict::Complete)
            return Fail(row, To_Utf8(record.Reason));
        ++Count.Complete;
        Tidy_Up(run, Order.Keep);
    }

    // A run that has failed on a full disk has no result: it is run again.
    void Check_Space(const Run_Record& record) const
    {
        std::error_code error;
        const auto space = fs::space(Order.Directory, error);
        if (!error && space.available < Least_Space)
            throw File_Error("The disk of " + Order.Directory.string() + " is full. " + To_Utf8(record.Reason));
    }

    void Fail(std::size_t row, const std::string& reason)
    {
        constexpr std::size_t Most_Told = 20;
        if (++Count.Failed <= Most_Told && Watch.Told)
            Watch.Told("Run " + std::to_string(row) + ": " + reason);
    }

    // The first trouble ends the plan.
    void Note_Trouble(const std::string& sentence)
    {
        if (Trouble.empty())
            Trouble = sentence + " What is done stays; run the plan again to go on.";
    }

    void Tell_Progress() const
    {
        if (Watch.Progress)
            Watch.Progress(Count);
    }

    const Plan_Order& Order;
    const Plan_Watch& Watch;
    Plan_Reader Plan;
    Run_Maker Maker;
    fs::path Engine;
    std::optional<std::string> Haude;
    Engines At_Work;
    std::deque<Ended_Run> Ended;
    std::set<std::size_t> Soil_Runs; // of those begun, the ones of a soil mode
    Plan_Progress Count;
    std::string Trouble;
};

} // namespace

const Plan_Keep* Keep_Named(std::string_view name)
{
    const auto* const found = std::ranges::find(Keep_Names, name, &Named_Keep::first);
    return found == Keep_Names.end() ? nullptr : &found->second;
}

std::string_view Keep_Name(Plan_Keep keep)
{
    return std::ranges::find(Keep_Names, keep, &Named_Keep::second)->first;
}

Plan_Progress Run_Plan(const Program_State& program, const Plan_Order& order, const Plan_Record& record,
                       const Plan_Watch& watch)
{
    return Plan_Runner(program, order, record, watch).Work();
}

} // namespace orvel
