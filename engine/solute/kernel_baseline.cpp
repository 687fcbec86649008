// The kernel for processors without AVX2.
#include "engine/solute/fate_lanes.h"
#include "engine/solute/transport_lanes.h"

namespace orvel::engine {

const Solute_Kernel& Baseline_Kernel()
{
    static constexpr Solute_Kernel kernel = {"baseline",          Invert_Lanes, Transport_Lanes,
                                             Decay_Factors_Lanes, React_Lanes,  Exchange_Lanes,
                                             Rate_Factors_Lanes,  Exps_Lanes,   Powers_Lanes};
    return kernel;
}

} // namespace orvel::engine
