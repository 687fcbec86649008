#include "engine/setup/input.h"

#include "core/numbers.h"
#include "core/output_variables.h"
#include "core/text.h"
#include "engine/solute/solute_check.h"
#include "engine/water/water.h"
#include "files/pesticide_file.h"
#include "files/pesticide_lines.h"
#include "files/scenario_file.h"
#include "substance/pathway.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace orvel::engine {

namespace {

constexpr std::string_view Control_Name = "orvel.inp";
constexpr std::string_view Haude_Name = "Haude.dat";

// A depth to a hundredth of a centimetre.
std::string Depth_Text(double depth)
{
    return General_Text(std::round(depth * 100) / 100);
}

// A share of the volume to a thousandth.
std::string Share_Text(double share)
{
    return General_Text(std::round(share * 1000) / 1000);
}

constexpr double Depth_Tolerance = 0.005; // cm
constexpr double Metre = 100;             // cm
constexpr double Much_Rain = 300;         // cm a year

class Input_Reader {
public:
    Input_Reader(const File_Source& source, Findings& findings) : Source(source), The_Findings(findings) {}

    Engine_Input Read()
    {
        const auto control = Source(Control_Name);
        if (!control) {
            The_Findings.Error(Fault::Run_Control_Unreadable, "ORVEL.INP NOT FOUND");
            return std::move(Input);
        }
        Input.Control = Read_Run_Control(*control, The_Findings);
        if (The_Findings.Failed())
            return std::move(Input);
        Read_Scenario();
        Read_Pesticide();
        const bool documents = !The_Findings.Failed();
        Read_Climates();
        if (documents)
            Check_Documents();
        if (!The_Findings.Failed())
            Prepare();
        return std::move(Input);
    }

private:
    void Read_Scenario()
    {
        const auto bytes = Source(Input.Control.Scenario_File);
        if (!bytes)
            return The_Findings.Error(Fault::Scenario_Missing,
                                      "SCENARIO FILE " + Input.Control.Scenario_File + " NOT FOUND");
        Reset_SZE(Input.Scenario);
        File_Notes notes;
        try {
            Parse_SZE(*bytes, Input.Scenario, &notes);
        } catch (const std::exception& error) {
            The_Findings.Tell_Misreads(Fault::Scenario_Unreadable, Bare_Name(Input.Control.Scenario_File),
                                       notes.Misread);
            return The_Findings.Error(Fault::Scenario_Unreadable, "SCENARIO FILE " + Input.Control.Scenario_File +
                                                                      " NOT IN ITS FORMAT: " + error.what());
        }
        The_Findings.Tell_Misreads(Fault::Scenario_Unreadable, Bare_Name(Input.Control.Scenario_File), notes.Misread);
        Tell_Unused(Input.Control.Scenario_File, notes.Unused);
        Input.Location_Code = Location_Code_Of(Input.Control.Scenario_File);
        if (Input.Scenario.SZE_Legacy_Crops)
            The_Findings.Tell(Note::Irrigation_Assumed, "CROP ROWS OF THE OLD FORM: IRRIGATION IS ASSUMED");
    }

    void Read_Pesticide()
    {
        const auto bytes = Source(Input.Control.Pesticide_File);
        if (!bytes)
            return The_Findings.Error(Fault::Pesticide_Missing,
                                      "PESTICIDE FILE " + Input.Control.Pesticide_File + " NOT FOUND");
        Pesticide_Notes notes;
        try {
            Parse_PSM(*bytes, Input.Pesticide, &notes);
        } catch (const std::exception& error) {
            The_Findings.Tell_Misreads(Fault::Pesticide_Unreadable, Bare_Name(Input.Control.Pesticide_File),
                                       notes.Misread);
            return The_Findings.Error(Fault::Pesticide_Unreadable, "PESTICIDE FILE " + Input.Control.Pesticide_File +
                                                                       " NOT IN ITS FORMAT: " + error.what());
        }
        The_Findings.Tell_Misreads(Fault::Pesticide_Unreadable, Bare_Name(Input.Control.Pesticide_File), notes.Misread);
        for (int i = 1; i <= Substances; ++i) {
            if (i == 1 || Input.Pesticide.Met_Present[static_cast<std::size_t>(i)])
                Input.Substances.push_back(i);
        }
        Check_Targets(notes);
        Tell_Unused(Input.Control.Pesticide_File, notes.Unused);
    }

