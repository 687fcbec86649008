#pragma once

#include "plans/plan_inputs.h"
#include "plans/plan_table.h"
#include "runs/selection.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace orvel {

// What a run of a plan consists of.
struct Made_Run {
    std::string Control;                            // bytes of orvel.inp
    std::string Pesticide_Name, Scenario_Name;      // of the documents of its own
    std::optional<std::string> Pesticide, Scenario; // their bytes, where fields are replaced
};

// Documents that were read last, so that runs that share one share its parsing.
template <class T> class Recently_Read {
public:
    explicit Recently_Read(std::size_t most) : Most(most) {}

    template <class Read> std::shared_ptr<const T> Of(const std::filesystem::path& file, Read read)
    {
        const auto known = Held.find(file);
        if (known != Held.end())
            return known->second;
        if (Held.size() >= Most)
            Held.clear();
        return Held.emplace(file, read(file)).first->second;
    }

private:
    std::size_t Most;
    std::map<std::filesystem::path, std::shared_ptr<const T>> Held;
};

// Makes the runs of a plan out of its rows.
class Run_Maker {
public:
    Run_Maker(const Program_State& program, Plan_Inputs inputs, const Plan_Reader& plan)
        : Program(program),
          Inputs(std::move(inputs)),
          Plan(plan)
    {}

    // Throws File_Error with line and column for a row that names what is not there, or a value that its field does
    // not take. What only a wrong plan can break is looked at by Check.
    Made_Run Make(const Plan_Row& row);

    // The same, and whether each replaced value survives the layout of its file; `input` gets every document that the
    // run reads.
    void Check(const Plan_Row& row, const std::function<void(const Plan_Input&)>& input);

private:
    struct Base_Scenario {
        std::string Bytes;
        Scenario_Document Document;
        Scenario_Facts Facts;
    };
    struct Documents; // of one run

    Documents Documents_Of(const Plan_Row& row);
    Plan_Input Scenario_Of(const Plan_Row& row);
    Plan_Input Pesticide_Of(const Plan_Row& row);
    void Replace(const Plan_Row& row, Documents& documents);
    void Check_Layout(const Plan_Row& row, const Documents& documents);
    Selection Select(const Plan_Row& row) const;
    Selection Judged(const Plan_Row& row, const Documents& documents);
    void Check_Climates(const Plan_Row& row, const Documents& documents,
                        const std::function<void(const Plan_Input&)>& input);
    void Check_Location(const Plan_Row& row, const Selection& selected);
    std::vector<std::string> Climates_Of(const Plan_Row& row) const;
    std::string Control_Of_Mode(const Plan_Row& row, const Documents& documents);
    std::string Control_Of_Files(const Plan_Row& row, const Documents& documents) const;
    std::string Control_Of(const Plan_Row& row, const Documents& documents);

    std::string Cell(const Plan_Row& row, Plan_Column_Kind kind) const; // bytes of Windows-1252
    int Years_Of(const Plan_Row& row) const;
    [[noreturn]] void Refuse(const Plan_Row& row, Plan_Column_Kind kind, const std::string& reason) const;
    template <class Work> auto At(const Plan_Row& row, Plan_Column_Kind kind, Work work) const;

    const Program_State& Program;
    Plan_Inputs Inputs;
    const Plan_Reader& Plan;
    Recently_Read<Pesticide_Document> Pesticides{8};
    Recently_Read<Base_Scenario> Scenarios{64};
    std::map<std::pair<const Mode*, const Crop*>, std::vector<std::string>> Locations;
    std::set<std::string> Known_Climates;
    std::unique_ptr<Pesticide_Document> Scratch = std::make_unique<Pesticide_Document>();
    std::string Checked_Layout; // of the row before: what was replaced in which document
};

} // namespace orvel
