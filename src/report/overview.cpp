#include "report/overview.h"

#include "core/locations.h"
#include "core/numbers.h"
#include "core/text.h"
#include "output/run_outputs.h"
#include "report/run_results.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>

namespace orvel {

namespace {

constexpr std::string_view Pore_Water_Begin = "P_"; // of the codes of the soil zones
constexpr std::string_view Not_Simulated = "not simulated";

std::string Marked(const std::string& figure, const std::string& mark)
{
    return figure + (mark.empty() ? "" : " (" + mark + ")");
}

bool Is_Counted(const Overview_Run& run, const std::vector<std::string>& codes)
{
    const std::string code = Column_Code(run.Location);
    return codes.empty() ||
           std::ranges::any_of(codes, [&](const std::string& counted) { return Same_Text(counted, code); });
}

// The place of a location among all, those that are not known last.
std::size_t Rank_Of(const std::string& code)
{
    const auto* const found = std::ranges::find(Locations, code, &Location::Code);
    return static_cast<std::size_t>(found - Locations.begin());
}

std::string Heading_Of(const std::string& code)
{
    const std::string name = Location_Name(code);
    return name.empty() ? code : name;
}

// -1: none.
int Place_Of(const std::string& substance, const std::vector<Overview_Figure>& figures)
{
    const auto found = std::ranges::find(figures, substance, &Overview_Figure::Substance);
    return found == figures.end() ? -1 : static_cast<int>(found - figures.begin());
}

// One pesticide, crop and unit.
using Group_Key = std::array<std::string, 3>;

class Arranger {
public:
    explicit Arranger(Overview& overview) : Target(overview) {}

    void Arrange()
    {
        Group();
        Add_Columns();
        for (const auto& [key, runs] : Groups)
            Add_Rows(key, runs);
    }

private:
    void Group()
    {
        for (std::size_t i = 0; i < Target.Runs.size(); ++i) {
            const Group_Key key = {Target.Runs[i].Pesticide, Target.Runs[i].Crop, Target.Runs[i].Unit};
            if (Groups.empty() || Groups.back().first != key) {
                const auto found = std::ranges::find(Groups, key, &std::pair<Group_Key, std::vector<int>>::first);
                if (found != Groups.end()) {
                    found->second.push_back(static_cast<int>(i));
                    continue;
                }
                Groups.push_back({key, {}});
            }
            Groups.back().second.push_back(static_cast<int>(i));
        }
    }

    // A column a code; a crop that was run twice at one location, with and without irrigation, gets a second column.
    void Add_Columns()
    {
        for (const auto& [key, runs] : Groups) {
            std::map<std::string, int> seen;
            for (const int run : runs) {
                const auto& location = Target.Runs[static_cast<std::size_t>(run)].Location;
                std::string code = Column_Code(location);
                if (seen[code]++ > 0)
                    code = location;
                Column_Of_Run[run] = code;
                if (std::ranges::find(Codes, code) == Codes.end())
                    Codes.push_back(code);
            }
        }
        std::ranges::stable_sort(Codes, {}, Rank_Of);
        for (const auto& code : Codes)
            Target.Columns.push_back(Heading_Of(code));
    }

    void Add_Rows(const Group_Key& key, const std::vector<int>& runs)
    {
        std::vector<std::pair<std::string, bool>> substances;
        for (const auto figures : {&Overview_Run::Figures, &Overview_Run::Others}) {
            for (const int run : runs)
                Add_Substances(Target.Runs[static_cast<std::size_t>(run)].*figures, substances);
        }
        std::ranges::stable_sort(substances, {}, &std::pair<std::string, bool>::second);
        if (substances.empty())
            substances.emplace_back();
        for (const auto& [name, is_metabolite] : substances) {
            auto& row = Target.Rows.emplace_back(Overview_Row{.Pesticide = key[0],
                                                              .Crop = key[1],
                                                              .Substance = name,
                                                              .Is_Metabolite = is_metabolite,
                                                              .Unit = key[2]});
            row.Cells.resize(Codes.size());
            for (const int run : runs)
                Fill(row, run);
        }
    }

    static void Add_Substances(const std::vector<Overview_Figure>& figures,
                               std::vector<std::pair<std::string, bool>>& substances)
    {
        for (std::size_t s = 0; s < figures.size(); ++s) {
            const auto& name = figures[s].Substance;
            if (std::ranges::find(substances, name, &std::pair<std::string, bool>::first) == substances.end())
                substances.emplace_back(name, s > 0);
        }
    }

