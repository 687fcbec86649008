#pragma once

#include <functional>
#include <string>
#include <vector>

class QPushButton;
class QWidget;

namespace orvel {

// Shows the lines (UTF-8) that do the same on a command line, ready to copy.
void Show_Command(QWidget* parent, const std::vector<std::string>& lines);

// A button "Copy as command" that shows these lines.
QPushButton* Command_Button(QWidget* parent, std::function<std::vector<std::string>()> lines);

} // namespace orvel
