#pragma once

#include "core/session.h"

#include <cstdint>
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

// Looks at the installation whose engine was found (runs/start_up.h). Files are written into its directories and taken
// away again; nothing else is changed. Never throws: what cannot be looked at is a fault.
std::vector<Finding> Examine(const Program_State& program);

bool Would_Spoil_A_Run(const std::vector<Finding>& findings);

std::string Findings_Text(const std::vector<Finding>& findings); // for the user
std::string Findings_Json(const std::vector<Finding>& findings);

// The finding on so many free bytes.
Finding Judge_Space(const std::string& directory, std::uintmax_t available);

// The finding on the locale that the environment names, "" for none.
Finding Judge_Locale(const std::string& name);

} // namespace orvel
