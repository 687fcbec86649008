#pragma once

#include "charts/forms/diagram_form.h"

#include <filesystem>

class QComboBox;

namespace orvel {

// The concentrations of the application periods of one substance at one depth, out of the cached period table.
class Jahresdiagramm : public Diagram_Form {
    Q_OBJECT

public:
    Jahresdiagramm(const std::filesystem::path& run_directory, Ask_Function ask, QWidget* parent = nullptr);

private:
    void Draw();

    std::string Period_File;
    QComboBox *Substanz = nullptr, *Tiefe = nullptr;
};

} // namespace orvel
