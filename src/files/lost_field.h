#pragma once

#include <string>

namespace orvel {

// A field that a file would not give back, and why: "is too long for its column".
struct Lost_Field {
    std::string Name, Cause;
    bool operator==(const Lost_Field&) const = default;
};

} // namespace orvel
