#pragma once

#include "core/session.h"
#include "desktop/finding.h"

#include <string>
#include <vector>

namespace orvel {

// Looks at the installation whose engine was found (runs/start_up.h). Files are written into its directories and taken
// away again; nothing else is changed. The worst first. Never throws: what cannot be looked at is a fault.
std::vector<Finding> Examine(const Program_State& program);

bool Would_Spoil_A_Run(const std::vector<Finding>& findings);

std::string Findings_Text(const std::vector<Finding>& findings); // for the user
std::string Findings_Json(const std::vector<Finding>& findings);

} // namespace orvel
