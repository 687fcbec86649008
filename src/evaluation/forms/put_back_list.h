#pragma once

#include "runs/bin.h"
#include "runs/mode.h"

#include <QDialog>
#include <vector>

class QLayout;
class QPushButton;
class QSpinBox;
class QTableWidget;

namespace orvel {

// What the bin of a mode holds; runs are put back to their places.
class Put_Back_List : public QDialog {
    Q_OBJECT

public:
    Put_Back_List(Session& session, const Mode& mode, QWidget* parent = nullptr);

private:
    void Lay_Out();
    void Refresh();
    QLayout* Rule_Row();
    void Show_Rule();
    void Keep_Rule();
    void Put_Back_Click();
    void Selection_Changed();

    Session& The_Session;
    const Mode& The_Mode;
    std::vector<Binned_Run> Runs;
    QTableWidget* Bin_Grid = nullptr;
    QPushButton* Zurueck = nullptr;
    QSpinBox *Megabytes = nullptr, *Days = nullptr;
};

} // namespace orvel
