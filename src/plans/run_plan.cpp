#include "plans/run_plan.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/flush.h"
#include "core/system/processors.h"
#include "core/write_unflushed.h"
#include "jobs/engine_start.h"
#include "jobs/engines.h"
#include "jobs/run_recording.h"
#include "output/run_outputs.h"
#include "output/run_state.h"
#include "plans/run_maker.h"
#include "plans/run_result.h"
#include "plans/work_places.h"
#include "tables/leachate_tables.h"

#include <algorithm>
#include <array>

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
    return name == Year_Cache_Name || name == Period_Cache_Name || Matches(name, "PECsoil_*.orv");
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
          Places(order.Directory, order.Part),
          At_Work(order.Directory / Plan_Stop_Name)
    {
        Count.Runs = record.Rows / order.Part.Of + (record.Rows % order.Part.Of >= order.Part.Number ? 1 : 0);
        const auto haude = Find_File(order.Directory / Inputs_Name, Haude_Name);
        if (haude)
            Haude = Read_Whole(*haude);
    }

    // The next run is made ready while the engines are at work, and begun before what has ended is recorded: as many
    // engines are at work as may be.
    Plan_Progress Work()
    {
        Remove(Order.Directory / Plan_Stop_Name);
        const auto jobs = static_cast<std::size_t>(Order.Jobs > 0 ? Order.Jobs : Processors());
        try {
            for (Plan_Row row; Goes_On() && Plan.Next(row);) {
                if (!Order.Part.Has(row.Number))
                    continue;
                auto ready = Make_Ready(row);
                if (!ready)
                    continue;
                while (At_Work.At_Work() >= jobs)
                    At_Work.Watch();
                if (Goes_On())
                    Begin(std::move(*ready));
                Keep_Ended();
            }
        } catch (const std::runtime_error& error) { // File_Error and Run_Refused
            Note_Trouble(error.what());
        }
        Keep_Ended();
        while (At_Work.At_Work() > 0) {
            At_Work.Watch();
            Keep_Ended();
        }
        if (!Trouble.empty())
            throw File_Error(Trouble);
        return Count;
    }

