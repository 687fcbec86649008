#pragma once

#include "substance/kinetic_sorption.h"
#include "ui/forms/entries_under_edit.h"

#include <array>
#include <QDialog>

class QLabel;
class QRadioButton;

namespace orvel {

class Leave_Guard;
class Number_Edit;

// Slow sorption of a substance at non-equilibrium sites, in either of two notations.
class kin_Sorption : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    kin_Sorption(Session& session, int i, QWidget* parent = nullptr); // substance i, 1 to 9

    void Take_Over_Entries(Session& session) const override;

private:
    void Lay_Out();
    Kinetic_Entry Entry() const;
    void Show_Captions(const Kinetic_Captions& captions);
    void Show_Entry(const Kinetic_Entry& entry);
    void Choose(Kinetic_Model model);
    void Leave(const QWidget& field);
    void Done();

    Session& The_Session;
    int Substance;
    const Kinetic_Entry At_First;
    Kinetic_Model Model = Kinetic_Model::PEARL; // the notation of both texts
    std::array<QRadioButton*, 2> kin_Modell{};
    QLabel *Bezeichnung_Anteil = nullptr, *Bezeichnung_Sorptionsrate = nullptr;
    Number_Edit *s_f_neq = nullptr, *s_kdes = nullptr;
    Leave_Guard* Guard = nullptr;
};

} // namespace orvel
