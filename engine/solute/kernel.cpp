#include "engine/solute/kernel.h"

namespace orvel::engine {

#ifdef ORVEL_AVX2
extern const Solute_Kernel Avx2_Kernel_Table;

const Solute_Kernel* Avx2_Kernel()
{
    return __builtin_cpu_supports("avx2") ? &Avx2_Kernel_Table : nullptr;
}
#else
const Solute_Kernel* Avx2_Kernel()
{
    return nullptr;
}
#endif

const Solute_Kernel& Best_Kernel()
{
    const Solute_Kernel* fast = Avx2_Kernel();
    return fast ? *fast : Baseline_Kernel();
}

} // namespace orvel::engine
