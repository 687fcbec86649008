#pragma once

#include "jobs/forms/run_windows.h"

namespace orvel {

// Who opens which window: what lower rooms leave open is tied here. The session outlives it.
Run_Windows Windows_Of_Runs(Session& session);

} // namespace orvel
