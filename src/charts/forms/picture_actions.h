#pragma once

#include "charts/painting/chart_files.h"
#include "core/message.h"

class QWidget;

namespace orvel {

// Copying, printing and saving a picture that a window shows.

void Copy_Picture(const Picture& picture); // to the clipboard

// Lets the user choose a printer and prints in landscape; a failure is told.
void Print_Picture(QWidget& parent, const Ask_Function& ask, const Picture& picture);

// Lets the user choose a file and saves the picture there, as .png if no extension is given. `title` heads the dialog
// and the message about a failure.
void Save_Picture_As(QWidget& parent, const Ask_Function& ask, const Picture& picture, const QString& title,
                     const QString& name);

} // namespace orvel
