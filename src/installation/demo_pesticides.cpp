#include "installation/demo_pesticides.h"

#include "core/locations.h"
#include "core/text.h"
#include "installation/demo_tables.h"
#include "installation/embedded_files.h"
#include "substance/pathway.h"

#include <algorithm>
#include <stdexcept>

namespace orvel {

namespace {

using Row = std::vector<std::string>;

constexpr double Rate = 1;    // kg/ha
constexpr int Metabolite = 2; // A1
constexpr int Row_To_A1 = 1;  // of the active substance's transformation table
constexpr std::size_t Locations_Of_FOCUS = 9;

// The last row of a transformation table leads to CO2 and bound residues.
void Set_Substance(Pesticide_Document& document, int i, const Row& row)
{
    const auto s = static_cast<std::size_t>(i);
    document.Molmass[s] = Val(row.at(1));
    document.Koc[s] = Val(row.at(2));
    document.Fr_Exp[s] = Val(row.at(3));
    document.Plant_Uptake[s] = 0;
    if (i == 1)
        document.Degradation[s][Row_To_A1].Deg_Rate = Val(row.at(4));
    document.Degradation[s][static_cast<std::size_t>(Rows_Of_Substance(i))].Deg_Rate = Val(row.at(5));
}

// The second point, ten degrees higher, follows from the rule for a substance that is known at one temperature.
void Set_Volatilisation(Pesticide_Document& document, const Row& row)
{
    const double solubility = Val(row.at(6));
    const double pressure = Val(row.at(7));
    document.Henry_Flag = 1;
    document.Solubility = {solubility, 2 * solubility};
    document.Vap_Press = {pressure, 4 * pressure};
}

const Row& Substance_Row(const std::vector<Row>& substances, std::string_view letter)
{
    const auto found = std::ranges::find_if(substances, [&](const Row& row) { return row.at(0) == letter; });
    if (found == substances.end())
        throw std::logic_error("The demonstration data have no substance " + std::string(letter) + ".");
    return *found;
}

// 26 applications every year, or 22 every third year: what the run forms recognise as a regular pattern.
int Cycles(int every)
{
    return 20 + 6 / every;
}

void Set_Relative_Dates(Pesticide_Document& document, int days, int every)
{
    document.App_Mode = App_Mode_Relative;
    document.App_Loc_Count = 1;
    document.App_Count[0] = Cycles(every);
    for (int k = 0; k < Cycles(every); ++k)
        document.Relative[static_cast<std::size_t>(k) + 1] = {.Abs9_Day = static_cast<std::int16_t>(days),
                                                              .Abs9_Month = 0,
                                                              .Abs9_Year = static_cast<std::int16_t>(k * every + 1),
                                                              .Abs9_Rate = Rate};
}

// Sets block 0, the user-specific one, and a block for each of the locations.
void Set_Dates(Pesticide_Document& document, Day_Of_Year date, int every, std::size_t first, std::size_t last)
{
    document.App_Mode = 0;
    document.App_Loc_Count = static_cast<std::int16_t>(last - first + 1);
    for (std::size_t block = 0; block <= last - first; ++block) {
        if (block > 0)
            document.App_Location[block] = Locations[first + block - 1].Name;
        document.App_Count[block] = Cycles(every);
        for (int k = 0; k < Cycles(every); ++k)
            document.Applications[block][static_cast<std::size_t>(k) + 1] = {
                .App_Day = static_cast<std::int16_t>(date.Day),
                .App_Month = static_cast<std::int16_t>(date.Month),
                .App_Year = static_cast<std::int16_t>(k * every + 1),
                .App_Rate = Rate};
    }
}

void Set_Applications(Pesticide_Document& document, const Row& row)
{
    const int every = To_I16(Val(row.at(4)));
    document.App_Method = Val(row.at(2));
    document.App_Rel_Flag = 0;
    if (row.at(5) == "none")
        return Set_Relative_Dates(document, To_I16(Val(row.at(3))), every);
    const bool zones = row.at(5) == "zones";
    const std::size_t first = zones ? Locations_Of_FOCUS : 0;
    Set_Dates(document, Parse_Day_Of_Year(row.at(3)), every, first, zones ? Locations.size() : Locations_Of_FOCUS);
}

Pesticide_Document Document_Of(const Row& row, const std::vector<Row>& substances)
{
    Pesticide_Document document;
    Reset_PSM(document);
    const std::string& letter = row.at(1);
    document.PSM_Title = "Demonstration substance " + letter + ", not a product - " + std::string(Title_Warning);
    document.Substance_Name[1] = "Demo substance " + letter;
    Set_Substance(document, 1, Substance_Row(substances, letter));
    Set_Volatilisation(document, Substance_Row(substances, letter));
    Update_Pathway(document);
    if (document.Met_Present[Metabolite]) {
        document.Substance_Name[Metabolite] = "Demo metabolite M";
        Set_Substance(document, Metabolite, Substance_Row(substances, "M"));
        Update_Pathway(document);
    }
    Set_Applications(document, row);
    return document;
}

} // namespace

std::vector<Demo_Pesticide> Demo_Pesticides()
{
    const auto substances = Table_Rows(Embedded_File("substances.txt"));
    std::vector<Demo_Pesticide> pesticides;
    for (const Row& row : Table_Rows(Embedded_File("pesticide_files.txt")))
        pesticides.push_back({row.at(0) + ".psm", Document_Of(row, substances)});
    return pesticides;
}

} // namespace orvel
