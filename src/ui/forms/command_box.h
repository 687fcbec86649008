#pragma once

#include <string>
#include <vector>

class QWidget;

namespace orvel {

// Shows the lines (UTF-8) that do the same on a command line, ready to copy.
void Show_Command(QWidget* parent, const std::vector<std::string>& lines);

} // namespace orvel
