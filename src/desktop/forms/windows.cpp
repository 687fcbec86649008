#include "desktop/forms/windows.h"

#include "evaluation/forms/analyse.h"
#include "evaluation/forms/inout_sel.h"

namespace orvel {

Run_Windows Windows_Of_Runs(Session& session)
{
    return {.Open_Evaluation = [&session](const Mode& mode, QWidget* parent) { Analyse(session, mode, parent).exec(); },
            .Open_Run_Files = [&session](QWidget* parent) { inout_sel(session, parent).exec(); }};
}

} // namespace orvel
