#pragma once

#include "engine/input/findings.h"
#include "engine/solute/solute_records.h"

namespace orvel::engine {

// One thing wrong with a setup: the number of the error line and its text.
struct Solute_Fault {
    Fault Kind;
    std::string Text;
};

// What is outside its range. Empty: run it.
std::vector<Solute_Fault> Check_Solute_Setup(const Solute_Setup& setup);

} // namespace orvel::engine
