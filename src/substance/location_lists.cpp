#include "substance/location_lists.h"

#include "core/text.h"
#include "substance/location_choice.h"

#include <algorithm>
#include <memory>

namespace orvel {

namespace {

// The blocks 1 to 9 in their new order: those of the visible kind, then the other kind, then those without a name.
std::vector<int> Block_Order(const Pesticide_Document& document, bool efsa)
{
    std::vector<int> blocks;
    for (int l = 1; l <= Last_Location; ++l)
        blocks.push_back(l);
    std::ranges::stable_sort(blocks, {}, [&](int l) {
        const auto& name = document.App_Location[l];
        return name.empty() ? 2 : Is_Soil_Zone(name) == efsa ? 0 : 1;
    });
    return blocks;
}

void Order_Blocks(Pesticide_Edit edit, const std::vector<int>& blocks)
{
    auto& document = edit.Document;
    const auto applications = std::make_unique<decltype(document.Applications)>(document.Applications);
    const auto counts = document.App_Count;
    const auto names = document.App_Location;
    const auto per_year = edit.Editor.App_Per_Year;
    for (int l = 1; l <= Last_Location; ++l) {
        const int from = blocks[l - 1];
        document.Applications[l] = (*applications)[from];
        document.App_Count[l] = counts[from];
        document.App_Location[l] = names[from];
        edit.Editor.App_Per_Year[l] = per_year[from];
    }
}

} // namespace

bool Is_Soil_Zone(std::string_view name)
{
    return Contains(name, "_");
}

Location_Lists Load_Location_Lists(Pesticide_Edit edit)
{
    auto& names = edit.Document.App_Location;
    const auto last =
        std::find_if(names.rbegin(), names.rend() - 1, [](const std::string& name) { return !name.empty(); });
    const bool efsa = last != names.rend() - 1 && Is_Soil_Zone(*last);
    if (const auto order = Block_Order(edit.Document, efsa); !std::ranges::is_sorted(order))
        Order_Blocks(edit, order);

    Location_Lists lists{{std::string(User_Specific)}, {std::string(User_Specific)}, efsa};
    for (int l = 1; l <= Last_Location; ++l) {
        if (!names[l].empty())
            (Is_Soil_Zone(names[l]) ? lists.Standort_EFSA : lists.Standort).push_back(names[l]);
    }
    return lists;
}

std::optional<int> Selected_Location(const Editor_State& editor, const Location_Lists& lists)
{
    const int location = editor.App_Current_Location;
    if (location < 0 || location >= static_cast<int>(lists.Visible().size()))
        return std::nullopt;
    return location;
}

void Store_Location_Names(Pesticide_Document& document, const Location_Lists& lists)
{
    const auto& list = lists.Visible();
    for (int l = 1; l <= Last_Location; ++l)
        document.App_Location[l] = l < static_cast<int>(list.size()) ? list[l] : "";
}

int Take_Chosen_Locations(Pesticide_Edit edit, Location_Lists& lists, bool efsa,
                          const std::vector<std::string>& offered, const std::vector<std::string>& selected)
{
    auto& list = efsa ? lists.Standort_EFSA : lists.Standort;
    const auto before = lists.Visible();
    // The blocks belong to the visible list: an entry of the other one is dropped without them.
    if (lists.EFSA_Visible != efsa)
        std::erase_if(list, [&](const std::string& name) { return Holds(offered, name) && !Holds(selected, name); });
    const bool grows = std::ranges::any_of(selected, [&](const std::string& name) { return !Holds(list, name); });
    Choose_Locations(edit, list, offered, selected);
    if (grows)
        lists.EFSA_Visible = efsa;
    const int last = static_cast<int>(lists.Visible().size()) - 1;
    return lists.Visible() != before ? last : std::clamp<int>(edit.Editor.App_Current_Location, 0, last);
}

} // namespace orvel
