// Checks the pesticide document before a run.
#include "core/pesticide_constants.h"
#include "engine/setup/input.h"

namespace orvel::engine {

namespace {

constexpr double Largest_Rate = 1e4;     // 1/d
constexpr double Largest_Sorption = 1e9; // L/kg

// The ranges are far wider than any substance needs: values outside them would only produce NaN or infinity.
class Pesticide_Check {
public:
    Pesticide_Check(const Pesticide_Document& pesticide, const Scenario_Document& scenario, Findings& findings)
        : Pesticide(pesticide),
          Scenario(scenario),
          The_Findings(findings)
    {}

    void Check()
    {
        Check_Plant();
        Check_Volatilisation();
        for (int i = 1; i <= Substances; ++i) {
            if (i == 1 || Pesticide.Met_Present[static_cast<std::size_t>(i)])
                Check_Substance(i);
        }
    }

private:
    void Require(bool good, Fault fault, const std::string& text)
    {
        if (!good)
            The_Findings.Error(fault, text);
    }

    void Check_Plant()
    {
        if (Pesticide.App_Method.Number() <= 1)
            return;
        Require(Within(Pesticide.Plant_Decay.Number(), 0, Largest_Rate) &&
                    Within(Pesticide.Plant_Washoff.Number(), 0, Largest_Rate) &&
                    Within(Pesticide.Plant_Penetration, 0, Largest_Rate) &&
                    Within(Pesticide.Plant_Photodeg, 0, Largest_Rate),
                Fault::Rate, "RATE ON THE PLANT SURFACE NOT WITHIN 0 TO 10000");
        Require(Within(Pesticide.Plant_Filtration, 0, 1e6), Fault::Application_Value,
                "FILTRATION PARAMETER NOT WITHIN 0 TO 1E6");
        Require(Within(Pesticide.Plant_Laminar, 0, 1e6), Fault::Volatility, "LAMINAR LAYER NOT WITHIN 0 TO 1E6 CM");
        Require(Pesticide.Plant_Photodeg == 0 || Within(Pesticide.Plant_Ref_Rad, 1e-3, 1e6), Fault::Rate,
                "REFERENCE RADIATION OF THE PLANT SURFACE NOT WITHIN 0.001 TO 1E6");
    }

    void Check_Volatilisation()
    {
        for (std::size_t k = 0; k < 2; ++k) {
            Require(Within(Pesticide.Henry[k], 0, 1e9), Fault::Volatility,
                    "HENRY CONSTANT NOT WITHIN 0 TO 1E9 PA M3/MOL");
            Require(Within(Pesticide.Vap_Press[k], 0, 1e7), Fault::Volatility,
                    "VAPOUR PRESSURE NOT WITHIN 0 TO 1E7 PA");
            Require(Within(Pesticide.Solubility[k], 0, 1e9), Fault::Volatility, "SOLUBILITY NOT WITHIN 0 TO 1E9 MG/L");
            Require(Within(Pesticide.Volat_Temp[k], -50, 100), Fault::Volatility,
                    "TEMPERATURE OF VOLATILISATION NOT WITHIN -50 TO 100 DEGREES");
        }
        Require(Within(Pesticide.Hv, 0, 1e6), Fault::Volatility, "ENTHALPY OF VAPORISATION NOT WITHIN 0 TO 1E6 J/MOL");
        Require(Within(Pesticide.Diff_Air, 0, 100), Fault::Volatility,
                "DIFFUSION COEFFICIENT IN AIR NOT WITHIN 0 TO 100 CM2/S");
        Require(Within(Pesticide.Depth_Volat, 0, 1000), Fault::Volatility, "BOUNDARY LAYER NOT WITHIN 0 TO 1000 CM");
        for (std::size_t j = 1; j <= Degradation_Rows; ++j) {
            Require(Within(Pesticide.Photo_Rate[j], 0, Largest_Rate), Fault::Rate,
                    "PHOTODEGRADATION RATE NOT WITHIN 0 TO 10000");
            Require(Pesticide.Photo_Rate[j] == 0 || Within(Pesticide.Photo_I_Ref[j], 1e-3, 1e6), Fault::Rate,
                    "REFERENCE RADIATION OF PHOTODEGRADATION NOT WITHIN 0.001 TO 1E6");
        }
    }

