#pragma once

#include "core/session.h"

#include <array>
#include <QDialog>

class QComboBox;
class QGridLayout;
class QLabel;

namespace orvel {

// The user's own choice of output series: a row for each of the twenty slots.
class Ausgabe_festlegen : public QDialog {
    Q_OBJECT

public:
    explicit Ausgabe_festlegen(Output_Selection& selection, QWidget* parent = nullptr);

private:
    struct Row {
        QComboBox* Parameter = nullptr;
        QLabel* Label1 = nullptr;
        QComboBox* Tiefe = nullptr;
        QLabel* Unit = nullptr;
        QLabel* Label2 = nullptr;
        QComboBox* Substanz = nullptr;
    };

    void Lay_Out();
    void Lay_Out_Row(QGridLayout& rows, int i);
    void Load();
    void Show_What_Applies(const Row& row);
    void OK();

    Output_Selection& Selection;
    std::array<Row, Last_Slot + 1> Rows;
};

} // namespace orvel
