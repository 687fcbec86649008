// Any bytes as a water balance: the yearly percolate and the rows of both views.
#include "output/balance_rows.h"
#include "output/yearly_values.h"
#include "windows.h"

namespace orvel {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Read_Through_Windows(data, size, [](const auto& open) {
        Yearly_Values values(open(), Water_Layout, 40);
        values.Read_To(67);
        std::string text = Number_Texts(values.At(Depth::One_Metre)) + Number_Texts(values.At(Depth::Core_Bottom));
        for (const auto view : {Balance_View::Annual, Balance_View::Monthly}) {
            auto wasser = open();
            Scan_Water_Balance(wasser, view, [&](const Water_Balance_Row& row) {
                text += Number_Texts(std::array{row.Precipitation, row.Irrigation, row.Runoff, row.Evapotranspiration,
                                                row.Percolate, row.Diff_Storage});
            });
        }
        return text;
    });
    return 0;
}

} // namespace orvel
