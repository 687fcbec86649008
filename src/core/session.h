#pragma once

#include "core/message.h"
#include "core/variant.h"
#include "core/version.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

// The records that all rules and forms share. docs/formats.md says where each field stands in its file. Array bounds
// are inclusive as the comments give them, and index 0 of a substance is not in use.

constexpr int Substances = 9;         // 1 active substance, 2 to 5 metabolites A1 to D1, 6 to 9 A2 to D2
constexpr int Last_Location = 9;      // location blocks 0 to 9; 0 is " User specific"
constexpr int Last_Application = 521; // application slots 0 to 521
constexpr int Degradation_Rows = 5;   // rows 1 to 5 for the active substance, to 4 for i = 2 to 5, to 2 for i = 6 to 9
constexpr int Last_Transformation = 29; // arrows 1 to 29; 18, 20 and 28 are reserved
constexpr int App_Mode_Relative = 9;    // App_Mode of dates relative to a crop stage
constexpr int Last_Slot = 19;           // output slots 0 to 19
constexpr int Last_Job = 500;           // combinations 1 to 500 of a batch
constexpr int Most_Climate_Rows = 25000;
constexpr int Most_Horizons = 400; // no soil has more horizons than compartments
constexpr int Most_Years = 66;

template <class T> using Per_Substance = std::array<T, Substances + 1>;
template <class T> using Per_Location = std::array<T, Last_Location + 1>;
template <class T> using Per_Application = std::array<T, Last_Application + 1>;

// The rows of the transformation table of a substance.
constexpr int Rows_Of_Substance(int i)
{
    return i == 1 ? 5 : i <= 5 ? 4 : 2;
}

// One arrow: the rate (1/d) of a substance's transformation into one target, and its reference conditions.
struct Degradation_Row {
    Variant Deg_Rate, Deg_Temp, Deg_Q10, Deg_Moist_Abs, Deg_Moist_Rel, Deg_Moist_Exp;
    double Deg_Neq = 0;
    bool operator==(const Degradation_Row&) const = default;
};

// An application at a calendar date; the year is that of the simulation, from 1.
struct Application {
    std::int16_t App_Day = 0, App_Month = 0, App_Year = 0;
    double App_Rate = 0;            // kg/ha
    double App_Depth = 0;           // cm
    double App_Frpex = 0;           // crop interception, %
    double App_Time = 0;            // fraction poorly exposed
    std::int16_t App_Crop_Flag = 0; // hour
    bool operator==(const Application&) const = default;
};

// An application at a number of days after a crop stage.
struct Relative_Application {
    std::int16_t Abs9_Day = 0, Abs9_Month = 0, Abs9_Year = 0; // days, reference point 0 to 5, year of the simulation
    double Abs9_Rate = 0, Abs9_Depth = 0, Abs9_Frpex = 0;
    bool operator==(const Relative_Application&) const = default;
};

// Depth dependent values of one horizon, by substance.
struct Pesticide_Horizon {
    Per_Substance<Variant> Hor_Kd, Hor_FrExp;
    Per_Substance<std::array<Variant, Degradation_Rows + 1>> Hor_Deg; // factors 1 to 5
    bool operator==(const Pesticide_Horizon&) const = default;
};

struct Pesticide_Document {
    // Applications
    Per_Location<Per_Application<Application>> Applications; // [location][application], both as numbered in the file
    Per_Application<Relative_Application> Relative;          // App_Mode 9, shared by all locations
    Per_Location<Variant> App_Count;
    Per_Location<std::string> App_Location; // long names; that of location 0 is empty
    std::int16_t App_Loc_Count = 0, App_Rel_Flag = 0, App_Mode = 0;
    Variant App_Method; // 1 soil, 2 linear, 3 exponential foliar, 4 manually
    Variant Plant_Decay, Plant_Washoff;
    double Plant_Filtration = 0, Plant_Penetration = 0, Plant_Photodeg = 0, Plant_Ref_Rad = 0, Plant_Laminar = 0;

