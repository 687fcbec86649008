#include "substance/guidance_facts.h"

#include "core/error.h"
#include "core/files.h"
#include "core/text.h"
#include "files/document_differences.h"
#include "files/document_fields.h"
#include "files/document_values.h"
#include "files/pesticide_file.h"
#include "substance/application_list.h"
#include "substance/application_view.h"
#include "substance/half_lives.h"
#include "substance/pathway.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>

namespace orvel {

namespace {

constexpr std::string_view Wildcard = "[*]";
constexpr std::array<std::string_view, 2> Of_Notes = {"Source", "Arithmetic"};

std::size_t At(int i)
{
    return static_cast<std::size_t>(i);
}

// The text with every wildcard replaced by an index that documents have.
std::string With_Indices(std::string_view pattern)
{
    return Replace_All(std::string(pattern), Wildcard, "[1]");
}

// "Koc[1]" of "Source(Koc[1])"; nothing for another name or function.
std::optional<std::string_view> Argument_Of(std::string_view name, std::string_view function)
{
    if (!name.starts_with(function) || !name.substr(function.size()).starts_with("(") || !name.ends_with(")"))
        return std::nullopt;
    return name.substr(function.size() + 1, name.size() - function.size() - 2);
}

bool Is_Of_Substances(std::string_view array)
{
    bool is = false;
    static const auto blank = std::make_unique<const Pesticide_Document>();
    Visit(*blank, [&](const auto& field, const auto& value) {
        using Value = std::remove_cvref_t<decltype(value)>;
        if constexpr (Is_Array<Value>) {
            if constexpr (requires { std::tuple_size<Value>::value; }) {
                const bool per_location = field.Name.starts_with("App"); // an array as long as that of the substances
                is = is || (field.Name == array && !per_location && std::tuple_size_v<Value> == Substances + 1);
            }
        }
    });
    return is;
}

// The index behind the name of a field's array; nothing for a field without one.
std::optional<int> First_Index(std::string_view field)
{
    const auto open = field.find('[');
    if (open == std::string_view::npos)
        return std::nullopt;
    int index = 0;
    const auto [end, error] = std::from_chars(field.data() + open + 1, field.data() + field.size(), index);
    return error == std::errc() ? std::optional(index) : std::nullopt;
}

double Rounded(double value)
{
    constexpr double Steps = 1e4;
    return std::round(value * Steps) / Steps;
}

std::string Rate_Field_Name(int substance, int row)
{
    return "Degradation[" + std::to_string(substance) + "][" + std::to_string(row) + "].Deg_Rate";
}

void Add_Degradation(const Pesticide_Document& document, int i, Guidance_Facts& facts)
{
    double total = 0;
    int first = 0;
    for (int row = 1; row <= Rows_Of_Substance(i); ++row) {
        const double rate = document.Degradation[At(i)][At(row)].Deg_Rate.Number();
        total += rate;
        if (rate > 0 && first == 0)
            first = row;
    }
    const std::string field = Rate_Field_Name(i, std::max(first, 1));
    facts.Add(Fact_Name("Total_Rate", At(i)), total, field, "1/d");
    if (total <= 0)
        return;
    facts.Add(Fact_Name("DT50", At(i)), Val(Texts_Of_Rate(General_Text(total)).DT50), field, "d");
    for (int t = 1; t <= Last_Transformation; ++t) {
        const Arrow& arrow = Arrow_Of(t);
        if (arrow.Source != i || arrow.Target == 0 || arrow.Label.empty())
            continue;
        const double rate = document.Degradation[At(i)][At(arrow.Row)].Deg_Rate.Number();
        if (rate > 0)
            facts.Add(Fact_Name("Formation", At(i), At(arrow.Row)), Rounded(rate / total),
                      Rate_Field_Name(i, arrow.Row),
                      "of " + document.Substance_Name[At(i)] + " to " + document.Substance_Name[At(arrow.Target)]);
    }
}

// How many different Q10 the arrows with a rate have.
void Add_Q10(const Pesticide_Document& document, Guidance_Facts& facts)
{
    std::set<double> values;
    std::string listed, field;
    for (int i = 1; i <= Substances; ++i) {
        if (i > 1 && !document.Met_Present[At(i)])
            continue;
        for (int row = 1; row <= Rows_Of_Substance(i); ++row) {
            const auto& arrow = document.Degradation[At(i)][At(row)];
            if (arrow.Deg_Rate.Number() <= 0 || !values.insert(arrow.Deg_Q10.Number()).second)
                continue;
            listed += (listed.empty() ? "" : ", ") + General_Text(arrow.Deg_Q10.Number());
            field = "Degradation[" + std::to_string(i) + "][" + std::to_string(row) + "].Deg_Q10";
        }
    }
    facts.Add("Distinct_Q10", static_cast<double>(values.size()), field, listed);
}

// A Henry constant that was given, as a multiple of the one that follows from vapour pressure and solubility.
void Add_Henry(const Pesticide_Document& document, Guidance_Facts& facts)
{
    const double molmass = document.Molmass[1].Number();
    for (std::size_t k = 0; document.Henry_Flag.Number() == 0 && k < document.Henry.size(); ++k) {
        if (document.Henry[k] <= 0 || document.Vap_Press[k] <= 0 || document.Solubility[k] <= 0 || molmass <= 0)
            continue;
        const double calculated = document.Vap_Press[k] * molmass / document.Solubility[k];
        facts.Add(Fact_Name("Henry_Ratio", k), Rounded(document.Henry[k] / calculated), Fact_Name("Henry", k),
                  "calculated: " + General_Text(calculated));
    }
}

void Add_Uses(const Pesticide_Document& document, Guidance_Facts& facts)
{
    const bool relative = document.App_Mode == App_Mode_Relative;
    std::map<std::size_t, std::set<std::array<int, 3>>> days;
    std::map<std::size_t, int> same;
    for (const auto& use : Uses_In(document)) {
        facts.Add(Fact_Name("Dose", use.Location, use.Number), use.Rate, use.Prefix + "Rate", "kg/ha");
        facts.Add(Fact_Name("Interception", use.Location, use.Number), use.Interception, use.Prefix + "Frpex", "%");
        facts.Add(Fact_Name("Incorporation", use.Location, use.Number), use.Depth, use.Prefix + "Depth", "cm");
        std::array<int, 3> day{};
        if (relative) {
            const auto& date = document.Relative[use.Number];
            day = {date.Abs9_Year, date.Abs9_Month, date.Abs9_Day};
            constexpr int Stages = 3; // emergence, maturation, harvest of a crop
            if (date.Abs9_Month % Stages == 0)
                facts.Add(Fact_Name("Days_After_Emergence", use.Location, use.Number), date.Abs9_Day,
                          use.Prefix + "Day", "d");
        } else {
            const auto& date = document.Applications[use.Location][use.Number];
            day = {date.App_Year, date.App_Month, date.App_Day};
        }
        same[use.Location] += days[use.Location].insert(day).second ? 0 : 1;
    }
    for (const auto& [location, count] : same)
        facts.Add(Fact_Name("Same_Day", location), count,
                  relative ? "Relative[1].Abs9_Day" : Fact_Name("Applications", location, 1) + ".App_Day",
                  "applications on the day of another one");
}

} // namespace

const std::vector<Guidance_Quantity> Guidance_Quantities = {
    {"Metabolite[*]", "0 for the active substance, 1 for a metabolite"},
    {"Total_Rate[*]", "sum of the rates of a substance, 1/d"},
    {"DT50[*]", "half-life by that sum, d; not there without a rate"},
    {"Formation[*][*]", "share of a substance's loss that forms a metabolite, by its row of the table"},
    {"Distinct_Q10", "how many different Q10 the rates have"},
    {"Henry_Ratio[*]", "a given Henry constant over M Pv / S, for temperature 0 and 1"},
    {"Dose[*][*]",
     "of an application with a rate, kg/ha, by location and place in its list; location 0 for relative dates"},
    {"Interception[*][*]", "of an application, %"},
    {"Incorporation[*][*]", "depth of an application, cm"},
    {"Days_After_Emergence[*][*]", "of an application whose date is relative to an emergence"},
    {"Same_Day[*]", "applications of a location on the day of another one"},
    {"Mode", "focus, efsa or efsa_t4", true},
    {"Crop", "the entry of the list of crops", true},
    {"Location", "the location's code: H, T_N", true},
    {"Individual_Crop", "1 for the user's own crop, else 0", true},
    {"Crop_At_Location", "1 where the rules' table has the crop at the location, 0 where it has it elsewhere", true},
    {"Years", "that the run simulates", true},
    {"Interval", "0 irregular, 1 every year, 2 every other year, 3 every third year", true},
    {"Tillage_Depth", "cm, where the scenario has tillage", true},
    {"Crop_Present[*][*]", "1 for an application between emergence and harvest, else 0", true},
    {"Interception_Over_Table[*][*]", "interception that is used, less the most of the rules' table at that stage",
     true},
};

namespace {

// The quantity of a name or pattern, nullptr for none.
const Guidance_Quantity* Quantity_Of(std::string_view pattern)
{
    const auto indexless = [](std::string_view name) { return std::string(name.substr(0, name.find('['))); };
    const auto indices = [](std::string_view name) { return std::ranges::count(name, '['); };
    const auto found = std::ranges::find_if(Guidance_Quantities, [&](const Guidance_Quantity& quantity) {
        return indexless(quantity.Name) == indexless(pattern) && indices(quantity.Name) == indices(pattern);
    });
    return found == Guidance_Quantities.end() ||
                   (pattern.find('[') != std::string_view::npos && !pattern.ends_with("]"))
               ? nullptr
               : &*found;
}

} // namespace

void Guidance_Facts::Add(Guidance_Fact fact)
{
    if (Places.emplace(fact.Name, Facts.size()).second)
        Facts.push_back(std::move(fact));
}

void Guidance_Facts::Add(std::string name, double value, std::string field, std::string shown)
{
    Add({std::move(name), General_Text(value), std::move(field), std::move(shown)});
}

const Guidance_Fact* Guidance_Facts::Find(std::string_view name) const
{
    const auto found = Places.find(name);
    return found == Places.end() ? nullptr : &Facts[found->second];
}

std::string Fact_Name(std::string_view quantity, std::size_t first)
{
    return std::string(quantity) + "[" + std::to_string(first) + "]";
}

std::string Fact_Name(std::string_view quantity, std::size_t first, std::size_t second)
{
    return Fact_Name(quantity, first) + "[" + std::to_string(second) + "]";
}

std::vector<Guidance_Use> Uses_In(const Pesticide_Document& document)
{
    std::vector<Guidance_Use> uses;
    if (document.App_Mode == App_Mode_Relative) {
        int most = 0;
        for (int location = 0; location <= Last_Location; ++location)
            most = std::max(most, Applications_Of(document, location));
        for (std::size_t n = 1; n <= At(most); ++n) {
            const auto& use = document.Relative[n];
            if (use.Abs9_Rate <= 0)
                continue;
            uses.push_back({0, n, use.Abs9_Year, Fact_Name("Relative", n) + ".Abs9_", use.Abs9_Rate, use.Abs9_Depth,
                            use.Abs9_Frpex});
        }
        return uses;
    }
    for (int location = 0; location < std::min<int>(document.App_Loc_Count, Last_Location + 1); ++location) {
        for (std::size_t n = 1; n <= At(Applications_Of(document, location)); ++n) {
            const auto& use = document.Applications[At(location)][n];
            if (use.App_Rate > 0)
                uses.push_back({At(location), n, use.App_Year, Fact_Name("Applications", At(location), n) + ".App_",
                                use.App_Rate, use.App_Depth, use.App_Frpex});
        }
    }
    return uses;
}

Guidance_Facts Facts_Of(const Pesticide_Document& document)
{
    Guidance_Facts facts;
    for (const auto& [field, value] : Values_In_Use(document)) {
        if (Is_Of_Used_Substance(document, field))
            facts.Add({field, value, field, {}});
    }
    for (int i = 1; i <= Substances; ++i) {
        if (i > 1 && !document.Met_Present[At(i)])
            continue;
        facts.Add(Fact_Name("Metabolite", At(i)), i > 1 ? 1 : 0);
        Add_Degradation(document, i, facts);
    }
    Add_Q10(document, facts);
    Add_Henry(document, facts);
    Add_Uses(document, facts);
    return facts;
}

bool Is_Of_Used_Substance(const Pesticide_Document& document, std::string_view field)
{
    if (!Is_Of_Substances(field.substr(0, field.find('['))))
        return true;
    const int i = First_Index(field).value_or(0); // index 0 is not in use
    return i == 1 || (i > 1 && i <= Substances && document.Met_Present[At(i)]);
}

std::unique_ptr<Pesticide_Document> Read_Whole_Pesticide(const std::filesystem::path& file)
{
    const std::string bytes = Read_Whole(file);
    auto document = std::make_unique<Pesticide_Document>();
    try {
        Parse_PSM(bytes, *document);
    } catch (const File_Error& error) {
        throw File_Error(Located(file.string(), error));
    }
    Update_Pathway(*document);
    return document;
}

std::optional<Guidance_Fact> Fact_Of_Notes(const Document_Notes& notes, std::string_view name)
{
    const auto fact = [&](std::string_view field, auto holds) {
        const Field_Note* note = Note_Of(notes, field);
        const bool is = note != nullptr && holds(*note);
        return Guidance_Fact{std::string(name), is ? "1" : "0", std::string(field), {}};
    };
    if (const auto field = Argument_Of(name, Of_Notes[0])) {
        auto source = fact(*field, [](const Field_Note& note) { return !Trim(note.Source).empty(); });
        source.Shown = source.Value == "0" ? "(no source in the notes)" : "";
        return source;
    }
    if (const auto field = Argument_Of(name, Of_Notes[1])) {
        return fact(*field, [](const Field_Note& note) {
            return Contains(Lower(note.Source + " " + note.Comment), "arithmetic");
        });
    }
    return std::nullopt;
}

bool Needs_A_Run(std::string_view pattern)
{
    if (const auto* quantity = Quantity_Of(pattern))
        return quantity->Needs_A_Run;
    return Why_Not_A_Scenario_Field(With_Indices(pattern)).empty();
}

std::string Why_Not_Comparable(std::string_view pattern)
{
    const std::string name = With_Indices(pattern);
    if (Quantity_Of(pattern) != nullptr)
        return {};
    for (const auto function : Of_Notes) {
        if (const auto field = Argument_Of(name, function))
            return Why_Not_A_Pesticide_Field(*field);
    }
    const std::string reason = Why_Not_A_Pesticide_Field(name);
    return reason.empty() || Why_Not_A_Scenario_Field(name).empty() ? "" : reason;
}

std::vector<std::string_view> Split_At_Wildcards(std::string_view pattern)
{
    std::vector<std::string_view> parts;
    for (auto at = pattern.find(Wildcard); at != std::string_view::npos; at = pattern.find(Wildcard)) {
        parts.push_back(pattern.substr(0, at + 1)); // with the bracket
        pattern.remove_prefix(at + 2);
    }
    parts.push_back(pattern);
    return parts;
}

std::optional<double> Number_In(std::string_view text)
{
    text = Trim(text);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool is_whole = error == std::errc() && end == text.data() + text.size() && !text.empty();
    return is_whole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

int Substance_Of_Field(std::string_view field)
{
    const int i = Is_Of_Substances(field.substr(0, field.find('['))) ? First_Index(field).value_or(0) : 0;
    return i >= 1 && i <= Substances ? i : 0;
}

} // namespace orvel
