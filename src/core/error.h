#pragma once

#include <stdexcept>

namespace orvel {

// A file that cannot be read, written or understood. The text is a whole sentence that can be shown to the user.
struct File_Error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace orvel
