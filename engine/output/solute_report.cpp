#include "engine/output/solute_report.h"

#include "core/text.h"
#include "engine/output/titles.h"

#include <array>

namespace orvel::engine {

namespace {

constexpr std::array<std::string_view, 10> Suffix = {"", "", "A1", "B1", "C1", "D1", "A2", "B2", "C2", "D2"};

// The amount columns of a row: five `%12.5E`, two `%11.4E`.
void Put_Row_Values(std::string& text, std::size_t start, const std::array<double, 7>& values)
{
    int column = 19;
    for (std::size_t k = 0; k < values.size(); ++k) {
        To_Column(text, start, column);
        Put_Exponent(text, values[k], k < 5 ? 12 : 11, k < 5 ? 5 : 4);
        column += k == 0 ? 14 : 13;
    }
    text += CrLf;
}

void Put_Mass_Total(std::string& text, const std::string& label, double value)
{
    Put_Left(text, label, 39);
    Put_Exponent(text, value, 12, 5);
    text += CrLf;
}

double Kg_Ha(double ug_cm2)
{
    return ug_cm2 / Ug_Cm2_Per_Kg_Ha;
}

std::vector<Numbered_Row> Numbered_Rows(const Grid& grid, int step)
{
    std::vector<Numbered_Row> rows;
    for (const Row_Group& group : Row_Groups(grid.Document_Count(), grid.Top_Layers, step))
        rows.push_back({group.Last + 1, grid.Document[static_cast<std::size_t>(group.First)].First,
                        grid.Document[static_cast<std::size_t>(group.Last)].Last});
    return rows;
}

} // namespace

std::string Solute_File_Name(int index)
{
    return index == 1 ? "chem.orv" : "chem_" + std::string(Suffix[static_cast<std::size_t>(index)]) + ".orv";
}

std::string Solute_Label(int index)
{
    return index == 1 ? "PESTICIDE" : "METABOLITE " + std::string(Suffix[static_cast<std::size_t>(index)]);
}

double Total_Of(const std::vector<double>& values, int lanes, int slot)
{
    double sum = 0;
    for (auto i = static_cast<std::size_t>(slot); i < values.size(); i += static_cast<std::size_t>(lanes))
        sum += values[i];
    return sum;
}

Solute_Report::Solute_Report(const std::filesystem::path& directory, const Grid& grid, int index, int slot, int step,
                             int concentration_step)
    : Core(&grid),
      Index(index),
      Slot(static_cast<std::size_t>(slot)),
      Groups(Numbered_Rows(grid, step)),
      Concentration_Groups(Numbered_Rows(grid, concentration_step)),
      File(directory / Solute_File_Name(index))
{
    File.Buffer += " " + File_Title("BALANCE OF ") + Solute_Label(index) +
                   "\r\n ALL MASSES IN KG/HA UNLESS OTHERWISE STATED\r\n\r\n";
}

void Solute_Report::Put_Plant_Row(const Solute_Block& block)
{
    std::string& text = File.Buffer;
    const Solute_Sums& sums = block.Sums;
    const std::size_t start = text.size();
    text += "   PL      0";
    Put_Row_Values(text, start,
                   {Kg_Ha(sums.Plant_Applied[Slot]), Kg_Ha(sums.Plant_Decay[Slot]), Kg_Ha(sums.Plant_Penetration[Slot]),
                    Index == 1 ? Kg_Ha(block.Column.Plant_Mass()) : 0, 0, 0, 0});
}

void Solute_Report::Put_Row(const Numbered_Row& group, const Solute_Block& block)
{
    const auto lanes = static_cast<std::size_t>(block.Column.Lanes());
    const Solute_Sums& sums = block.Sums;
    double gained = 0, decayed = 0, taken = 0, mass = 0, slow = 0, dissolved = 0, length = 0;
    for (int k = group.First; k <= group.Last; ++k) {
        const std::size_t at = static_cast<std::size_t>(k) * lanes + Slot;
        const double dz = Core->Thickness[static_cast<std::size_t>(k)];
        gained += sums.Applied[at] + sums.Formed[at];
        decayed += sums.Decay_Eq[at] + sums.Decay_Neq[at];
        taken += sums.Uptake[at];
        mass += block.Column.Mass()[at];
        slow += block.Column.Slow_Mass()[at];
        dissolved += block.Concentration[at] * dz;
        length += dz;
    }
    std::string& text = File.Buffer;
    const std::size_t start = text.size();
    Put_Integer(text, Core->Horizon[static_cast<std::size_t>(group.Last)], 5);
    To_Column(text, start, 10);
    Put_Integer(text, group.Number, 3);
    const double leached = sums.Flux[static_cast<std::size_t>(group.Last + 1) * lanes + Slot];
    Put_Row_Values(
        text, start,
        {Kg_Ha(gained), Kg_Ha(decayed), Kg_Ha(taken), Kg_Ha(mass), Kg_Ha(slow), dissolved / length, Kg_Ha(leached)});
}

void Solute_Report::Put_Totals(const Solute_Block& block)
{
    std::string& text = File.Buffer;
    const Solute_Sums& sums = block.Sums;
    const int lanes = block.Column.Lanes(), slot = static_cast<int>(Slot);
    const std::string label = Solute_Label(Index);
    const auto total = [&](const std::vector<double>& values) { return Total_Of(values, lanes, slot); };
    text += "\r\n * DECAY FOR COMPARTMENT 1 INCLUDES SOIL PHOTOLYSIS\r\n\r\n";
    Put_Mass_Total(text, " TOTAL PLANT UPTAKE OF " + label, Kg_Ha(total(sums.Uptake) + sums.Plant_Penetration[Slot]));
    Put_Mass_Total(text, " TOTAL DECAY OF " + label,
                   Kg_Ha(total(sums.Decay_Eq) + total(sums.Decay_Neq) + sums.Plant_Decay[Slot]));
    if (Index == 1)
        Put_Mass_Total(text, " TOTAL VOLATILIZATION",
                       Kg_Ha(sums.Soil_Volatilised[Slot] + sums.Plant_Volatilised[Slot]));
    Put_Mass_Total(text, " TOTAL RUNOFF AND EROSION LOSS", Kg_Ha(sums.Runoff[Slot] + sums.Sediment[Slot]));
    Put_Mass_Total(text, "   THEREOF WITH SEDIMENT", Kg_Ha(sums.Sediment[Slot]));
    Put_Mass_Total(text, " PESTICIDE LEACHED BELOW CORE",
                   Kg_Ha(sums.Flux[static_cast<std::size_t>(Core->Count() * lanes) + Slot]));
    Put_Mass_Total(text, " MACROPORE TRANSPORT IN THE CORE", Kg_Ha(sums.Bypass[Slot]));
    Put_Mass_Total(text, " DIFFUSION UP THROUGH 1 M", Kg_Ha(block.Upward[Slot]));
    const Solute_Stores stores = block.Column.Stores();
    Put_Mass_Total(text, " STORED IN SOIL AND ON PLANTS", Kg_Ha(stores.Soil[Slot] + stores.Plant[Slot]));
    Put_Left(text, " BALANCE CHECK", 39);
    Put_Exponent(text, Kg_Ha(block.Closure.Error[Slot]), 12, 2);
    text += "\r\n\r\n";
}

void Solute_Report::Put_Block(Span span, const Date& date, const Solute_Block& block)
{
    std::string& text = File.Buffer;
    Put_Block_Title(text, span, "PESTICIDE BALANCE ***   ", date);
    text += " SUBSTANCE: ";
    Put_Left(text, Solute_Label(Index), 27);
    text += "ALL MASSES IN KG/HA\r\n\r\n"
            " HO-     COM-      APPLICATION       DECAY *        PLANT      STORAGE      STORAGE   DISSOLVED      "
            "LEACHED\r\n"
            " RIZON PARTMENT   OR FORMATION                     UPTAKE     EQ. DOM.    NON-EQ. D.     (MG/L)        "
            "BELOW\r\n"
            " (KG/HA, STATES AT THE END OF THE PERIOD)\r\n\r\n";
    Put_Plant_Row(block);
    for (const Numbered_Row& group : Groups)
        Put_Row(group, block);
    Put_Totals(block);
    File.Flush_When_Full();
}

void Solute_Report::Put_Concentrations(const Solute_Block& block)
{
    const auto lanes = static_cast<std::size_t>(block.Column.Lanes());
    std::string& text = File.Buffer;
    text += " CONCENTRATIONS (TOTAL MG/KG, DISSOLVED MG/L, EQ. MG/KG, NON-EQ. MG/KG)\r\n";
    for (const Numbered_Row& group : Concentration_Groups) {
        double soil = 0, mass = 0, slow = 0, dissolved = 0, length = 0;
        for (int k = group.First; k <= group.Last; ++k) {
            const auto i = static_cast<std::size_t>(k);
            const double dz = Core->Thickness[i];
            soil += dz * Core->Density[i];
            mass += block.Column.Mass()[i * lanes + Slot];
            slow += block.Column.Slow_Mass()[i * lanes + Slot];
            dissolved += block.Concentration[i * lanes + Slot] * dz;
            length += dz;
        }
        Put_Integer(text, group.Number, 5);
        Put_Fixed(text, Core->Bottom[static_cast<std::size_t>(group.Last)], 10, 2);
        for (const double value : {(mass + slow) / soil, dissolved / length, mass / soil, slow / soil})
            Put_Exponent(text, value, 14, 5);
        text += CrLf;
    }
    text += CrLf;
    File.Flush_When_Full();
}

void Solute_Report::Put_Dated_Concentrations(const Date& date, const Solute_Block& block)
{
    std::string& text = File.Buffer;
    text += " *** STATE ***   YEAR";
    Put_Integer(text, date.Year, 4);
    text += " MONTH";
    Put_Integer(text, date.Month, 3);
    text += " DAY";
    Put_Integer(text, date.Day, 3);
    text += "\r\n";
    Put_Concentrations(block);
}

void Solute_Report::Close()
{
    File.Buffer += End_Of_Output;
    File.Close();
}

} // namespace orvel::engine