    // Volatilisation, at two temperatures
    Variant Henry_Flag; // 0 direct, 1 calculated
    std::array<double, 2> Henry{}, Solubility{}, Vap_Press{}, Volat_Temp{};
    double Diff_Air = 0, Depth_Volat = 0, Hv = 0;
    bool PSM_Legacy_Volat = false; // the file read had the older form with one value line

    // Degradation
    Per_Substance<std::array<Degradation_Row, Degradation_Rows + 2>>
        Degradation;                                                 // [substance][row 1 to 5]; row 0 and 6 are spare
    std::array<double, 11> Photo_Rate{}, Photo_I_Ref{};              // 1 to 5 in the file
    Per_Substance<std::uint8_t> Deg_Depth_Mode{}, Deg_Liquid_Only{}; // 0 factors, 1 constant, 2 individual

    // Sorption
    Per_Substance<Variant> Molmass, Koc, Koc2, Fr_Exp, Sorp_pH, Sorp_pH2, Sorp_pKa, Freundl_Limit, Kd_Flag,
        Plant_Uptake;
    Per_Substance<double> Ann_Incr{}, K_doc{}, Koc_Change{}, F_neq{}, K_des{};

    Variant N_Horizons;
    std::vector<Pesticide_Horizon> Horizons; // 0 to N_Horizons + 1, in use from 1

    std::string PSM_Title;
    Per_Substance<std::string> Substance_Name;

    // Derived from the rates (Update_Pathway)
    Per_Substance<bool> Met_Present{}, Bound_Active{};
    std::array<bool, Last_Transformation + 1> Trans_Active{};

    bool operator==(const Pesticide_Document&) const = default;
};

struct Crop_Row {
    std::int16_t SZE_Rot_Crop_No = 0;
    Variant SZE_Rot_Text2;        // maximum interception storage for water, cm
    Variant SZE_Rot_Text1;        // maximum root depth, cm
    Variant SZE_Rot_Interception; // maximum crop interception, %
    std::int16_t SZE_Rot_Residue = 0, SZE_Rot_CN1 = 0, SZE_Rot_CN2 = 0, SZE_Rot_CN3 = 0;
    Variant SZE_Rot_USLE1, SZE_Rot_USLE2, SZE_Rot_USLE3;
    double SZE_Rot_Dry_Mass = 0; // kg/m2
    double SZE_Rot_RR_Photo = 0.2, SZE_Rot_RR_Pen = 0.2, SZE_Rot_RR_Vol = 0.2, SZE_Rot_RR_Wash = 0.2;
    std::int16_t SZE_Rot_Irrigated = 1, SZE_Rot_Perennial = 0, SZE_Rot_Tillage = 0;
    double SZE_Rot_Kc_Mid = 1, SZE_Rot_Kc_Late = 1;
    bool operator==(const Crop_Row&) const = default;
};

struct Rotation_Date {
    int Day = 0, Month = 0, Year = 0;
    bool operator==(const Rotation_Date&) const = default;
};

struct Rotation_Row {
    std::int16_t SZE_Eme_Day = 0, SZE_Eme_Month = 0, SZE_Eme_Year = 0;
    std::int16_t SZE_Mat_Day = 0, SZE_Mat_Month = 0, SZE_Mat_Year = 0;
    std::int16_t SZE_Har_Day = 0, SZE_Har_Month = 0, SZE_Har_Year = 0;
    std::int16_t SZE_Rot_Crop_Index = 0; // 1-based crop row
    Variant SZE_Sen_Day, SZE_Sen_Month;
    std::int16_t SZE_Sen_Year = 0;
    std::int16_t SZE_Til_Day = 0, SZE_Til_Month = 0, SZE_Til_Year = 0;
    std::optional<Rotation_Date>
        SZE_Sen_In_File; // the senescence that a file of marker "ORVEL401" has and no editor shows
    bool operator==(const Rotation_Row&) const = default;
};

