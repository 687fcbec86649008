#include "evaluation/overview_rows.h"

#include "core/text.h"

#include <algorithm>
#include <array>

namespace orvel {

namespace {

bool Fits(const Overview& overview, const Overview_Row& row, const Row_Filter& filter)
{
    const std::string part = Upper(filter.Text);
    const auto has_part = [&](const std::string& text) { return Contains(Upper(text), part); };
    if (!has_part(row.Pesticide) && !has_part(row.Crop) && !has_part(row.Substance))
        return false;
    if (!filter.Crop.empty() && row.Crop != filter.Crop)
        return false;
    if (filter.Above_Limit && row.Above == 0)
        return false;
    return !filter.State || std::ranges::any_of(row.Cells, [&](const Overview_Cell& cell) {
        return cell.Run >= 0 && overview.Runs[static_cast<std::size_t>(cell.Run)].Kind == *filter.State;
    });
}

double Value_Of(const Overview& overview, const Overview_Row& row, Row_Key key, std::size_t location)
{
    constexpr double Below_All = -1; // states
    if (key == Row_Key::Above)
        return row.Above;
    const auto column = key == Row_Key::Highest ? static_cast<std::size_t>(row.Highest) : location;
    const Overview_Figure* figure =
        key == Row_Key::Highest && row.Highest < 0 ? nullptr : Figure_At(overview, row, column);
    return figure == nullptr ? Below_All : figure->Value;
}

} // namespace

std::vector<Row_Group> Groups_Of(const Overview& overview, const Row_Filter& filter)
{
    std::vector<Row_Group> groups;
    std::vector<bool> fits;
    for (std::size_t i = 0; i < overview.Rows.size(); ++i) {
        if (overview.Rows[i].Is_Metabolite && !groups.empty()) {
            groups.back().Metabolites.push_back(i);
        } else {
            groups.push_back({i, {}});
            fits.push_back(false);
        }
        fits.back() = fits.back() || Fits(overview, overview.Rows[i], filter);
    }
    std::size_t at = 0;
    std::erase_if(groups, [&](const Row_Group&) { return !fits[at++]; });
    return groups;
}

void Sort_Groups(const Overview& overview, std::vector<Row_Group>& groups, Row_Key key, std::size_t location,
                 bool descending)
{
    std::ranges::stable_sort(groups, [&](const Row_Group& a, const Row_Group& b) {
        const auto& first = overview.Rows[descending ? b.Parent : a.Parent];
        const auto& second = overview.Rows[descending ? a.Parent : b.Parent];
        if (key == Row_Key::Pesticide)
            return Upper(first.Pesticide) < Upper(second.Pesticide);
        if (key == Row_Key::Crop)
            return Upper(first.Crop) < Upper(second.Crop);
        if (key == Row_Key::Substance)
            return Upper(first.Substance) < Upper(second.Substance);
        return Value_Of(overview, first, key, location) < Value_Of(overview, second, key, location);
    });
}

Overview With_Rows(const Overview& overview, const std::vector<Row_Group>& groups)
{
    Overview shown = overview;
    shown.Rows.clear();
    for (const auto& group : groups) {
        shown.Rows.push_back(overview.Rows[group.Parent]);
        for (const auto metabolite : group.Metabolites)
            shown.Rows.push_back(overview.Rows[metabolite]);
    }
    return shown;
}

std::string Counts_Text(const Overview& overview)
{
    constexpr std::array<std::string_view, 11> Words = {
        "with figures",         "scheduled",     "running",    "failed",          "stopped",
        "incomplete",           "changed since", "being read", "without figures", "unreadable",
        "only in the other one"};
    std::array<int, Words.size()> counts{};
    for (const auto& run : overview.Runs)
        ++counts[static_cast<std::size_t>(run.Kind)];
    std::string text;
    for (std::size_t i = 0; i < Words.size(); ++i) {
        if (counts[i] > 0)
            text += (text.empty() ? ": " : ", ") + std::to_string(counts[i]) + " " + std::string(Words[i]);
    }
    const auto here = static_cast<int>(overview.Runs.size()) - counts[static_cast<std::size_t>(Cell_Kind::Absent)];
    return std::to_string(here) + (here == 1 ? " simulation" : " simulations") + text;
}

} // namespace orvel
