#pragma once

#include "core/session.h"

#include <string_view>

namespace orvel {

// Whether the pesticide file of an evaluated simulation can be read; `stem` is the entry of the list, bytes of
// Windows-1252. One that cannot be read is told. One that is not in the installation any more is not: its simulations
// outlive it. The document under edit stays as it is.
bool Check_Evaluated_Pesticide(const Program_State& program, const Ask_Function& ask, std::string_view stem);

} // namespace orvel
