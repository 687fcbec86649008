#pragma once

#include "evaluation/utility_table.h"

namespace orvel {

// Makes the table of the working directory's series there: 0. It fails with a sentence on standard error, the table as
// it was: 1.
int Make_Table(Utility period);

} // namespace orvel
