#include "output_blocks.h"

#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orvel::engine {

namespace {

// Walks forward from anchor to anchor.
class Finder {
public:
    Finder(const std::vector<std::string_view>& lines, std::size_t at) : Lines(lines), At(at) {}

    void To(std::string_view anchor)
    {
        while (At < Lines.size() && !Contains(Lines[At], anchor))
            ++At;
        if (At == Lines.size())
            throw std::runtime_error("no " + std::string(anchor));
    }
    void Down(std::size_t lines) { At += lines; }
    std::string_view Line() const { return At < Lines.size() ? Lines[At] : std::string_view(); }
    double Value(std::size_t first, std::size_t width) const { return Val(Columns(Line(), first, width)); }
    double Value_At(std::string_view anchor, std::size_t first, std::size_t width)
    {
        To(anchor);
        return Value(first, width);
    }

private:
    const std::vector<std::string_view>& Lines;
    std::size_t At;
};

Water_Year Water_Block(Finder find, int top_layers)
{
    Water_Year year;
    find.To("PRECIPITATION");
    find.Down(2);
    year.Precipitation = find.Value(43, 9);
    year.Irrigation = find.Value(61, 9);
    year.Canopy_Loss = find.Value(79, 9);
    find.To("SNOWPACK");
    find.Down(2);
    year.Melt = find.Value(40, 15);
    year.Snowfall = find.Value(61, 9);
    find.To("RUNOFF");
    find.Down(2);
    year.Runoff = find.Value(60, 10);
    find.To("TRANSPIRATION");
    Finder rows = find;
    for (find.Down(3); !Contains(find.Line(), "SUMMARY FLUXES"); find.Down(1)) {
        year.Evapotranspiration += find.Value(58, 16);
        if (!Trim(find.Line()).empty())
            year.Storage.push_back(find.Value(37, 9));
    }
    rows.To("HORIZON   COMPARTMENT");
    while (rows.Value(13, 3) != top_layers)
        rows.Down(1);
    year.Percolate = rows.Value(73, 13);
    year.Recharge = find.Value_At("RECHARGE BELOW CORE", 40, 10);
    if (find.Value(36, 20) != year.Recharge)
        throw std::runtime_error("the recharge reads differently from its two column ranges");
    year.Change = find.Value_At("CHANGE OF STORAGE", 40, 10);
    year.Check = find.Value_At("BALANCE CHECK", 40, 10);
    return year;
}

Solute_Year Solute_Block(Finder find, int top_layers)
{
    Solute_Year year;
    find.To("RIZON PARTMENT");
    Finder rows = find;
    for (find.Down(2); !Contains(find.Line(), "* DECAY FOR COMPARTMENT 1"); find.Down(1)) {
        year.Gained += find.Value(19, 12);
        if (!Trim(find.Line()).empty())
            year.Stores.push_back(find.Value(59, 12) + find.Value(72, 12));
    }
    while (rows.Value(10, 3) != top_layers)
        rows.Down(1);
    year.Leached = rows.Value(98, 11);
    year.Uptake = find.Value_At("TOTAL PLANT UPTAKE OF", 40, 12);
    year.Decay = find.Value_At("TOTAL DECAY OF ", 40, 12);
    find.Down(1);
    if (Contains(find.Line(), "TOTAL VOLATILIZATION"))
        year.Volatilised = find.Value(40, 12);
    year.Runoff = find.Value_At("TOTAL RUNOFF", 40, 12);
    year.Sediment = find.Value_At("THEREOF", 40, 12);
    year.Leached_Core = find.Value_At("PESTICIDE LEACHED BELOW CORE", 37, 20);
    if (find.Value(40, 12) != year.Leached_Core)
        throw std::runtime_error("the leached mass reads differently from its two column ranges");
    year.Bypass = find.Value_At("MACROPORE TRANSPORT", 40, 12);
    year.Upward = find.Value_At("DIFFUSION UP THROUGH 1 M", 40, 12);
    year.Stored = find.Value_At("STORED IN SOIL", 40, 12);
    year.Check = find.Value_At("BALANCE CHECK", 40, 12);
    return year;
}

template <class Year, class Read> std::vector<Year> Blocks(const std::string& text, const std::string& title, Read read)
{
    const auto lines = Split_Lines(text);
    std::vector<Year> years;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (Contains(lines[i], title))
            years.push_back(read(Finder(lines, i)));
    }
    return years;
}

} // namespace

std::vector<Water_Year> Water_Blocks(const std::string& text, const std::string& title, int top_layers)
{
    return Blocks<Water_Year>(text, title, [top_layers](Finder find) { return Water_Block(find, top_layers); });
}

std::vector<Solute_Year> Solute_Blocks(const std::string& text, const std::string& title, int top_layers)
{
    return Blocks<Solute_Year>(text, title, [top_layers](Finder find) { return Solute_Block(find, top_layers); });
}

Plot_File Read_Plot(const std::string& text)
{
    Plot_File plot;
    const auto lines = Split_Lines(text);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i < 11) {
            plot.Head.emplace_back(lines[i]);
            continue;
        }
        Plot_Line& line = plot.Lines.emplace_back();
        line.Day = static_cast<int>(Val(Columns(lines[i], 1, 6)));
        line.Hour = static_cast<int>(Val(Columns(lines[i], 7, 3)));
        for (std::size_t first = 11; first <= lines[i].size(); first += 10)
            line.Values.push_back(Val(Columns(lines[i], first, 10)));
    }
    return plot;
}

Echo_Closure Worst_Closure(const std::string& echo)
{
    Echo_Closure worst;
    const auto lines = Split_Lines(echo);
    Finder find(lines, 0);
    find.To("CLOSURE BY YEAR");
    for (find.Down(1); !Trim(find.Line()).empty(); find.Down(1)) {
        ++worst.Years;
        worst.Water = std::max(worst.Water, std::fabs(find.Value(7, 12)));
        worst.Solute = std::max(worst.Solute, find.Value(19, 12));
        worst.Moles = std::max(worst.Moles, find.Value(31, 12));
    }
    return worst;
}

int Top_Layers(const std::string& echo)
{
    const auto lines = Split_Lines(echo);
    Finder find(lines, 0);
    return static_cast<int>(find.Value_At(" Total number of layers in the top meter:", 53, 10));
}

} // namespace orvel::engine
