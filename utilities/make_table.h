#pragma once

#include "evaluation/utility_table.h"

namespace orvel {

// Makes the table from the series in the working directory, and writes it there. Returns the exit code: 0, or 1 after a
// sentence on standard error; the table is then unchanged.
int Make_Table(Utility period);

} // namespace orvel
