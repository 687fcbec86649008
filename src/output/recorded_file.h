#pragma once

#include <cstdint>
#include <string>

namespace orvel {

// A file as a record names it.
struct Recorded_File {
    std::string Name; // as reached from the run directory: "test.psm", "../../../H_01.cli"
    std::uint64_t Size = 0;
    std::string Sha256;
    bool operator==(const Recorded_File&) const = default;
};

} // namespace orvel
