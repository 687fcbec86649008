#include "engine_files.h"

#include <fstream>
#include <iterator>

namespace orvel {

namespace {

std::string Right(std::string_view text, std::size_t width)
{
    return text.size() >= width ? std::string(text) : std::string(width - text.size(), ' ').append(text);
}

std::string Total(std::string_view name, std::string_view value)
{
    return Line_At({{2, name}, {40, value}});
}

} // namespace

std::string Line_At(std::initializer_list<std::pair<std::size_t, std::string_view>> texts)
{
    std::string line;
    for (const auto& [column, text] : texts) {
        line.resize(std::max(line.size(), column - 1 + text.size()), ' ');
        line.replace(column - 1, text.size(), text);
    }
    return line;
}

std::string Lines(const std::vector<std::string>& lines)
{
    std::string bytes;
    for (const auto& line : lines)
        bytes += line + "\r\n";
    return bytes;
}

std::string Water_Block(const Water_Year& year)
{
    std::vector<std::string> lines = {
        " *** " + year.Kind + " WATER BALANCE ***     YEAR   7",
        "",
        Line_At({{2, "WATER SUPPLY"}, {39, "PRECIPITATION"}, {59, "IRRIGATION"}, {76, "CANOPY LOSS"}}),
        Line_At({{47, "(CM)"}, {65, "(CM)"}, {83, "(CM)"}}),
        Line_At({{2, "SUM OF THE PERIOD"},
                 {43, Right(year.Precipitation, 9)},
                 {61, Right(year.Irrigation, 9)},
                 {79, Right(year.Loss, 9)}}),
        "",
    };
    if (!year.Snow.empty()) {
        lines.push_back(Line_At({{2, "SNOW"}, {45, "SNOWPACK"}, {62, "SNOWFALL"}}));
        lines.push_back(Line_At({{42, "MELT WATER (CM)"}}));
        lines.push_back(Line_At({{2, "SUM OF THE PERIOD"}, {43, Right(year.Snow, 9)}, {61, "   9.9999"}}));
        lines.push_back("");
    }
    lines.push_back(Line_At({{2, "SURFACE"}, {62, "RUNOFF"}, {80, "SOIL LOSS"}}));
    lines.push_back(Line_At({{64, "(CM)"}}));
    lines.push_back(Line_At({{2, "SUM OF THE PERIOD"}, {60, Right(year.Runoff, 9)}, {79, "   0.0412"}}));
    lines.push_back("");
    lines.push_back(
        Line_At({{2, "HORIZON   COMPARTMENT TO"}, {30, "INITIAL"}, {59, "TRANSPIRATION"}, {76, "PERCOLATE"}}));
    lines.push_back(Line_At({{22, "BOTTOM"}, {57, "+ EVAPORATION"}, {78, "BELOW"}}));
    lines.push_back(Line_At({{22, "(CM)"}, {68, "(CM)"}, {80, "(CM)"}}));
    lines.push_back("");
    for (std::size_t i = 0; i < year.Transpiration.size(); ++i) {
        const std::string compartment = Right(std::to_string(year.Transpiration[i].first), 3);
        lines.push_back(Line_At({{4, " 1"},
                                 {13, compartment},
                                 {18, "    2.50"},
                                 {47, "  0.2924"},
                                 {61, Right(year.Transpiration[i].second, 12)},
                                 {74, Right(i < year.Percolate.size() ? year.Percolate[i] : "0.00000", 12)},
                                 {89, "    9.31"}}));
    }
    lines.push_back("");
    lines.push_back(" SUMMARY FLUXES");
    lines.push_back(Line_At({{2, "RECHARGE BELOW CORE (CM)"}, {40, Right(year.Recharge, 10)}}));
    lines.push_back(Line_At({{2, "CHANGE OF STORAGE (CM)"}, {40, "   0.10000"}}));
    lines.push_back("");
    return Lines(lines);
}

std::string Water_Block(std::string_view percolate_metre, std::string_view recharge)
{
    return Water_Block({.Snow = "0.0000",
                        .Transpiration = {{1, "0.00000"}, {40, "0.00000"}},
                        .Percolate = {"77.77777", std::string(percolate_metre)},
                        .Recharge = std::string(recharge)});
}

std::string Chem_Block(const Chem_Year& year)
{
    std::vector<std::string> lines = {
        " *** " + year.Kind + " PESTICIDE BALANCE ***   YEAR   7",
        " SUBSTANCE: PESTICIDE                  ALL MASSES IN KG/HA",
        "",
        Line_At({{2, "HO-"}, {10, "COM-"}, {20, "APPLICATION"}, {103, "LEACHED"}}),
        Line_At({{2, "RIZON PARTMENT"}, {19, "OR FORMATION"}, {105, "BELOW"}}),
        " (KG/HA, STATES AT THE END OF THE PERIOD)",
        "",
    };
    for (std::size_t i = 0; i < year.Application.size(); ++i) {
        const std::string compartment = Right(std::to_string(year.Application[i].first), 3);
        lines.push_back(Line_At({{4, " 1"},
                                 {10, compartment},
                                 {19, Right(year.Application[i].second, 12)},
                                 {33, " 4.10000E-01"},
                                 {85, " 1.2300E-02"},
                                 {98, Right(i < year.Leached.size() ? year.Leached[i] : "0.0000E+00", 11)}}));
    }
    lines.push_back("");
    lines.push_back(" * DECAY FOR COMPARTMENT 1 INCLUDES SOIL PHOTOLYSIS");
    lines.push_back("");
    lines.push_back(Total("TOTAL PLANT UPTAKE OF PESTICIDE", Right(year.Uptake, 12)));
    lines.push_back(Total("TOTAL DECAY OF PESTICIDE", Right(year.Decay, 12)));
    if (!year.Volatilization.empty())
        lines.push_back(Total("TOTAL VOLATILIZATION", Right(year.Volatilization, 12)));
    if (year.Macropore_First)
        lines.push_back(Total("MACROPORE TRANSPORT IN THE CORE", " 5.55555E-01"));
    lines.push_back(Total("TOTAL RUNOFF AND EROSION LOSS", Right(year.Runoff, 12)));
    lines.push_back(Total("PESTICIDE LEACHED BELOW CORE", Right(year.Bottom, 12)));
    lines.push_back(Total("STORED IN SOIL AND ON PLANTS", " 2.19600E-01"));
    lines.push_back("");
    return Lines(lines);
}

std::string Chem_Block(std::string_view leached_metre, std::string_view leached_bottom)
{
    return Chem_Block({.Application = {{1, "0.00000E+00"}, {40, "0.00000E+00"}},
                       .Leached = {"7.7777E-02", std::string(leached_metre)},
                       .Volatilization = "0.00000E+00",
                       .Bottom = std::string(leached_bottom)});
}

std::string End_Of_Output()
{
    return "\r\n *** END OF OUTPUT ***\r\n";
}

std::string Echo_File(const Echo_Text& echo)
{
    std::vector<std::string> lines = {
        " *** ORVEL ENGINE 4.01 - ECHO OF INPUT DATA ***",
        Line_At({{2, "TOTAL COMPARTMENTS IN CORE"}, {55, echo.Total}}),
        "",
        Line_At({{2, "OUTPUT    WATR"}, {20, echo.Frequency_Water}, {28, "LAYER STEP     1"}}),
        Line_At({{2, "OUTPUT    PEST"}, {20, echo.Frequency_Pest}, {28, "LAYER STEP     1"}}),
        Line_At({{2, "Total number of layers in the top meter:"}, {53, Right(echo.Top, 10)}}),
        "",
    };
    for (const auto& name : echo.Names)
        lines.push_back("*** PARAMETERS OF " + name + "***");
    lines.push_back(echo.Last);
    return Lines(lines);
}

std::string Plot_Head_Of(int columns, int profile, std::string_view line_6)
{
    std::string codes = std::string(12, ' '), depths = std::string(10, ' '), scales = std::string(11, ' ');
    for (int i = 0; i < columns; ++i) {
        codes += i < columns - profile ? "PFLX      " : "TPSC      ";
        depths += Right(std::to_string(i + 1) + ".0", 10);
        scales += "1.0E05    ";
    }
    return Lines({"Engine   ", "", "  Scenario", " Pesticide ", "", std::string(line_6),
                  Right("312", 6) + Right(std::to_string(columns), 6) + Right(std::to_string(profile), 6), codes,
                  depths, scales, "     1 01        0.0"});
}

std::string Plot_Line(int day, int hour, const std::vector<std::string>& values)
{
    std::string line = Right(std::to_string(day), 6) + Right(std::to_string(hour), 3) + " ";
    for (const auto& value : values)
        line += Right(value, 10);
    return line + "\r\n";
}

void Write_File(const std::filesystem::path& file, std::string_view bytes)
{
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string Read_File(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace orvel
