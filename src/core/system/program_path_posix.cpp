#include "core/system/program_path.h"

#include <cstdlib>
#include <string_view>
#include <unistd.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* Own_Link = "/proc/self/exe";

} // namespace

fs::path Own_Path()
{
    return fs::read_symlink(Own_Link);
}

fs::path Program_Beside(const std::string& name)
{
    std::error_code ignored;
    return fs::read_symlink(Own_Link, ignored).parent_path() / name;
}

fs::path Program_In_Path(const std::string& name)
{
    const char* const variable = std::getenv("PATH");
    std::string_view rest = variable == nullptr ? "" : variable;
    while (!rest.empty()) {
        const auto end = rest.find(':');
        fs::path candidate = fs::path(rest.substr(0, end)) / name;
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        if (candidate.is_absolute() && ::access(candidate.c_str(), X_OK) == 0)
            return candidate;
    }
    return {};
}

} // namespace orvel
