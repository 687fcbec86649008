#pragma once

#include "engine/input/findings.h"
#include "engine/solute/solute_records.h"

namespace orvel::engine {

// A fault in a setup: number and text of the ERROR line.
struct Solute_Fault {
    Fault Kind;
    std::string Text;
};

// Returns every value out of range; empty if the setup may run.
std::vector<Solute_Fault> Check_Solute_Setup(const Solute_Setup& setup);

} // namespace orvel::engine
