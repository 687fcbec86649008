#pragma once

#include "jobs/forms/run_windows.h"

namespace orvel {

// The windows that stay open beside all others.
void Open_Overview(const Session& session, Mode_Kind mode);
void Open_Plans(const Session& session);

// Which window opens which: the functions passed to forms of lower rooms. The session must outlive them.
Run_Windows Windows_Of_Runs(Session& session);

} // namespace orvel
