// Compiled with AVX2. Do not instantiate functions here that other sources share: the linker could keep this copy,
// which older processors cannot run.
#include "engine/solute/fate_lanes.h"
#include "engine/solute/transport_lanes.h"

namespace orvel::engine {

extern const Solute_Kernel Avx2_Kernel_Table;
constexpr Solute_Kernel Avx2_Kernel_Table = {"AVX2",      Invert_Lanes,   Transport_Lanes,    Decay_Factors_Lanes,
                                             React_Lanes, Exchange_Lanes, Rate_Factors_Lanes, Exps_Lanes,
                                             Powers_Lanes};

} // namespace orvel::engine
