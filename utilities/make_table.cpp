#include "make_table.h"

#include "core/system/standard_channels.h"
#include "tables/series_table.h"

#include <cstdio>
#include <exception>

namespace orvel {

int Make_Table(Utility period)
try {
    Open_Standard_Channels();
    std::error_code unknown;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", unknown);
    Make_Utility_Table(period, std::filesystem::current_path(), program.parent_path());
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}

} // namespace orvel
