// Any bytes as a pesticide balance: the yearly leached mass and the rows of both views, of an active substance and of a
// metabolite.
#include "output/balance_rows.h"
#include "output/yearly_values.h"
#include "windows.h"

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Read_Through_Windows(data, size, [](const auto& open) {
        Yearly_Values values(open(), Chem_Layout, 40);
        values.Read_To(67);
        std::string text = Number_Texts(values.At(Depth::One_Metre)) + Number_Texts(values.At(Depth::Core_Bottom));
        for (const auto view : {Balance_View::Annual, Balance_View::Monthly}) {
            auto chem = open();
            Scan_Pesticide_Balance(chem, view, view == Balance_View::Annual, [&](const Pesticide_Balance_Row& row) {
                text += Number_Texts(std::array{row.Application, row.Volatilisation, row.Runoff, row.Plant_Uptake,
                                                row.Degradation, row.Percolate, row.Diff_Storage});
            });
        }
        return text;
    });
    return 0;
}

} // namespace orvel
