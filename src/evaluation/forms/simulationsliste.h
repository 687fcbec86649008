#pragma once

#include "evaluation/forms/simulation_model.h"
#include "jobs/input_changes.h"
#include "runs/mode.h"

#include <QDialog>
#include <QTimer>

class QLayout;
class QPushButton;
class QTableView;

namespace orvel {

class Help_Assistant;

// All simulations of a mode with their state; one can be picked for evaluation, any number can be deleted.
class Simulationsliste : public QDialog {
    Q_OBJECT

public:
    Simulationsliste(Session& session, const Mode& mode, QWidget* parent = nullptr);

    // The run directory of the simulation that was picked; empty without one.
    const std::filesystem::path& Chosen() const { return Picked; }

    QSize sizeHint() const override;

private:
    void Lay_Out();
    QLayout* Buttons();
    void Refresh();
    void Size_Columns();
    int Column_Width(int column) const;
    void Select_Again(const std::vector<std::filesystem::path>& runs);
    void Selection_Changed();
    void Tick();
    void Auswaehlen_Click();
    void Loeschen_Click();
    void Nochmals_Click();
    void Weiter_Click();
    void Anhalten_Click();
    void Zurueckholen_Click();
    void Archivieren_Click();
    void Show_Changes();
    void Enable_Buttons();
    std::vector<Simulation> Selected() const;

    Session& The_Session;
    const Mode& The_Mode;
    Simulation_Model Simulations;
    Input_Changes Changes_Of_Inputs;
    int Ticks = 0;
    std::filesystem::path Picked;
    Help_Assistant* Assistant = nullptr;
    QTableView* Grid1 = nullptr;
    QPushButton *Auswaehlen = nullptr, *Loeschen = nullptr, *Nochmals = nullptr, *Weiter = nullptr, *Anhalten = nullptr,
                *Zurueckholen = nullptr, *Archivieren = nullptr, *Ende = nullptr;
    QTimer Timer1;
};

} // namespace orvel