private:
    struct Ready_Run {
        std::size_t Row;
        fs::path Place;
        Lock Held;
        Run_Record Record;
    };

    bool Goes_On()
    {
        At_Work.Look_For_Stop();
        return Trouble.empty() && !At_Work.Stopped();
    }

    // Everything that the run of a row needs, in a place of its own; nothing if it is complete, or an engine holds it.
    std::optional<Ready_Run> Make_Ready(const Plan_Row& row)
    {
        const fs::path run = Directory_Of_Row(Order.Directory, row.Number);
        const std::string result = Read_Result(run);
        const auto done = Parse_Result(result);
        std::error_code error;
        if (done && done->front().Verdict == Verdict_Text(Verdict::Complete)) {
            if (fs::exists(run / Control_Name, error))
                Tidy_Up(run, Order.Keep);
            ++Count.Complete;
            return std::nullopt;
        }
        if (!fs::exists(run, error))
            return Make_Ready(row, Places.Take());
        auto lock = Lock_Of(run);
        if (!lock) {
            Fail(row.Number, "An engine is still at work in " + run.string() + ".");
            return std::nullopt;
        }
        const Run_State state = State_Of_Run_Held(run);
        if (state.Record && state.Verdict == Verdict::Complete && !done) { // it was cut off behind its end
            lock.reset();
            Note_Kind(row);
            Take_Result(row.Number, *state.Record);
            return std::nullopt;
        }
        const fs::path place = Places.Take(run);
        Clear(place, {});
        lock.reset();
        return Make_Ready(row, place);
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

    static void Clear(const fs::path& place, const std::vector<std::string>& but)
    {
        for (const auto& name : List_Files(place, "*")) {
            if (std::ranges::find(but, name) == but.end())
                Remove(place / name);
        }
    }

    Ready_Run Make_Ready(const Plan_Row& row, const fs::path& place)
    {
        auto lock = Lock::Take(place);
        if (!lock)
            throw File_Error("Cannot lock " + place.string() + ".");
        const Made_Run made = Maker.Make(row);
        std::vector<std::string> inputs = {std::string(Control_Name)};
        const auto put = [&](const fs::path& name, const std::string& bytes) {
            Write_Unflushed(place / name, bytes);
            inputs.push_back(name.string());
        };
        Write_Unflushed(place / Control_Name, made.Control);
        if (made.Pesticide)
            put(Path_Of(made.Pesticide_Name), *made.Pesticide);
        if (made.Scenario)
            put(Path_Of(made.Scenario_Name), *made.Scenario);
        std::error_code ignored;
        if (Haude && fs::exists(place / Haude_Name, ignored))
            inputs.emplace_back(Haude_Name); // it is the same in all runs
        else if (Haude)
            put(Haude_Name, *Haude);
        Clear(place, inputs);
        Run_Record record = At_Work.Recorder.Begin(place, Engine, Order.Limit);
        record.Directory = Recorded_Directory(Directory_Of_Row(Order.Directory, row.Number));
        Note_Kind(row);
        return {.Row = row.Number, .Place = place, .Held = std::move(*lock), .Record = std::move(record)};
    }

    void Begin(Ready_Run ready)
    {
        const fs::path run = Directory_Of_Row(Order.Directory, ready.Row);
        Program_Start start = Engine_Start(run, Engine);
        start.Kept_Descriptor = ready.Held.Descriptor();
        start.Own_Group = true;
        Places.Become(ready.Place, run);
        ready.Record.Start = std::time(nullptr);
        At_Work.Add({.Run = ready.Row, .Directory = run, .Limit = Order.Limit, .Held = std::move(ready.Held)},
                    std::move(ready.Record), start);
        ++Count.Begun;
    }

    void Note_Kind(const Plan_Row& row)
    {
        const Mode* mode =
            Plan.Columns().Kind == Plan_Kind::Modes ? Mode_Named(Plan.Cell(row, Plan_Column_Kind::Mode)) : nullptr;
        if (mode != nullptr && mode->Kind != Mode_Kind::Focus)
            Soil_Runs.insert(row.Number);
    }

    void Keep_Ended()
    {
        for (auto& ended : At_Work.Take_Ended()) {
            try {
                Keep(ended);
            } catch (const std::runtime_error& error) {
                Note_Trouble(error.what());
            }
        }
        Tell_Progress();
    }

    void Keep(Engines::Ended_Engine& ended)
    {
        const fs::path& run = ended.From.Directory;
        At_Work.Recorder.Complete(run, ended.Record, ended.End, ended.Interruption);
        if (ended.Record.Verdict == Verdict::Complete && Order.Keep != Plan_Keep::All &&
            !Soil_Runs.contains(ended.From.Run) && Keep_Leachate(run, ended.Record)) {
            ++Count.Ended;
            ++Count.Complete;
            return;
        }
        Put(ended.Record.Verdict, run / Run_Record_Name, Format_Run_Record(ended.Record));
        ended.From.Held.reset(); // the tables of a run are built when its lock is free
        Take_Result(ended.From.Run, ended.Record);
    }

    // A run that is not complete is run again whatever a power cut leaves of it.
    static void Put(Verdict verdict, const fs::path& file, const std::string& bytes)
    {
        if (verdict == Verdict::Complete)
            Write_Whole(file, bytes);
        else
            Write_Unflushed(file, bytes);
    }

    // Puts what is kept into a directory that takes the place of the run's when all of it is on the disk; false if the
    // run has no tables to be kept.
    bool Keep_Leachate(const fs::path& run, const Run_Record& record)
    {
        const Built_Leachate built = Build_Leachate(run);
        const auto result = Result_Of_Leachate(built.Tables, record);
        if (!result || !built.Tables.Failure.empty() || built.Years.empty())
            return false;
        const fs::path kept = Places.New_Empty();
        Write_Unflushed(kept / Run_Record_Name, Format_Run_Record(record));
        if (Order.Keep == Plan_Keep::Tables) {
            Write_Unflushed(kept / Year_Cache_Name, built.Years);
            Write_Unflushed(kept / Period_Cache_Name, built.Periods);
        }
        Write_Unflushed(kept / Result_Name, Format_Result(*result));
        if (!Flush_Directory_And_Files(kept))
            throw File_Error("Cannot write " + run.string() + ".");
        Places.Give_Back(Places.Take(run));
        Places.Become(kept, run);
        Flush_Directory(run.parent_path());
        return true;
    }

    void Take_Result(std::size_t row, const Run_Record& record)
    {
        const fs::path run = Directory_Of_Row(Order.Directory, row);
        if (record.Verdict != Verdict::Complete)
            Check_Space(record);
        const auto kind = Soil_Runs.erase(row) > 0 ? Result_Kind::Soil : Result_Kind::Leachate;
        Put(record.Verdict, run / Result_Name, Format_Result(Result_Of_Run(run, record, kind)));
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
    Work_Places Places;
    Engines At_Work;
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
