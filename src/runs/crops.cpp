#include "runs/crops.h"

#include "core/files.h"
#include "core/locations.h"
#include "core/text.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr std::string_view Separator = "--------------------------------------";
constexpr bool Plus = true;
constexpr bool None = false;
constexpr int Zones = 6;
constexpr std::string_view Watered_Letters = "CPOST"; // locations whose text tells whether they are irrigated

constexpr bool Is_Zone(std::string_view code)
{
    return code.size() == 3;
}

// A table's letters as entries: "C+ H" gives Châteaudun irrigated and Hamburg.
void Add_Letters(std::vector<std::string>& entries, std::string_view letters)
{
    for (std::size_t i = 0; i < letters.size(); ++i) {
        if (letters[i] != ' ' && letters[i] != '+')
            entries.push_back(Location_Text(letters.substr(i, 1), letters.substr(i + 1, 1) == "+"));
    }
}

std::vector<std::string> Locations_With_Files(const Session& session, const Mode& mode, const Crop& crop,
                                              std::string_view stem)
{
    std::vector<std::string> entries;
    for (const auto& file : List_Files(Mode_Directory(session, mode), "?" + std::string(stem))) {
        std::string text = Location_Text(Upper(file.substr(0, 1)), crop.Irrigated);
        if (!text.empty() && std::ranges::find(entries, text) == entries.end())
            entries.push_back(std::move(text));
    }
    return entries;
}

} // namespace

const std::array<Crop, Crop_Entries> Crops = {{
    {"Apples", "_apples.sze", Plus, "", ""},
    {"Grass and alfalfa", "_grass.sze", Plus, "", ""},
    {"Potatoes", "_potato.sze", Plus, "", ""},
    {"Sugar beets", "_sbeets.sze", Plus, "", ""},
    {"Winter cereals", "_wcerea.sze", None, "C H J K N P O S T", "C H J K N P O S T"},
    {Separator, "", None, "", ""},
    {"Beans (field)", "_beans.sze", None, "H K N", "H K N"},
    {"Beans (vegetables)", "_beans.sze", Plus, "O+", "O+"},
    {"Bushberries", "_bushb.sze", Plus, "J", "J"},
    {"Cabbage", "_cabbag.sze", Plus, "C+ H J K O+ S+", "C+ H J K"},
    {"Carrots", "_carrot.sze", Plus, "C+ H J K", "C+ H J K"},
    {"Citrus", "_citrus.sze", Plus, "P+ O+", "P+"},
    {"Cotton", "_cotton.sze", Plus, "", ""},
    {"Linseed", "_linse.sze", Plus, "", ""},
    {"Maize", "_maize.sze", Plus, "C+ H K N P+ O+ S+", "C+ H K N"},
    {"Oil seed rape (summer)", "_rapesu.sze", Plus, "J N O+", "J N O+"},
    {"Oil seed rape (winter)", "_rapewi.sze", None, "C H K N P O", "C H K N P O"},
    {"Onions", "_onions.sze", Plus, "C+ H J K", "C+ H J K O+"},
    {"Peas (animals)", "_peas.sze", None, "C H J", "C H J"},
    {"Soybeans", "_soyb.sze", Plus, "P+", "P+"},
    {"Spring cereals", "_scerea.sze", None, "C H J K N", "C H J K N"},
    {"Strawberries", "_strawb.sze", Plus, "H J K S+", "H J K S+"},
    {"Sunflower", "_sunflo.sze", Plus, "P+", "P+"},
    {"Tobacco", "_tobacc.sze", Plus, "P+", "P+"},
    {"Tomatoes", "_tomato.sze", Plus, "C+ P+ O+ S+ T+", "C+ P+ O+"},
    {"Vines", "_vines.sze", Plus, "C+ H K P+ O+ S+ T+", "C+ H K P+ O+ S+ T+"},
    {Separator, "", None, "", ""},
    {"Individual crop", "_indiv.sze", Plus, "", "C+ H J K N P+ O+ S+ T+"},
}};

std::optional<int> Crop_Index(std::string_view text)
{
    for (int index = 0; index < Crop_Entries; ++index) {
        const auto& crop = Crops[static_cast<std::size_t>(index)];
        if (!crop.Stem.empty() && Same_Text(crop.Text, text))
            return index;
    }
    return std::nullopt;
}

std::string_view Crop_Stem(const Mode& mode, int crop)
{
    if (crop < 0 || crop >= Crop_Entries)
        return {};
    return crop == Individual_Crop ? mode.Individual_Stem : Crops[static_cast<std::size_t>(crop)].Stem;
}

std::string Location_Text(std::string_view code, bool irrigated)
{
    std::string text = Location_Name(code);
    if (!text.empty() && code.size() == 1 && Contains(Watered_Letters, code))
        text += irrigated ? ", irrigated" : ", no irrigation";
    return text;
}

std::string Code_Of_Location(const Mode& mode, std::string_view text)
{
    std::string code = Bracket_Text(text);
    const bool known = !Location_Name(code).empty();
    const bool of_mode = Is_Zone(code) ? !mode.Locations_From_Files : mode.Letter_Codes;
    return known && of_mode ? code : std::string();
}

std::vector<std::string> Locations_Of_Crop(const Session& session, const Mode& mode, int crop)
{
    const std::string_view stem = Crop_Stem(mode, crop);
    if (stem.empty())
        return {};
    const auto& entry = Crops[static_cast<std::size_t>(crop)];
    if (mode.Locations_From_Files)
        return Locations_With_Files(session, mode, entry, stem);
    std::vector<std::string> entries;
    for (std::size_t zone = Locations.size() - Zones; zone < Locations.size(); ++zone)
        entries.emplace_back(Locations[zone].Name);
    Add_Letters(entries, mode.Kind == Mode_Kind::Efsa ? entry.Tier_2 : entry.Tier_4);
    return entries;
}

int Crop_Of_Part(const Mode& mode, std::string_view code, std::string_view part)
{
    constexpr int Field_Beans = 6;
    constexpr int Vegetable_Beans = 7;
    for (int crop = 0; crop < Crop_Entries; ++crop) {
        const auto stem = Crop_Stem(mode, crop);
        if (stem.empty() || !Same_Text(stem.substr(1), Trim(part)))
            continue;
        return crop == Field_Beans && (code == "T" || code == "O") ? Vegetable_Beans : crop;
    }
    return -1;
}

std::string Scenario_Name(const Mode& mode, int crop, std::string_view location)
{
    return Code_Of_Location(mode, location) + std::string(Crop_Stem(mode, crop));
}

} // namespace orvel
