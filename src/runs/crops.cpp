#include "runs/crops.h"

#include "core/files.h"
#include "core/locations.h"
#include "core/text.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace orvel {

namespace {

constexpr Crop Separator{.Text = "--------------------------------------"};
constexpr bool Plus = true;
constexpr bool None = false;
constexpr int Zones = 6;
constexpr std::string_view Watered_Letters = "CPOST"; // locations whose text says whether they are irrigated

constexpr auto Table = std::to_array<Crop>({
    {"Apples", 1, "_apples.sze", Plus, "", ""},
    {"Grass and alfalfa", 0, "_grass.sze", Plus, "", ""},
    {"Potatoes", 2, "_potato.sze", Plus, "", ""},
    {"Sugar beets", 3, "_sbeets.sze", Plus, "", ""},
    {"Winter cereals", 4, "_wcerea.sze", None, "C H J K N P O S T", "C H J K N P O S T"},
    Separator,
    {"Beans (field)", 5, "_beans.sze", None, "H K N", "H K N"},
    {"Beans (vegetables)", 6, "_beans.sze", Plus, "O+", "O+", "TO"},
    {"Bushberries", 7, "_bushb.sze", Plus, "J", "J"},
    {"Cabbage", 8, "_cabbag.sze", Plus, "C+ H J K O+ S+", "C+ H J K"},
    {"Carrots", 9, "_carrot.sze", Plus, "C+ H J K", "C+ H J K"},
    {"Citrus", 0, "_citrus.sze", Plus, "P+ O+", "P+"},
    {"Cotton", 10, "_cotton.sze", Plus, "", ""},
    {"Linseed", 11, "_linse.sze", Plus, "", ""},
    {"Maize", 12, "_maize.sze", Plus, "C+ H K N P+ O+ S+", "C+ H K N"},
    {"Oil seed rape (summer)", 13, "_rapesu.sze", Plus, "J N O+", "J N O+"},
    {"Oil seed rape (winter)", 14, "_rapewi.sze", None, "C H K N P O", "C H K N P O"},
    {"Onions", 15, "_onions.sze", Plus, "C+ H J K", "C+ H J K O+"},
    {"Peas (animals)", 16, "_peas.sze", None, "C H J", "C H J"},
    {"Soybeans", 17, "_soyb.sze", Plus, "P+", "P+"},
    {"Spring cereals", 18, "_scerea.sze", None, "C H J K N", "C H J K N"},
    {"Strawberries", 19, "_strawb.sze", Plus, "H J K S+", "H J K S+"},
    {"Sunflower", 20, "_sunflo.sze", Plus, "P+", "P+"},
    {"Tobacco", 21, "_tobacc.sze", Plus, "P+", "P+"},
    {"Tomatoes", 22, "_tomato.sze", Plus, "C+ P+ O+ S+ T+", "C+ P+ O+"},
    {"Vines", 23, "_vines.sze", Plus, "C+ H K P+ O+ S+ T+", "C+ H K P+ O+ S+ T+"},
    Separator,
    {"Individual crop", 0, "_indiv.sze", Plus, "", "C+ H J K N P+ O+ S+ T+", "", true},
});

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

std::vector<std::string> Locations_With_Files(const Program_State& program, const Mode& mode, const Crop& crop)
{
    std::vector<std::string> entries;
    for (const auto& file : List_Files(Mode_Directory(program, mode), "?" + std::string(Crop_Stem(mode, crop)))) {
        std::string text = Location_Text(Upper(file.substr(0, 1)), crop.Irrigated);
        if (!text.empty() && std::ranges::find(entries, text) == entries.end())
            entries.push_back(std::move(text));
    }
    return entries;
}

// Whether an entry is the location that was meant: it begins with the text, or has its code.
bool Is_Alike(std::string_view entry, std::string_view text)
{
    const std::string code = Bracket_Text(text).empty() ? std::string(text) : Bracket_Text(text);
    return !Trim(text).empty() &&
           (Same_Text(entry.substr(0, text.size()), text) || Same_Text(Bracket_Text(entry), code));
}

} // namespace

constinit const std::span<const Crop> Crops = Table;

int First_Separator()
{
    const auto found = std::ranges::find_if(Table, [](const Crop& crop) { return crop.Stem.empty(); });
    return static_cast<int>(found - Table.begin());
}

const Crop* Crop_At(int index)
{
    if (index < 0 || index >= std::ssize(Crops))
        return nullptr;
    const Crop& crop = Crops[static_cast<std::size_t>(index)];
    return crop.Stem.empty() ? nullptr : &crop;
}

const Crop* Crop_Named(std::string_view text)
{
    const auto found = std::ranges::find_if(
        Crops, [text](const Crop& crop) { return !crop.Stem.empty() && Same_Text(crop.Text, text); });
    return found == Crops.end() ? nullptr : &*found;
}

std::string_view Crop_Stem(const Mode& mode, const Crop& crop)
{
    return crop.Individual ? mode.Individual_Stem : crop.Stem;
}

bool Crop_Fits(int number, const Crop& crop)
{
    return number <= 0 || number == crop.Number;
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

std::vector<std::string> Locations_Of_Crop(const Program_State& program, const Mode& mode, const Crop* crop)
{
    if (crop == nullptr)
        return {};
    if (mode.Locations_From_Files)
        return Locations_With_Files(program, mode, *crop);
    std::vector<std::string> entries;
    for (std::size_t zone = Locations.size() - Zones; zone < Locations.size(); ++zone)
        entries.emplace_back(Locations[zone].Name);
    Add_Letters(entries, mode.Kind == Mode_Kind::Efsa ? crop->Tier_2 : crop->Tier_4);
    return entries;
}

std::string No_Location_Text(const Mode& mode, std::string_view crop, std::string_view location,
                             const std::vector<std::string>& offered)
{
    std::vector<std::string> alike;
    std::ranges::copy_if(offered, std::back_inserter(alike),
                         [&](const std::string& entry) { return Is_Alike(entry, location); });
    const auto& told = alike.empty() ? offered : alike;
    std::string has;
    for (std::size_t i = 0; i < told.size(); ++i)
        has += (i == 0 ? "'" : i + 1 == told.size() ? " and '" : ", '") + told[i] + "'";
    return "The crop '" + std::string(crop) + "' has no location '" + std::string(location) + "' in " +
           std::string(mode.Name) + ". It has " + (has.empty() ? "none" : has) + ".";
}

std::optional<int> Crop_Of_Part(const Mode& mode, std::string_view code, std::string_view part)
{
    std::optional<int> found;
    for (int index = 0; index < std::ssize(Crops); ++index) {
        const Crop* crop = Crop_At(index);
        if (crop == nullptr || !Same_Text(Crop_Stem(mode, *crop).substr(1), Trim(part)))
            continue;
        const bool only_here = code.size() == 1 && Contains(crop->Only_At, code);
        if (only_here || (crop->Only_At.empty() && !found))
            found = index;
    }
    return found;
}

} // namespace orvel
