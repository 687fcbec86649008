#include "records/results.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/run_name.h"
#include "jobs/run_tree.h"
#include "output/run_files.h"
#include "output/run_state.h"
#include "report/overview.h"
#include "tables/leachate_tables.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Not_There = "There is no such simulation.";

// Why the tables of a run give no figures, a sentence; empty if they do.
std::string Problem_Of(const Leachate_Tables& tables, const fs::path& run)
{
    if (tables.Unreadable) // whether there are figures is not known
        throw File_Error(To_Utf8(tables.Failure));
    if (!tables.Gap.empty())
        return tables.Gap;
    if (!tables.Failure.empty())
        return tables.Failure;
    const auto verdict = State_Of_Run(run).Verdict;
    if (verdict == Verdict::Running || verdict == Verdict::Scheduled)
        return "The simulation is " + std::string(Verdict_Text(verdict)) + ".";
    if (tables.Run_Failed)
        return "The simulation failed.";
    const auto& periods = tables.Period[static_cast<std::size_t>(Depth::One_Metre)];
    return periods.empty() ? "The simulation has no tables." : std::string();
}

// Results that have not found their counterpart yet.
class Unpaired {
public:
    explicit Unpaired(const std::vector<Run_Figure>& results)
    {
        for (const auto& result : results)
            Left.emplace(std::pair(result.Key, result.Substance), &result);
    }

    // The first of the same run and substance, which is then taken; nullptr without one.
    const Run_Figure* Take(const Run_Figure& like)
    {
        const std::pair key(like.Key, like.Substance);
        const auto found = Left.lower_bound(key);
        if (found == Left.end() || found->first != key)
            return nullptr;
        const Run_Figure* taken = found->second;
        Left.erase(found);
        return taken;
    }

private:
    std::multimap<std::pair<Run_Key, std::string>, const Run_Figure*> Left;
};

// Why one side has no figure of a run's substance.
class States {
public:
    explicit States(const std::vector<Run_Figure>& results)
    {
        for (const auto& result : results)
            Known.emplace(result.Key, result.State);
    }

    bool Has_Figures(const Run_Key& key) const
    {
        const auto found = Known.find(key);
        return found != Known.end() && found->second.empty();
    }

    std::string Of(const Run_Key& key) const
    {
        const auto found = Known.find(key);
        if (found == Known.end())
            return std::string(Not_There);
        return found->second.empty() ? "The simulation has no such substance." : found->second;
    }

private:
    std::map<Run_Key, std::string> Known;
};

} // namespace

bool Is_Within(double first, double second, double tolerance)
{
    return first == second || (first != 0 && std::abs(second / first - 1) <= tolerance);
}

std::vector<Found_Run> Runs_Below(const fs::path& directory, std::string_view mode)
{
    std::vector<Found_Run> runs;
    for (const auto& pesticide : Run_Entries(directory)) {
        for (const auto& crop : Run_Entries(pesticide.Directory)) {
            for (const auto& location : Run_Entries(crop.Directory))
                runs.push_back({{std::string(mode), pesticide.Name, crop.Name, location.Name}, location.Directory});
        }
    }
    return runs;
}

std::vector<Run_Figure> Figures_Of(const Found_Run& run, const Progress& progress)
{
    bool stopped = false;
    const auto tables = Build_Or_Load(run.Directory, [&](const std::string& message, double share) {
        stopped = progress && !progress(message, share);
        return !stopped;
    });
    if (stopped)
        throw Reading_Stopped();
    const std::string problem = Problem_Of(tables, run.Directory);
    if (!problem.empty())
        return {{run.Key, "", std::nullopt, problem}};
    std::vector<Run_Figure> results;
    const auto& periods = tables.Period[static_cast<std::size_t>(Depth::One_Metre)];
    for (std::size_t s = 0; s < periods.size(); ++s) {
        const std::string name = s < tables.Result_Name.size() ? Substance_Of(tables.Result_Name[s]) : periods[s].Label;
        results.push_back({run.Key, name, periods[s].Result.P80.Conc, ""});
    }
    return results;
}

std::vector<Run_Figure> Figures_Of(const std::vector<Found_Run>& runs, const Progress& progress)
{
    std::vector<Run_Figure> results;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        std::ranges::move(Figures_Of(runs[i],
                                     [&](const std::string& message, double share) {
                                         return !progress || progress(message, (static_cast<double>(i) + share) /
                                                                                   static_cast<double>(runs.size()));
                                     }),
                          std::back_inserter(results));
    }
    return results;
}

bool Compared_Result::Is_Same(double tolerance) const
{
    if (First && Second)
        return Is_Within(*First, *Second, tolerance);
    return !First && !Second && First_State == Second_State;
}

std::vector<Compared_Result> Compare_Results(const std::vector<Run_Figure>& first,
                                             const std::vector<Run_Figure>& second)
{
    Unpaired others(second);
    const States first_states(first), second_states(second);
    std::vector<Compared_Result> compared;
    for (const auto& one : first) {
        if (!one.Value && second_states.Has_Figures(one.Key))
            continue; // the state stands beside each of them
        Compared_Result row{one.Key, one.Substance, one.Value, std::nullopt, one.State, "", std::nullopt};
        if (const Run_Figure* other = others.Take(one)) {
            row.Second = other->Value;
            row.Second_State = other->State;
        } else {
            row.Second_State = second_states.Of(one.Key);
        }
        if (row.First && row.Second)
            row.Ratio = Ratio_Of(*row.First, *row.Second);
        compared.push_back(std::move(row));
    }
    for (const auto& other : second) {
        const bool is_said = !other.Value && first_states.Has_Figures(other.Key);
        if (others.Take(other) && !is_said)
            compared.push_back({other.Key, other.Substance, std::nullopt, other.Value, first_states.Of(other.Key),
                                other.State, std::nullopt});
    }
    return compared;
}

} // namespace orvel