struct Scenario_Horizon {
    Variant SZE_Hor_Thickness, SZE_Hor_Bulk_Density, SZE_Hor_Dispersion, SZE_Hor_Soil_Water, SZE_Hor_Drainage;
    Variant SZE_Hor_FC, SZE_Hor_WP, SZE_Hor_OC, SZE_Hor_pH, SZE_Hor_Sand;
    double SZE_Hor_Clay = 0, SZE_Hor_Biodeg = 0;
    bool operator==(const Scenario_Horizon&) const = default;
};

struct Scenario_Document {
    std::string SZE_Title;
    std::array<std::array<double, 401>, 3> SZE_Kc{}; // no crop, mid season, late season; column 0 is in the file
    Variant SZE_Snow_Factor;
    std::int16_t SZE_ET_Method = 0; // 0 pot. evaporation data, 1 Hamon, 2 pot. evaporation/Hamon, 3 Haude
    double SZE_ET_Depth = 0, SZE_First_Crop = 0;
    std::int16_t SZE_Line2_Flag = 0;
    std::int16_t SZE_Erosion = 0;
    Variant SZE_Eros_K, SZE_Eros_2, SZE_Eros_3, SZE_Eros_4;
    double SZE_Eros_5 = 0;

    std::int16_t SZE_Crop_Count = 0;
    std::vector<Crop_Row> Crops; // from 0
    std::int16_t SZE_Rot_Count = 0;
    std::vector<Rotation_Row> Rotation; // from 0

    double SZE_Core_Depth = 0;
    std::int16_t SZE_Dispersion_Flag = 0; // 1 dispersion length, 0 dispersion coefficient
    std::int16_t SZE_Layers = 0;
    Variant SZE_Field_4216, SZE_Hydraulic_Flag, SZE_Water_Flag, SZE_Horizons;
    std::int16_t SZE_Delxflg = 0;           // 1 constant compartments, 0 dependent on soil depth
    std::vector<Scenario_Horizon> Horizons; // from 0

    Variant SZE_Bottom_Line;
    Variant SZE_Freq_Water, SZE_Freq_Solute, SZE_Freq_Conc; // DAY, MNTH, YEAR
    Variant SZE_Out_Every_Water, SZE_Out_Every_Solute, SZE_Out_Every_Conc;
    std::int16_t SZE_Macropore = 0;
    double SZE_Macro_Depth = 0, SZE_DOC_Content = 0;
    std::int16_t SZE_DOC_Flag = 0;
    double SZE_Runoff_Depth = 0, SZE_Macro_Threshold = 0, SZE_Macro_Fraction = 0;
    double SZE_Latitude = 0;
    std::int16_t SZE_Runoff = 0;   // derived: SZE_Water_Flag is 2 or above
    bool SZE_Legacy_Crops = false; // the file read had crop rows of the older form

    bool operator==(const Scenario_Document&) const = default;
};

struct Climate_Row {
    std::string Cli_Day, Cli_Month, Cli_Year; // two characters each
    // Nothing where the file has blanks; such a number is shown and written as 0.
    std::optional<double> Cli_Rain = 0, Cli_Evap = 0;                            // cm
    std::optional<double> Cli_Temp_14 = 0, Cli_Temp_Mean = 0, Cli_Temp_Diff = 0; // degC
    std::optional<double> Cli_Rel_Hum = 0;                                       // %
    std::optional<double> Cli_Radiation = 0;                                     // kJ/m2
    std::string Cli_Hour;
    bool operator==(const Climate_Row&) const = default;
};

struct Climate_Table {
    std::string Cli_Title;
    std::vector<Climate_Row> Rows; // row n of the file is Rows[n - 1]
    bool operator==(const Climate_Table&) const = default;
};

struct Output_Slot {
    std::int16_t Out_Var = 0;    // 1 to 28, 0 for an empty slot
    std::int16_t Out_Depth = 0;  // cm
    std::int16_t Out_Depth2 = 0; // substance: 0 active compound, 1 to 8 metabolites
    bool operator==(const Output_Slot&) const = default;
};
using Output_Selection = std::array<Output_Slot, Last_Slot + 1>;

