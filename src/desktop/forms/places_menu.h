#pragma once

#include "core/session.h"

class QToolButton;
class QWidget;

namespace orvel {

// A button that names the installation and opens others, each in a program of its own: those used before, one that is
// chosen, or a new one.
QToolButton* Places_Button(const Session& session, QWidget& window);

} // namespace orvel
