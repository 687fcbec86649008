#pragma once

#include "jobs/forms/run_windows.h"

namespace orvel {

// Which window opens which: the functions passed to forms of lower rooms. The session must outlive them.
Run_Windows Windows_Of_Runs(Session& session);

} // namespace orvel
