#include "core/system/rename.h"

namespace orvel {

std::error_code Rename(const std::filesystem::path& from, const std::filesystem::path& to)
{
    std::error_code error;
    std::filesystem::rename(from, to, error);
    return error;
}

} // namespace orvel
