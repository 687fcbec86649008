#pragma once

#include "core/message.h"

#include <functional>
#include <optional>
#include <QString>

class QPrinter;
class QWidget;

namespace orvel {

// Draws on a printer or into its PDF file. Returns a sentence if not all of it got there.
std::optional<QString> Print_On(QPrinter& printer, const std::function<void(QPrinter&)>& draw);

// Lets the user choose a printer, or a PDF file, and prints; a failure is told.
void Print_By_Dialog(QWidget& parent, const Ask_Function& ask, QPrinter& printer,
                     const std::function<void(QPrinter&)>& draw);

} // namespace orvel
