#pragma once

#include "core/session.h"
#include "runs/mode.h"

#include <string>

class QWidget;

namespace orvel {

// Asks for a file and archives the simulations of a pesticide and a crop there; without a crop those of all. The user
// is told how it ended.
void Archive_In_Window(Session& session, const Mode& mode, const std::string& pesticide, const std::string& crop,
                       QWidget* parent);

} // namespace orvel