    void Tell_Unused(const std::string& file, const std::vector<Unused_Value>& values)
    {
        for (const Unused_Value& value : values)
            The_Findings.Tell(Note::Value_Unused, std::string(Bare_Name(file)) + ", LINE " +
                                                      std::to_string(value.At.Line) + ", COLUMN " +
                                                      std::to_string(value.At.Column) + ": \"" + value.Word + "\" (" +
                                                      Upper(value.Field) + ") IS NOT USED, " + value.Used + " IS");
    }

    // An arrow must not lead to a metabolite that the file has no section for: its mass would be lost from sight.
    void Check_Targets(const Pesticide_Notes& notes)
    {
        for (int t = 1; t <= Last_Transformation; ++t) {
            const Arrow& arrow = Arrow_Of(t);
            if (arrow.Target == 0 || std::ranges::count(Input.Substances, arrow.Target) ||
                !std::ranges::count(Input.Substances, arrow.Source))
                continue;
            const auto source = static_cast<std::size_t>(arrow.Source), row = static_cast<std::size_t>(arrow.Row);
            if (Input.Pesticide.Degradation[source][row].Deg_Rate.Number() <= 0 &&
                (arrow.Source != 1 || Input.Pesticide.Photo_Rate[row] <= 0))
                continue;
            const Place& place = notes.Rates[source][row];
            The_Findings.Error(Fault::Rate, std::string(Bare_Name(Input.Control.Pesticide_File)) + ", LINE " +
                                                std::to_string(place.Line) + ", COLUMN " +
                                                std::to_string(place.Column) + ": " +
                                                std::string(Section_Name[static_cast<std::size_t>(arrow.Target)]) +
                                                " IS FORMED, AND THE FILE HAS NO SECTION FOR IT");
        }
    }

    // Reads each file once, even if it is used for several years.
    void Read_Climates()
    {
        std::map<std::string, std::vector<Climate_Day>> files;
        std::map<std::string, std::string> titles;
        std::vector<const std::vector<Climate_Day>*> years;
        const std::size_t errors = The_Findings.Errors.size();
        for (const std::string& name : Input.Control.Climate_Files) {
            if (!files.contains(name)) {
                if (const auto bytes = Source(name)) {
                    files[name] =
                        Read_Climate_Days(*bytes, name, Input.Scenario.SZE_Latitude, titles[name], The_Findings);
                    if (The_Findings.Errors.size() == errors)
                        Note_Rain(name, files[name]);
                } else
                    The_Findings.Error(Fault::Climate_Missing, "CLIMATE FILE " + name + " NOT FOUND");
            }
            years.push_back(&files[name]);
            Input.Weather.Titles.push_back(titles[name]);
        }
        if (The_Findings.Errors.size() > errors)
            return;
        auto kept = std::move(Input.Weather.Titles);
        Input.Weather = Assemble_Climate(Input.Control, years, The_Findings);
        Input.Weather.Titles = std::move(kept);
        for (Climate_Day& day : Input.Weather.Days) {
            day.Temperature += Input.Control.Temperature_Shift;
            day.Temperature_14 += Input.Control.Temperature_Shift;
        }
        if (Input.Scenario.SZE_ET_Method == 0 &&
            std::ranges::any_of(Input.Weather.Days, [](const Climate_Day& day) { return day.Evaporation < 0; }))
            The_Findings.Error(Fault::Climate_Value, "THE CLIMATE FILES LACK EVAPORATION, WHICH THE SCENARIO ASKS FOR");
    }