// A simulation of a regulatory mode by the entries of its three lists.
struct Simulation_Choice {
    std::string Pesticide, Crop, Location; // the pesticide file's name without its extension
    bool operator==(const Simulation_Choice&) const = default;
};

// Files and period of the single run.
struct Single_Run_Settings {
    Variant Run_Scenario_File, Run_PSM_File;
    std::vector<std::string> Run_Cli_Files; // one a year, from 0
    Variant Sim_Years, Start_Day, Start_Month, End_Day;
    std::int16_t End_Month = 0;
};

struct Run_Settings {
    Single_Run_Settings Single;

    Simulation_Choice Last_Simulation; // chosen last on a run form, in the result browser or in the list of simulations
};

struct Program_State {
    std::filesystem::path App_Path; // the installation directory
    std::string Engine_Exe;
    double Engine_Version = 0; // 4.01 for orvel401.exe
    std::int16_t Suite_Minor = Program_Version_Minor;
    std::string Aktuelle_ORVEL_Version, Aktuelle_ORVELSUITE_Version; // captions of the version labels
    bool Online_Help = false;
    std::vector<std::string> Help_Text;
    std::string PSM_File; // file of the open document
    bool PSM_Read_OK = false;
    bool PSM_Changed = false, SZE_Changed = false, CLI_Changed = false;
};

// What the substance editor has open; none of it is in the document.
struct Editor_State {
    std::int16_t Substance_Index = 0, Transformation_Index = 0;

    // The pattern of the location under edit, derived from its list of applications
    std::uint8_t App_Pattern = 0; // 0 irregular, 1 every year, 2 every other year, 3 every third year
    std::uint8_t App_Cycles = 0;  // 26, 23 or 22
    Per_Location<std::int16_t> App_Per_Year{};
    std::int16_t App_Current_Location = 0;
    std::uint8_t App_Current = 0;
    std::uint8_t App_Loc_Index = 0;
};

struct Session {
    Pesticide_Document Pesticide;
    Scenario_Document Scenario;
    Climate_Table Climate;
    Run_Settings Run;
    Output_Selection Output;
    Program_State Program;
    Editor_State Editor;
    Ask_Function Ask;
};

// What an edit of a document needs: the document, the mark that it was changed, and what the editor has open.
struct Pesticide_Edit {
    Pesticide_Edit(Session& session)
        : Document(session.Pesticide),
          Editor(session.Editor),
          Changed(session.Program.PSM_Changed)
    {}
    Pesticide_Document& Document;
    Editor_State& Editor;
    bool& Changed;
};
struct Scenario_Edit {
    Scenario_Edit(Session& session) : Document(session.Scenario), Changed(session.Program.SZE_Changed) {}
    Scenario_Document& Document;
    bool& Changed;
};

// English names of the months, 1 to 12, whatever the system's language is.
constexpr std::array<std::string_view, 13> Month_Name = {"",        "January",  "February", "March",  "April",
                                                         "May",     "June",     "July",     "August", "September",
                                                         "October", "November", "December"};

// The crop stages that a relative application can refer to.
constexpr std::array<std::string_view, 6> Crop_Event_Label = {
    "1st emergence in the year", "1st maturation in the year", "1st harvest in the year",
    "2nd emergence in the year", "2nd maturation in the year", "2nd harvest in the year"};

// The names of the nine substances in a new document, 1 to 9.
constexpr std::array<std::string_view, Substances + 1> Default_Substance_Name = {"",
                                                                                 "Active Substance",
                                                                                 "Metabolite A1",
                                                                                 "Metabolite B1",
                                                                                 "Metabolite C1",
                                                                                 "Metabolite D1",
                                                                                 "Metabolite A2",
                                                                                 "Metabolite B2",
                                                                                 "Metabolite C2",
                                                                                 "Metabolite D2"};

// Set a document to its defaults. Fields without a default keep their value.
void Reset_PSM(Pesticide_Document& document);
void Reset_SZE(Scenario_Document& document);

// A climate table of `rows` rows: date fields "00", everything 0, relative humidity 100.
void Clear_Climate(Climate_Table& table, int rows);

} // namespace orvel
