#pragma once

#include "core/session.h"

#include <filesystem>
#include <QDialog>

namespace orvel {

class Series_Choice;

// Chooses a series of one run for the daily diagram.
class Series_Window : public QDialog {
    Q_OBJECT

public:
    Series_Window(Session& session, const std::filesystem::path& run_directory, QWidget* parent = nullptr);

private:
    void Show_Diagram();

    Session& The_Session;
    const std::filesystem::path Run;
    Series_Choice* Series = nullptr;
};

} // namespace orvel