    // More than falls in nearly any place in a year: millimetres, taken for centimetres?
    void Note_Rain(const std::string& name, const std::vector<Climate_Day>& days)
    {
        double sum = 0;
        for (const Climate_Day& day : days)
            sum += day.Rain;
        if (sum > Much_Rain)
            The_Findings.Tell(Note::Much_Rain, "CLIMATE FILE " + name + " HAS " + Depth_Text(sum) +
                                                   " CM OF PRECIPITATION IN ITS YEAR: THE COLUMN IS IN CM, NOT MM");
    }

    void Check_Documents()
    {
        Check_Scenario(Input.Scenario, Input.Control, The_Findings);
        Check_Pesticide(Input.Pesticide, Input.Scenario, The_Findings);
        for (const Output_Row& row : Input.Control.Rows) {
            if (row.Variable != 0 && !std::ranges::count(Input.Substances, row.Substance))
                The_Findings.Tell(Note::Substance_Missing, "SUBSTANCE " + std::to_string(row.Substance) + " OF " +
                                                               row.Code + " IS NOT IN THE RUN: COLUMN OF ZEROS");
            if (row.Variable != 0 && row.Scale <= 0)
                The_Findings.Tell(Note::Value_Unused,
                                  "SCALE " + General_Text(row.Scale) + " OF " + row.Code + " GIVES " +
                                      (row.Scale < 0 ? "A COLUMN WITH THE OPPOSITE SIGN" : "A COLUMN OF ZEROS"));
            if (row.Depth > Input.Scenario.SZE_Core_Depth)
                The_Findings.Tell(Note::Depth_Clamped,
                                  "DEPTH OF " + row.Code + " BELOW THE CORE: THE LAST COMPARTMENT IS USED");
        }
    }

    void Read_Haude_Factors()
    {
        if (Input.Scenario.SZE_ET_Method != 3)
            return;
        if (const auto bytes = Source(Haude_Name))
            Input.Haude = engine::Read_Haude(*bytes, The_Findings);
        else
            The_Findings.Tell(Note::Haude_Factors, "NO HAUDE.DAT: BUILT-IN FACTORS ARE USED");
        for (const auto& period : Input.Rotation) {
            const int crop = Input.Scenario.Crops[static_cast<std::size_t>(period.Row)].SZE_Rot_Crop_No;
            if (!Input.Haude.contains(crop))
                The_Findings.Tell(Note::Haude_Factors,
                                  "NO HAUDE FACTORS FOR CROP " + std::to_string(crop) + ": THOSE OF GRASS ARE USED");
        }
    }

    void Prepare()
    {
        const Climate& weather = Input.Weather;
        Input.Core = Build_Grid(Input.Scenario);
        Input.Fine = Acts_At_The_Surface(Input.Scenario, Input.Pesticide)
                         ? Build_Grid(Input.Scenario, Surface_Layer::With)
                         : Input.Core;
        Input.Rotation = Build_Rotation(Input.Scenario, weather.Dates, weather.Last_Day, The_Findings);
        Input.Application_Block = engine::Application_Block(Input.Pesticide, Input.Location_Code, The_Findings);
        Input.Applications = Plan_Applications(Input.Pesticide, Input.Application_Block, Input.Scenario, Input.Rotation,
                                               weather.Dates, weather.First_Day, weather.Last_Day, The_Findings);
        Read_Haude_Factors();
        Input.Solute = Build_Solute_Setup(Input.Pesticide, Input.Scenario, Input.Fine, Input.Substances);
        if (The_Findings.Failed())
            return;
        for (const Solute_Fault& fault : Check_Solute_Setup(Input.Solute))
            The_Findings.Error(fault.Kind, fault.Text);
        Note_Compartments();
        Note_Depths();
    }

    void Note_Moved(const std::string& what, double asked, double used)
    {
        if (std::fabs(asked - used) > Depth_Tolerance)
            The_Findings.Tell(Note::Depth_Moved, what + " " + Depth_Text(asked) + " CM IS TAKEN AT " +
                                                     Depth_Text(used) + " CM, THE NEAREST BORDER OF COMPARTMENTS");
    }

