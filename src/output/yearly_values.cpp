#include "output/yearly_values.h"

#include "core/text.h"
#include "output/quick_val.h"

#include <algorithm>

namespace orvel {

const Leachate_Layout Water_Layout = {Anchor("HORIZON   COMPARTMENT"), 13, 3,  73, 13,
                                      Anchor("RECHARGE BELOW CORE"),   36, 20, 10};
const Leachate_Layout Chem_Layout = {
    Anchor("RIZON PARTMENT"), 10, 3, 98, 11, Anchor("PESTICIDE LEACHED BELOW CORE"), 37, 20, 1000};

void Yearly_Values::Read_To(std::size_t years)
{
    while (std::min(Values[0].size(), Values[1].size()) < years) {
        const bool between = Metre == Wanted::Block && Bottom == Wanted::Block;
        if (!(between ? File.Find(Annual_Anchor) : File.Next()))
            return;
        Look_For_Metre(File.Line());
        Look_For_Bottom(File.Line());
    }
}

void Yearly_Values::Look_For_Metre(std::string_view line)
{
    if (Metre == Wanted::Block) {
        Metre = Annual_Anchor.In(line) ? Wanted::Table : Wanted::Block;
    } else if (Metre == Wanted::Table) {
        Metre = Layout.Table.In(line) ? Wanted::Value : Wanted::Table;
    } else if (Quick_Val(Columns(line, Layout.Layer_First, Layout.Layer_Width)) == Top_Layers) {
        Keep(Depth::One_Metre, Columns(line, Layout.Row_First, Layout.Row_Width));
        Metre = Wanted::Block;
    }
}

void Yearly_Values::Look_For_Bottom(std::string_view line)
{
    if (Bottom == Wanted::Block) {
        Bottom = Annual_Anchor.In(line) ? Wanted::Value : Wanted::Block;
    } else if (Layout.Bottom.In(line)) {
        Keep(Depth::Core_Bottom, Columns(line, Layout.Bottom_First, Layout.Bottom_Width));
        Bottom = Wanted::Block;
    }
}

void Yearly_Values::Keep(Depth depth, std::string_view columns)
{
    if (!File.At_End())
        Values[static_cast<std::size_t>(depth)].push_back(Layout.Factor * Quick_Val(columns));
}

} // namespace orvel
