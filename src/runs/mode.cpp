#include "runs/mode.h"

#include "core/files.h"

#include <array>

namespace orvel {

namespace {

constexpr std::array<Mode, 3> Modes = {{
    {.Kind = Mode_Kind::Focus,
     .Name = "focus",
     .Form = "FOCUS",
     .Caption = "Focus Scenarios",
     .Directory = "focus",
     .Version_Source = "c_apples.sze",
     .Individual_Stem = "_indiv.sze",
     .Probe_File = "Focuscheck.dat",
     .Missing_Text = "",
     .Horizons_Text = "Number of horizons in PSM file does not match!",
     .Last_Copy = "",
     .Last_Copy_Stage = 9,
     .Tail = Header_Tail::None,
     .Locations_From_Files = true,
     .Letter_Codes = true,
     .Asks_Irregular_Years = true,
     .Relative_Any_Location = true,
     .Profile_Rows = false,
     .Blank_Tillage = false,
     .Tillage_Index = 21,
     .Report_Title = "Leaching to groundwater: summary report"},
    {.Kind = Mode_Kind::Efsa,
     .Name = "efsa",
     .Form = "EFSA",
     .Caption = "EFSA Scenarios",
     .Directory = "EFSA",
     .Version_Source = "T_N_wcerea.sze",
     .Individual_Stem = "_indiv.sze",
     .Probe_File = "focuscheck.dat",
     .Missing_Text = "EFSA Tier 2 scenario data not available in this installation!\r\n",
     .Horizons_Text = "Number of horizons in PSM file do not match!",
     .Last_Copy = "run.bat",
     .Last_Copy_Stage = 8,
     .Tail = Header_Tail::Kept_Number,
     .Locations_From_Files = false,
     .Letter_Codes = false,
     .Asks_Irregular_Years = false,
     .Relative_Any_Location = false,
     .Profile_Rows = true,
     .Blank_Tillage = false,
     .Tillage_Index = 20,
     .Report_Title = "Organisms in soil, Tier 2: summary report"},
    {.Kind = Mode_Kind::Efsa_T4,
     .Name = "efsa_t4",
     .Form = "EFSA_T4",
     .Caption = "EFSA Scenarios",
     .Directory = "EFSA_T4",
     .Version_Source = "C_wcerea.sze",
     .Individual_Stem = "_indivT4.sze",
     .Probe_File = "focuscheck.dat",
     .Missing_Text = "EFSA Tier 4 scenario data not available in this installation!\r\n",
     .Horizons_Text = "Number of horizons in PSM file do not match!",
     .Last_Copy = "run.bat",
     .Last_Copy_Stage = 8,
     .Tail = Header_Tail::Scaling,
     .Locations_From_Files = false,
     .Letter_Codes = true,
     .Asks_Irregular_Years = false,
     .Relative_Any_Location = false,
     .Profile_Rows = true,
     .Blank_Tillage = true,
     .Tillage_Index = 20,
     .Report_Title = "Organisms in soil, Tier 4: summary report"},
}};

} // namespace

const Mode& Mode_Of(Mode_Kind kind)
{
    return Modes[static_cast<std::size_t>(kind)];
}

const Mode* Mode_Named(std::string_view name)
{
    for (const auto& mode : Modes) {
        if (mode.Name == name)
            return &mode;
    }
    return nullptr;
}

std::filesystem::path Mode_Directory(const Program_State& program, const Mode& mode)
{
    return Found_Or_New(program.App_Path, mode.Directory);
}

} // namespace orvel