    // Depths that the compartments do not meet.
    void Note_Depths()
    {
        const Grid& core = Input.Core;
        if (Input.Scenario.SZE_Core_Depth < Metre - Depth_Tolerance)
            The_Findings.Tell(Note::Core_Below_A_Metre,
                              "THE CORE ENDS AT " + Depth_Text(Input.Scenario.SZE_Core_Depth) +
                                  " CM: WHAT TABLES AND FILES HEAD \"1 M SOIL DEPTH\" IS THE PERCOLATE OF THE CORE");
        Note_Moved("THE DEPTH OF 1 M,", Metre, core.Depth_Of(core.Interface_Below(core.Top_Layers)));
        for (const Output_Row& row : Input.Control.Rows) {
            const bool at_border =
                row.Variable == Variable::INFL || row.Variable == Variable::PFLX || row.Variable == Variable::LEAC;
            if (at_border && row.Depth <= Input.Scenario.SZE_Core_Depth)
                Note_Moved(row.Code + " AT", row.Depth, core.Depth_Of(core.Interface_Nearest(row.Depth)));
        }
        double bottom = 0;
        for (std::size_t h = 0; h + 1 < Input.Scenario.Horizons.size(); ++h) {
            bottom += Input.Scenario.Horizons[h].SZE_Hor_Thickness.Number();
            if (std::fabs(bottom - core.Depth_Of(core.Interface_Nearest(bottom))) <= Depth_Tolerance)
                continue;
            const Compartment_Range& across = core.Document_At(bottom);
            The_Findings.Tell(Note::Depth_Moved,
                              "THE LOWER BORDER OF HORIZON " + std::to_string(h + 1) + " AT " + Depth_Text(bottom) +
                                  " CM LIES WITHIN THE COMPARTMENT FROM " + Depth_Text(core.Depth_Of(across.First)) +
                                  " TO " + Depth_Text(core.Depth_Of(across.Last + 1)) + " CM, WHICH TAKES MEANS");
        }
    }

    // Density and field capacity of a horizon that leave no room for air.
    void Note_Porosity()
    {
        const Grid& core = Input.Core;
        for (std::size_t i = 0; i < core.Thickness.size(); ++i) {
            const double by_density = Porosity_Of_Density(core.Density[i]);
            if (core.Porosity[i] > by_density && (i == 0 || core.Horizon[i] != core.Horizon[i - 1]))
                The_Findings.Tell(Note::Value_Clamped, "POROSITY BY THE DENSITY, " + Share_Text(by_density) +
                                                           ", IS NOT ABOVE FIELD CAPACITY, " +
                                                           Share_Text(core.Field_Capacity[i]) + ": " +
                                                           Share_Text(core.Porosity[i]) + " IS TAKEN IN HORIZON " +
                                                           std::to_string(core.Horizon[i]));
        }
    }

    void Note_Compartments()
    {
        Note_Porosity();
        const Grid& core = Input.Core;
        for (std::size_t i = 0; i < core.Thickness.size(); ++i) {
            const std::string where = " IN HORIZON " + std::to_string(core.Horizon[i]);
            if (Input.Scenario.SZE_Dispersion_Flag == 1 && core.Dispersion[i] < core.Thickness[i] / 10)
                The_Findings.Tell(Note::Dispersion_Small, "DISPERSION LENGTH BELOW A TENTH OF THE COMPARTMENT" + where);
            if (core.Initial_Water[i] > core.Porosity[i] || core.Initial_Water[i] < 0.5 * core.Wilting_Point[i])
                The_Findings.Tell(Note::Value_Clamped,
                                  "SOIL WATER AT THE START CUT TO HALF THE WILTING POINT TO POROSITY" + where);
        }
    }

    const File_Source& Source;
    Findings& The_Findings;
    Engine_Input Input;
};

} // namespace

Engine_Input Read_Input(const File_Source& source, Findings& findings)
{
    return Input_Reader(source, findings).Read();
}

} // namespace orvel::engine
