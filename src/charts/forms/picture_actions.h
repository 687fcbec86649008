#pragma once

#include "charts/painting/chart_files.h"
#include "core/message.h"

class QWidget;

namespace orvel {

// What a window does with a picture that it shows.

void Copy_Picture(const Picture& picture); // to the clipboard

// Lets the user choose a printer and prints on a page across.
void Print_Picture(QWidget& parent, const Picture& picture);

// Lets the user choose a file, .png where no ending is given. The title is that of the dialog and of a failure's
// message.
void Save_Picture_As(QWidget& parent, const Ask_Function& ask, const Picture& picture, const QString& title,
                     const QString& name);

} // namespace orvel
