#include "substance/location_choice.h"

#include "core/locations.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr std::size_t Leaching_Locations = 9; // in the table of all locations; the soil zones follow

std::vector<std::string> Names_Of(std::size_t first, std::size_t last)
{
    std::vector<std::string> names;
    for (auto i = first; i < last; ++i)
        names.emplace_back(Locations[i].Name);
    return names;
}

void Copy_Location(Pesticide_Edit edit, std::size_t to, std::size_t from)
{
    edit.Editor.App_Per_Year[to] = edit.Editor.App_Per_Year[from];
    edit.Document.App_Count[to] = edit.Document.App_Count[from];
    edit.Document.Applications[to] = edit.Document.Applications[from];
}

// A location without a name gets the applications of a new document, so that a later one does not inherit those of the
// removed one.
void Empty_Location(Pesticide_Edit edit, std::size_t location)
{
    static const Pesticide_Document fresh = [] {
        Pesticide_Document document;
        Reset_PSM(document);
        return document;
    }();
    edit.Editor.App_Per_Year[location] = 1;
    edit.Document.App_Count[location] = fresh.App_Count[location];
    edit.Document.Applications[location] = fresh.Applications[location];
}

void Remove_Location(Pesticide_Edit edit, std::vector<std::string>& list, std::size_t location)
{
    const auto last = std::min<std::size_t>(list.size() - 1, Last_Location);
    for (auto l = location; l < last; ++l)
        Copy_Location(edit, l, l + 1);
    if (location <= last)
        Empty_Location(edit, last);
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(location));
}

} // namespace

bool Holds(const std::vector<std::string>& names, const std::string& name)
{
    return std::ranges::find(names, name) != names.end();
}

std::vector<std::string> Offered_Locations()
{
    return Names_Of(0, Leaching_Locations);
}

std::vector<std::string> Offered_Soil_Locations(std::string_view crop)
{
    if (std::ranges::find(Soil_Crops, crop) == Soil_Crops.end())
        return {};
    return Names_Of(Leaching_Locations, Locations.size());
}

std::optional<std::size_t> Choose_Locations(Pesticide_Edit edit, std::vector<std::string>& list,
                                            const std::vector<std::string>& offered,
                                            const std::vector<std::string>& selected)
{
    bool changed = false;
    for (std::size_t l = 1; l < list.size();) {
        if (Holds(offered, list[l]) && !Holds(selected, list[l])) {
            Remove_Location(edit, list, l);
            changed = true;
        } else {
            ++l;
        }
    }
    for (const auto& name : selected) {
        if (Holds(list, name) || list.size() > Last_Location)
            continue;
        edit.Editor.App_Per_Year[list.size()] = 1;
        list.push_back(name);
        changed = true;
    }
    if (!changed)
        return std::nullopt;
    edit.Changed = true;
    return list.size() - 1;
}

} // namespace orvel