    void Fill(Overview_Row& row, int place)
    {
        const auto column = static_cast<std::size_t>(std::ranges::find(Codes, Column_Of_Run.at(place)) - Codes.begin());
        const auto& run = Target.Runs[static_cast<std::size_t>(place)];
        auto& cell = row.Cells[column];
        cell = {place, Place_Of(row.Substance, run.Figures), Place_Of(row.Substance, run.Others)};
        row.Simulations += run.Kind == Cell_Kind::Absent ? 0 : 1;
        if (cell.Figure < 0)
            return;
        const auto& figure = run.Figures[static_cast<std::size_t>(cell.Figure)];
        ++row.Figures;
        row.Above += figure.Above_Limit ? 1 : 0;
        if (row.Highest < 0 || figure.Value > Value_At(row, static_cast<std::size_t>(row.Highest)))
            row.Highest = static_cast<int>(column);
    }

    double Value_At(const Overview_Row& row, std::size_t column) const { return Figure_At(Target, row, column)->Value; }

    Overview& Target;
    std::vector<std::pair<Group_Key, std::vector<int>>> Groups;
    std::map<int, std::string> Column_Of_Run;
    std::vector<std::string> Codes;
};

} // namespace

Overview Arrange_Overview(Mode_Kind mode, std::string quantity, std::vector<Overview_Run> runs,
                          const std::vector<std::string>& codes)
{
    Overview overview{.Mode = mode, .Quantity = std::move(quantity), .Has_Limit = mode == Mode_Kind::Focus};
    std::erase_if(runs, [&](const Overview_Run& run) { return !Is_Counted(run, codes); });
    for (auto& run : runs) {
        if (run.Unit.empty())
            run.Unit = overview.Has_Limit                                        ? "\xB5g/L"
                       : Column_Code(run.Location).starts_with(Pore_Water_Begin) ? "mg/L"
                                                                                 : "mg/kg";
    }
    overview.Runs = std::move(runs);
    Arranger(overview).Arrange();
    return overview;
}

std::string Column_Code(std::string_view location)
{
    std::string code = Bracket_Text(location);
    return code.empty() ? std::string(location) : code;
}

const Overview_Run* Run_At(const Overview& overview, const Overview_Row& row, std::size_t column)
{
    if (column >= row.Cells.size() || row.Cells[column].Run < 0)
        return nullptr;
    return &overview.Runs[static_cast<std::size_t>(row.Cells[column].Run)];
}

const Overview_Figure* Figure_At(const Overview& overview, const Overview_Row& row, std::size_t column)
{
    const Overview_Run* run = Run_At(overview, row, column);
    if (run == nullptr || row.Cells[column].Figure < 0)
        return nullptr;
    return &run->Figures[static_cast<std::size_t>(row.Cells[column].Figure)];
}

const Overview_Figure* Other_At(const Overview& overview, const Overview_Row& row, std::size_t column)
{
    const Overview_Run* run = Run_At(overview, row, column);
    if (run == nullptr || row.Cells[column].Other < 0)
        return nullptr;
    return &run->Others[static_cast<std::size_t>(row.Cells[column].Other)];
}

std::string State_Text(const Overview_Run& run)
{
    switch (run.Kind) {
    case Cell_Kind::Figure:
        return {};
    case Cell_Kind::Running:
        return "running " + std::to_string(run.Percent) + " %";
    case Cell_Kind::Incomplete:
        return run.Years < run.Years_Expected ? "incomplete: " + Years_Text(run.Years, run.Years_Expected)
                                              : "incomplete";
    default:
        constexpr std::array<std::string_view, 11> Words = {
            "",           "scheduled", "",           "failed",       "stopped", "", "changed since",
            "being read", "no figure", "unreadable", "not simulated"};
        return std::string(Words[static_cast<std::size_t>(run.Kind)]);
    }
}

std::string Mark_Text(const Overview_Run& run)
{
    if (run.Kind != Cell_Kind::Figure)
        return {};
    if (run.Verdict == Verdict::Unrecorded)
        return "unrecorded";
    if (!run.Checked)
        return "not checked";
    if (run.Changed_Inputs.empty())
        return {};
    const auto is_another = [](const Source_Change& change) { return change.Unread.empty(); };
    return std::ranges::any_of(run.Changed_Inputs, is_another) ? "inputs changed since" : "inputs unreadable";
}

std::string Cell_Text(const Overview& overview, const Overview_Row& row, std::size_t column)
{
    const Overview_Run* run = Run_At(overview, row, column);
    if (run == nullptr)
        return {};
    const Overview_Figure* figure = Figure_At(overview, row, column);
    if (figure == nullptr)
        return run->Kind == Cell_Kind::Figure ? std::string(Not_Simulated) : State_Text(*run);
    return Marked(figure->Text, Mark_Text(*run));
}

std::string Other_Text(const Overview& overview, const Overview_Row& row, std::size_t column)
{
    const Overview_Run* run = Run_At(overview, row, column);
    if (run == nullptr || overview.Compared_With.empty())
        return {};
    const Overview_Figure* other = Other_At(overview, row, column);
    if (other == nullptr)
        return run->Others.empty() ? run->Other_State : std::string(Not_Simulated);
    return Marked(other->Text, run->Other_State);
}

std::optional<double> Ratio_Of(double first, double second)
{
    if (first == second)
        return 1;
    return first == 0 ? std::nullopt : std::optional(second / first);
}

std::optional<double> Ratio_At(const Overview& overview, const Overview_Row& row, std::size_t column)
{
    const Overview_Figure* figure = Figure_At(overview, row, column);
    const Overview_Figure* other = Other_At(overview, row, column);
    return figure == nullptr || other == nullptr ? std::nullopt : Ratio_Of(figure->Value, other->Value);
}

std::string Ratio_Text(const std::optional<double>& ratio)
{
    if (!ratio)
        return {};
    return *ratio == 1 ? "1" : Format_Pattern(*ratio, *ratio >= 0.01 && *ratio < 1000 ? "0.00" : "0.00E+00");
}

std::string Compared_Cell_Text(const Overview& overview, const Overview_Row& row, std::size_t column)
{
    const std::string other = Other_Text(overview, row, column);
    const std::string ratio = Ratio_Text(Ratio_At(overview, row, column));
    return Cell_Text(overview, row, column) + (other.empty() ? "" : " | " + other) +
           (ratio.empty() ? "" : " | \xD7" + ratio);
}

std::string Highest_Text(const Overview& overview, const Overview_Row& row)
{
    return row.Highest < 0 ? std::string() : Figure_At(overview, row, static_cast<std::size_t>(row.Highest))->Text;
}

std::string Above_Text(const Overview_Row& row)
{
    const int open = row.Simulations - row.Figures;
    return std::to_string(row.Above) + " of " + std::to_string(row.Figures) +
           (open > 0 ? "; " + std::to_string(open) + " without a figure" : "");
}

std::vector<std::string> Sentences_Of(const Overview& overview)
{
    std::vector<std::string> sentences = {overview.Quantity + "."};
    if (overview.Has_Limit)
        sentences.push_back("Figures in bold are above the limit of drinking water, " + Limit_Text() + ".");
    if (!overview.Compared_With.empty())
        sentences.push_back("Compared with " + overview.Compared_With +
                            ": beside each figure stand that of the other one and the ratio of the other one to this.");
    return sentences;
}

std::vector<std::string> Explanation_Of(const Overview_Run& run)
{
    std::vector<std::string> told;
    if (!run.Reason.empty())
        told.push_back(run.Reason);
    if (run.Kind == Cell_Kind::Figure && run.Verdict == Verdict::Unrecorded && run.Reason.empty())
        told.emplace_back("The run has no record: nothing tells whether its files are those of the engine.");
    if (run.Kind == Cell_Kind::Figure && run.Verdict == Verdict::Complete && !run.Checked)
        told.emplace_back("Its files were copied or touched since they were recorded, and are still to be compared.");
    if (run.Years > 0)
        told.push_back(std::to_string(run.Years) + " years were simulated.");
    if (run.Dry_Periods > 0)
        told.push_back(
            "Periods without percolate, which count as 0 in the percentile: " + std::to_string(run.Dry_Periods) + ".");
    std::ranges::transform(run.Changed_Inputs, std::back_inserter(told), Change_Text);
    return told;
}

std::string_view Verdict_Word(const Overview_Run& run)
{
    if (run.Kind == Cell_Kind::Absent)
        return {};
    return run.Kind == Cell_Kind::Changed ? "changed" : Verdict_Text(run.Verdict);
}

void Compare_With(std::vector<Overview_Run>& runs, const Compared_Assessment& other)
{
    using Key = std::array<std::string_view, 3>;
    const auto key_of = [](const Overview_Run& run) { return Key{run.Pesticide, run.Crop, run.Location}; };
    std::map<Key, const Overview_Run*> others;
    for (const auto& run : other.Runs)
        others.emplace(key_of(run), &run);
    for (auto& run : runs) {
        const auto found = others.extract(key_of(run));
        run.Others = found.empty() ? std::vector<Overview_Figure>() : found.mapped()->Figures;
        run.Other_State = found.empty()                               ? std::string(Not_Simulated)
                          : found.mapped()->Kind == Cell_Kind::Figure ? Mark_Text(*found.mapped())
                                                                      : State_Text(*found.mapped());
    }
    for (const auto& run : other.Runs) {
        if (!others.contains(key_of(run)))
            continue;
        runs.push_back({.Pesticide = run.Pesticide,
                        .Crop = run.Crop,
                        .Location = run.Location,
                        .Kind = Cell_Kind::Absent,
                        .Unit = run.Unit,
                        .Others = run.Figures,
                        .Other_State = run.Kind == Cell_Kind::Figure ? Mark_Text(run) : State_Text(run)});
    }
}

std::size_t Class_Of(double value, const std::vector<double>& bounds)
{
    return static_cast<std::size_t>(std::ranges::count_if(bounds, [&](double bound) { return value >= bound; }));
}

} // namespace orvel
