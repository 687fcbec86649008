#pragma once

#include "jobs/forms/run_windows.h"

namespace orvel {

// Which window opens which: the functions that forms of lower rooms are handed. The session outlives them.
Run_Windows Windows_Of_Runs(Session& session);

} // namespace orvel
