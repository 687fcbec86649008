#include "runs/guidance_of_run.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/text.h"
#include "files/document_differences.h"
#include "files/scenario_file.h"
#include "runs/selection.h"

#include <algorithm>
#include <memory>

namespace orvel {

namespace {

constexpr int Year_Days = 365;

// Of a year that is no leap year; nothing for a day that no month has.
std::optional<int> Day_Of_Year(int day, int month)
{
    constexpr std::array<int, 12> Before = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    if (month < 1 || month > static_cast<int>(Before.size()) || day < 1 || day > 31)
        return std::nullopt;
    return Before[static_cast<std::size_t>(month - 1)] + day;
}

int Days_From(int first, int day)
{
    return ((day - first) % Year_Days + Year_Days) % Year_Days;
}

enum class Crop_Phase { Absent, Growing, Mature }; // by the dates of the scenario

// The days of the year of a crop of the rotation.
struct Crop_Days {
    std::array<int, 3> Day{}; // emergence, maturation, harvest
    bool operator==(const Crop_Days&) const = default;
};

std::vector<Crop_Days> Crops_Of(const Scenario_Document& scenario)
{
    std::vector<Crop_Days> crops;
    for (const auto& row : scenario.Rotation) {
        const auto emergence = Day_Of_Year(row.SZE_Eme_Day, row.SZE_Eme_Month);
        const auto maturation = Day_Of_Year(row.SZE_Mat_Day, row.SZE_Mat_Month);
        const auto harvest = Day_Of_Year(row.SZE_Har_Day, row.SZE_Har_Month);
        if (!emergence || !maturation || !harvest)
            continue;
        const Crop_Days days{{*emergence, *maturation, *harvest}};
        if (std::ranges::find(crops, days) == crops.end())
            crops.push_back(days);
    }
    return crops;
}

Crop_Phase Phase_On(const std::vector<Crop_Days>& crops, int day)
{
    Crop_Phase phase = Crop_Phase::Absent;
    for (const auto& crop : crops) {
        const int since = Days_From(crop.Day[0], day);
        if (since < Days_From(crop.Day[0], crop.Day[1]))
            phase = std::max(phase, Crop_Phase::Growing);
        else if (since <= Days_From(crop.Day[0], crop.Day[2]))
            phase = Crop_Phase::Mature;
    }
    return phase;
}

// The day of the year of an application; nothing for a date that the scenario does not have.
std::optional<int> Day_Of(const Pesticide_Document& document, const Guidance_Use& use,
                          const std::vector<Crop_Days>& crops)
{
    if (document.App_Mode != App_Mode_Relative) {
        const auto& date = document.Applications[use.Location][use.Number];
        return Day_Of_Year(date.App_Day, date.App_Month);
    }
    constexpr int Stages = 3;
    const auto& date = document.Relative[use.Number];
    const auto crop = static_cast<std::size_t>(date.Abs9_Month / Stages);
    if (date.Abs9_Month < 0 || crop >= crops.size())
        return std::nullopt;
    return crops[crop].Day[static_cast<std::size_t>(date.Abs9_Month % Stages)] + date.Abs9_Day;
}

const Crop_Guidance* Crop_In(const Guidance& guidance, const Crop& crop, bool (*has)(const Crop_Guidance&))
{
    const auto found = std::ranges::find_if(guidance.Crops, [&](const Crop_Guidance& entry) {
        return has(entry) &&
               std::ranges::any_of(entry.Crops, [&](const std::string& name) { return Same_Text(name, crop.Text); });
    });
    return found == guidance.Crops.end() ? nullptr : &*found;
}

bool Lists(std::string_view codes, std::string_view code)
{
    return Contains(" " + std::string(codes) + " ", " " + std::string(code) + " ");
}

void Add_Place(Guidance_Facts& facts, const Guidance& guidance, const Mode& mode, const Run_Choice& choice)
{
    facts.Add({"Mode", std::string(mode.Name), {}, {}});
    facts.Add({"Location", choice.Code, {}, {}});
    facts.Add("Years", Years_To_Run(mode, choice));
    facts.Add("Interval", choice.Pattern);
    if (choice.Tillage_Visible && !Trim(choice.Options.Tillage).empty())
        facts.Add("Tillage_Depth", Val(choice.Options.Tillage), {}, "cm");
    if (choice.Crop == nullptr)
        return;
    facts.Add({"Crop", std::string(choice.Crop->Text), {}, {}});
    facts.Add("Individual_Crop", choice.Crop->Individual ? 1 : 0, {}, std::string(choice.Crop->Text));
    if (const auto* entry =
            Crop_In(guidance, *choice.Crop, [](const Crop_Guidance& crop) { return !crop.Locations.empty(); }))
        facts.Add("Crop_At_Location", Lists(entry->Locations, choice.Code) ? 1 : 0, {},
                  std::string(choice.Crop->Text) + " at " + choice.Location);
}

// Interception is what the document says only where it is entered by hand.
void Add_Interception(Guidance_Facts& facts, const Guidance& guidance, const Run_Choice& choice,
                      const Pesticide_Document& document, const std::vector<Crop_Days>& crops)
{
    constexpr double By_Hand = 4;
    const auto* entry =
        choice.Crop == nullptr
            ? nullptr
            : Crop_In(guidance, *choice.Crop, [](const Crop_Guidance& crop) { return crop.Interception.has_value(); });
    const bool relative = document.App_Mode == App_Mode_Relative;
    const int block = relative ? 0 : Block_Of_Location(document, choice.Location);
    for (const auto& use : Uses_In(document)) {
        const auto day = Day_Of(document, use, crops);
        if (static_cast<int>(use.Location) != block || !day)
            continue;
        const Crop_Phase phase = Phase_On(crops, *day);
        facts.Add(Fact_Name("Crop_Present", use.Location, use.Number), phase == Crop_Phase::Absent ? 0 : 1,
                  use.Prefix + "Frpex");
        if (entry == nullptr || !entry->Interception || document.App_Method.Number() != By_Hand)
            continue;
        const auto& share = *entry->Interception;
        const double most = phase == Crop_Phase::Absent    ? share[0]
                            : phase == Crop_Phase::Growing ? std::max(share[1], share[2])
                                                           : std::max(share[3], share[4]);
        const std::string stage = phase == Crop_Phase::Absent    ? "without the crop"
                                  : phase == Crop_Phase::Growing ? "emergence to maturation"
                                                                 : "maturation to harvest";
        facts.Add(Fact_Name("Interception_Over_Table", use.Location, use.Number), use.Interception - most,
                  use.Prefix + "Frpex",
                  "% (" + General_Text(use.Interception) + " %, table: " + General_Text(most) + " %, " + stage + ")");
    }
}

std::unique_ptr<Scenario_Document> Read_Scenario(const Program_State& program, const Mode& mode,
                                                 const Run_Choice& choice)
{
    const auto file = Found_Or_New(Mode_Directory(program, mode), Path_Of(choice.Scenario));
    const std::string bytes = Read_Whole(file);
    auto scenario = std::make_unique<Scenario_Document>();
    Reset_SZE(*scenario);
    try {
        Parse_SZE(bytes, *scenario);
    } catch (const File_Error& error) {
        throw File_Error(Located(file.string(), error));
    }
    return scenario;
}

std::vector<Guidance_Finding> Check(const Program_State& program, const Guidance& guidance, const Mode& mode,
                                    const Run_Choice& choice, const Pesticide_Document& document,
                                    const Document_Notes& notes)
{
    Guidance_Facts facts = Facts_Of(document);
    Add_Facts_Of_Run(facts, guidance, mode, choice, document, *Read_Scenario(program, mode, choice));
    return Check_Guidance(guidance, facts, notes);
}

std::vector<Guidance_Finding> Check(const Program_State& program, const Guidance& guidance, const Mode& mode,
                                    const Run_Choice& choice)
{
    const auto file = Found_Or_New(program.App_Path, Path_Of(choice.Pesticide));
    return Check(program, guidance, mode, choice, *Read_Whole_Pesticide(file), Read_Notes(file));
}

// A finding with the locations at which it was made.
struct Placed_Finding {
    std::string Text;
    std::vector<std::string> Locations;
};

} // namespace

void Add_Facts_Of_Run(Guidance_Facts& facts, const Guidance& guidance, const Mode& mode, const Run_Choice& choice,
                      const Pesticide_Document& document, const Scenario_Document& scenario)
{
    for (const auto& [field, value] : Values_In_Use(scenario))
        facts.Add({field, value, {}, {}});
    Add_Place(facts, guidance, mode, choice);
    Add_Interception(facts, guidance, choice, document, Crops_Of(scenario));
}

std::vector<Guidance_Finding> Check_Run(const Program_State& program, const Mode& mode, const Run_Choice& choice)
{
    return Check(program, Read_Guidance(program.App_Path), mode, choice);
}

std::vector<Guidance_Finding> Check_Runs(const Program_State& program, const Mode& mode,
                                         const Guidance_Subject& subject, const Crop* crop,
                                         const std::vector<std::string>& locations)
{
    const Guidance guidance = Read_Guidance(program.App_Path);
    auto findings = Check_Guidance(guidance, Facts_Of(subject.Document), subject.Notes);
    for (const auto& location : locations) {
        Selection selected{.Choice = Choose_Run(mode, subject.File_Name, crop, location)};
        const auto scenario = Find_File(Mode_Directory(program, mode), Path_Of(selected.Choice.Scenario));
        if (crop == nullptr || selected.Choice.Code.empty() || !scenario)
            continue;
        Judge_Selection(selected, mode, subject.Document, Facts_Of_Scenario(Read_Whole(*scenario)));
        for (auto& finding : Check(program, guidance, mode, selected.Choice, subject.Document, subject.Notes)) {
            if (!finding.Needs_A_Run)
                continue;
            finding.Shown += (finding.Shown.empty() ? "at " : " at ") + location;
            findings.push_back(std::move(finding));
        }
    }
    return findings;
}

std::string Guidance_After_Marking(const Program_State& program, const Mode& mode,
                                   const std::vector<Run_Choice>& choices)
try {
    if (choices.empty())
        return {};
    const Guidance guidance = Read_Guidance(program.App_Path);
    std::vector<Placed_Finding> placed;
    for (const auto& choice : choices) {
        for (const auto& finding : Check(program, guidance, mode, choice)) {
            if (!finding.Needs_A_Run || !finding.Is_Open())
                continue;
            const std::string text = std::string(Severity_Text(finding.Severity)) + " " + finding.Rule + ": " +
                                     finding.Text + " " + Value_Text(finding) + ". Source: " + Source_Text(finding);
            const auto known = std::ranges::find(placed, text, &Placed_Finding::Text);
            auto& place = known == placed.end() ? placed.emplace_back(Placed_Finding{text, {}}) : *known;
            place.Locations.push_back(choice.Location);
        }
    }
    std::string told;
    for (const auto& [text, locations] : placed) {
        told += told.empty() ? "" : "\n";
        for (const auto& location : locations)
            told += (&location == &locations.front() ? "" : "; ") + location;
        told += ": " + text;
    }
    return told;
} catch (const File_Error& error) {
    return "The guidance check could not be done. " + To_Code_Page(error.what());
}

std::string Refused_By_Guidance(const Program_State& program, const Mode& mode, const Run_Choice& choice)
try {
    const Guidance guidance = Read_Guidance(program.App_Path);
    const auto refuses = [](const auto& item) { return item.Severity == Severity::Refusal; };
    if (std::ranges::none_of(guidance.Rules, refuses))
        return {};
    for (const auto& finding : Check(program, guidance, mode, choice)) {
        if (refuses(finding) && finding.Is_Open())
            return "The rule " + finding.Rule + " refuses this simulation: " + finding.Text + " " +
                   Value_Text(finding) + ". Source: " + Source_Text(finding);
    }
    return {};
} catch (const File_Error&) {
    return {};
}

} // namespace orvel