    void Check_Substance(int i)
    {
        const auto s = static_cast<std::size_t>(i);
        const std::string of = " OF SUBSTANCE " + std::to_string(i);
        Require(Within(Pesticide.Molmass[s].Number(), 0, 1e6), Fault::Volatility,
                "MOLAR MASS NOT WITHIN 0 TO 1E6 G/MOL" + of);
        Require(Within(Pesticide.Koc[s].Number(), 0, Largest_Sorption) &&
                    Within(Pesticide.Koc2[s].Number(), No_Value, Largest_Sorption),
                Fault::Sorption, "KOC NOT WITHIN 0 TO 1E9 L/KG" + of);
        for (const Variant* value : {&Pesticide.Sorp_pH[s], &Pesticide.Sorp_pH2[s], &Pesticide.Sorp_pKa[s]})
            Require(Within(value->Number(), No_Value, 100), Fault::Sorption, "PH OR PKA OUT OF RANGE" + of);
        Require(Within(Pesticide.Freundl_Limit[s].Number(), 0, 1e9), Fault::Sorption,
                "LIMIT OF THE FREUNDLICH EQUATION NOT WITHIN 0 TO 1E9" + of);
        Require(Within(Pesticide.Ann_Incr[s], 0, 1e4) && Within(Pesticide.K_doc[s], 0, 1e9) &&
                    Within(Pesticide.Koc_Change[s], 0, 1e6),
                Fault::Sorption, "ANNUAL INCREASE, KDOC OR CHANGE IN DRY SOIL OUT OF RANGE" + of);
        Require(Within(Pesticide.F_neq[s], 0, 1e6) && Within(Pesticide.K_des[s], 0, Largest_Rate), Fault::Rate,
                "F NEQ OR K DES OUT OF RANGE" + of);
        Require(Within(Pesticide.Plant_Uptake[s].Number(), 0, 100), Fault::Rate,
                "PLANT UPTAKE FACTOR NOT WITHIN 0 TO 100" + of);
        for (int j = 1; j <= Rows_Of_Substance(i); ++j)
            Check_Row(Pesticide.Degradation[s][static_cast<std::size_t>(j)], " IN ROW " + std::to_string(j) + of);
        Check_Tables(s, of);
    }

    void Check_Row(const Degradation_Row& row, const std::string& where)
    {
        Require(Within(row.Deg_Rate.Number(), 0, Largest_Rate), Fault::Rate,
                "TRANSFORMATION RATE NOT WITHIN 0 TO 10000" + where);
        Require(Within(row.Deg_Temp.Number(), -50, 100) && Within(row.Deg_Q10.Number(), -1e6, 100), Fault::Rate,
                "STUDY TEMPERATURE OR Q10 OUT OF RANGE" + where);
        Require(Within(row.Deg_Moist_Abs.Number(), 0, 1000) && Within(row.Deg_Moist_Rel.Number(), 0, 1e5) &&
                    Within(row.Deg_Moist_Exp.Number(), -10, 10),
                Fault::Rate, "STUDY MOISTURE OUT OF RANGE" + where);
        Require(Within(row.Deg_Neq, 0, Largest_Rate), Fault::Rate,
                "RELATIVE RATE OF NON-EQUILIBRIUM SITES OUT OF RANGE" + where);
    }

    void Check_Tables(std::size_t s, const std::string& of)
    {
        const bool sorption = Pesticide.Kd_Flag[s].Number() == 0, factors = Pesticide.Deg_Depth_Mode[s] == 2;
        if (!sorption && !factors)
            return;
        if (Pesticide.N_Horizons.Number() != static_cast<double>(Scenario.Horizons.size()))
            return The_Findings.Error(Fault::Horizon_Tables,
                                      "NUMBER OF HORIZONS IN PESTICIDE AND SCENARIO FILE DIFFER, TABLES" + of +
                                          " NEEDED");
        for (std::size_t h = 1; h <= Scenario.Horizons.size(); ++h) {
            const std::string where = " IN HORIZON " + std::to_string(h) + of;
            Require(!sorption || Within(Pesticide.Horizons[h].Hor_Kd[s].Number(), 0, Largest_Sorption), Fault::Sorption,
                    "KD NOT WITHIN 0 TO 1E9 L/KG" + where);
            for (std::size_t j = 1; factors && j <= Degradation_Rows; ++j)
                Require(Within(Pesticide.Horizons[h].Hor_Deg[s][j].Number(), 0, Largest_Rate), Fault::Rate,
                        "TRANSFORMATION FACTOR OUT OF RANGE" + where);
        }
    }

    const Pesticide_Document& Pesticide;
    const Scenario_Document& Scenario;
    Findings& The_Findings;
};

} // namespace

void Check_Pesticide(const Pesticide_Document& pesticide, const Scenario_Document& scenario, Findings& findings)
{
    Pesticide_Check(pesticide, scenario, findings).Check();
}

} // namespace orvel::engine
