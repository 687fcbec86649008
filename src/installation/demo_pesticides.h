#pragma once

#include "core/session.h"

#include <string>
#include <vector>

namespace orvel {

// A pesticide file of the installation.
struct Demo_Pesticide {
    std::string Name; // "demo_A.psm"
    Pesticide_Document Document;
};

// The demonstration pesticide files in the order of their table.
std::vector<Demo_Pesticide> Demo_Pesticides();

} // namespace orvel
