#include "leachate_run.h"

#include "core/text.h"

#include <numeric>

namespace orvel {

namespace {

// Grams as the kilograms of the engine's files.
std::string Kilograms(int grams)
{
    return std::to_string(grams) + ".E-03";
}

} // namespace

Leachate_Run::Leachate_Run(const Echo_Text& echo)
{
    Write_File(Directory / "echo.orv", Echo_File(echo));
    Write_File(Directory / "plot.orv", Plot_Head_Of(1, 0));
}

void Leachate_Run::Write_Water(std::size_t years)
{
    std::string bytes;
    for (std::size_t y = 0; y < years; ++y)
        bytes += Water_Block("10.00000", "5.00000");
    Write_File(Directory / "Wasser.orv", bytes + End_Of_Output());
}

void Leachate_Run::Write_Chem(const std::string& suffix, const std::vector<int>& metre, const std::vector<int>& bottom)
{
    std::string bytes;
    for (std::size_t y = 0; y < metre.size(); ++y)
        bytes += Chem_Block(Kilograms(metre[y]), Kilograms(bottom[y]));
    Write_File(Directory / ("chem" + suffix), bytes + End_Of_Output());
}

std::vector<int> Rising(int years)
{
    std::vector<int> fluxes(static_cast<std::size_t>(years));
    std::iota(fluxes.begin(), fluxes.end(), 1);
    return fluxes;
}

std::vector<std::string> Lines_With(const std::string& text, const std::string& part)
{
    std::vector<std::string> lines;
    for (const auto line : Split_Lines(text)) {
        if (Contains(line, part))
            lines.emplace_back(line);
    }
    return lines;
}

} // namespace orvel
