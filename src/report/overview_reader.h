#pragma once

#include "core/progress.h"
#include "jobs/input_changes.h"
#include "output/record_check.h"
#include "report/overview.h"

namespace orvel {

// The concentration in soil that an overview of the soil modes shows.
struct Soil_Choice {
    int Depth = 1;          // layers of a centimetre
    std::size_t Window = 0; // place in TWA_Window: 0 is the actual maximum
    bool operator==(const Soil_Choice&) const = default;
};

// Looks at the runs of a mode one after another, as often as asked. Nothing that fails at one run keeps it from the
// others: the run says so.
class Overview_Reader {
public:
    Overview_Reader(std::filesystem::path app_path, const Mode& mode, Soil_Choice soil = {});

    // A pass over the runs begins: files that runs share may have come, changed and gone since the last one.
    void Begin_Pass()
    {
        Files.Begin_Pass();
        Sources.Begin_Pass();
    }

    // The state of a run, and its figures if its tables are stored; no big file is read. `Pending` is set if that
    // leaves anything open.
    Overview_Run Look(const Simulation& place);

    // The rest: builds the tables, and compares the files with their digests.
    void Look_Closer(Overview_Run& run, const Progress& progress = {});

    std::string Quantity() const; // what the figures are

private:
    void Take_State(Overview_Run& run, const Simulation& simulation);
    void Take_Ended(Overview_Run& run, const Simulation& simulation);
    void Take_Figures(Overview_Run& run, bool build, const Progress& progress);
    void Take_Leachate(Overview_Run& run, bool build, const Progress& progress);
    void Compare(Overview_Run& run, const Run_Record& record);
    void Take_Soil(Overview_Run& run, bool build, const Progress& progress);

    const Mode& The_Mode;
    Soil_Choice Soil;
    Record_Check Files;
    Input_Changes Sources;
};

// The runs, looked at closely. Throws Reading_Stopped if the user stopped it.
std::vector<Overview_Run> Gather_Runs(Overview_Reader& reader, const std::vector<Simulation>& places,
                                      const Progress& progress = {});

// All runs of a mode, or of one pesticide (stem of its file) and crop, looked at closely. Throws File_Error for a mode
// without a directory and for a pesticide or crop without runs, and Reading_Stopped if the user stopped it.
struct Overview_Request {
    std::string Pesticide, Crop;    // empty: all
    std::vector<std::string> Codes; // of locations; empty: all
    Soil_Choice Soil;
    std::optional<Compared_Assessment> Compared = std::nullopt;
};
Overview Gather_Overview(const Program_State& program, const Mode& mode, const Overview_Request& request,
                         const Progress& progress = {});

} // namespace orvel
