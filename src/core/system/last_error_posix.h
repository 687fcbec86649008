#pragma once

#include <cerrno>
#include <system_error>

namespace orvel {

// Why the last system call failed.
inline std::error_code Last_Error()
{
    return {errno, std::generic_category()};
}

} // namespace orvel
