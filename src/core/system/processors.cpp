#include "core/system/processors.h"

namespace orvel {

std::string Processor_Features()
{
    std::string features;
#if defined(__x86_64__) || defined(__i386__)
    const auto add = [&features](bool present, const char* name) {
        if (present)
            features += (features.empty() ? "" : " ") + std::string(name);
    };
    add(__builtin_cpu_supports("avx2") != 0, "avx2");
    add(__builtin_cpu_supports("fma") != 0, "fma");
    add(__builtin_cpu_supports("avx512f") != 0, "avx512f");
#endif
    return features;
}

} // namespace orvel
