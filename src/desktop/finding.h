#pragma once

#include <string>
#include <vector>

namespace orvel {

// What of an installation and of this computer could spoil a run, or work that comes after it. Texts are UTF-8.

enum class Health { Good, Warning, Fault }; // a fault spoils a run

struct Finding {
    std::string What; // was looked at
    Health State = Health::Good;
    std::string Found;  // a sentence
    std::string Remedy; // what to do, a sentence; empty if nothing
    bool operator==(const Finding&) const = default;
};

} // namespace orvel
