#include "substance/forms/kin_sorption.h"

#include "substance/forms/sources.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/leave_guard.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/undo_history.h"
#include "ui/forms/widgets.h"

#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>

namespace orvel {

namespace {

constexpr int Converted_Digits = 20; // enough for a full quotient

} // namespace

kin_Sorption::kin_Sorption(Session& session, int i, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Substance(i),
      At_First(Load_Kinetic(session.Pesticide, i))
{
    setObjectName("kin_Sorption");
    setWindowTitle("Kinetic sorption");
    Guard = new Leave_Guard(*this, [this](QWidget& field) { Leave(field); });
    Guard->Let_Pass({"kin_Modell_0", "kin_Modell_1", "Command1", "Command2"});
    Lay_Out();
    Show_Captions(Designed_Kinetic_Captions);
    Show_Entry(At_First);
    s_f_neq->setFocus();
    s_f_neq->selectAll();
    Show_Sources(*this, Substance);
    Keep_History(
        *this, [this] { return Entry(); },
        [this](const Kinetic_Entry& entry) {
            Show_Entry(entry);
            Show_Captions(Captions_Of(entry.Model));
        });
}

void kin_Sorption::Lay_Out()
{
    auto* grid = new QGridLayout;
    constexpr std::array<const char*, 2> captions = {"&PEARL definition", "&STRECK definiton"};
    for (std::size_t i = 0; i < kin_Modell.size(); ++i) {
        kin_Modell[i] = Named(new QRadioButton(captions[i]), QString("kin_Modell_%1").arg(i));
        grid->addWidget(kin_Modell[i], static_cast<int>(i), 0, 1, 2);
        connect(kin_Modell[i], &QRadioButton::clicked, this, [this, i] { Choose(static_cast<Kinetic_Model>(i)); });
    }
    grid->addWidget(Bezeichnung_Anteil = Named(new QLabel, "Bezeichnung_Anteil"), 2, 0);
    grid->addWidget(s_f_neq = Named(new Number_Edit, "s_f_neq"), 2, 1);
    grid->addWidget(Bezeichnung_Sorptionsrate = Named(new QLabel, "Bezeichnung_Sorptionsrate"), 3, 0);
    grid->addWidget(s_kdes = Named(new Number_Edit, "s_kdes"), 3, 1);
    Bezeichnung_Anteil->setBuddy(s_f_neq);
    Bezeichnung_Sorptionsrate->setBuddy(s_kdes);
    for (auto* field : {s_f_neq, s_kdes}) {
        field->setMinimumWidth(fontMetrics().horizontalAdvance(u'0') * Converted_Digits);
        Guard->Watch(*field);
    }

    auto* all = new QVBoxLayout(this);
    all->addLayout(grid);
    all->addStretch(1);
    all->addWidget(Done_And_Cancel(*this, The_Session.Ask, &kin_Sorption::Done));
}

Kinetic_Entry kin_Sorption::Entry() const
{
    return {s_f_neq->Typed(), s_kdes->Typed(), Model};
}

void kin_Sorption::Show_Captions(const Kinetic_Captions& captions)
{
    Bezeichnung_Anteil->setText(Shown(captions.Bezeichnung_Anteil));
    Bezeichnung_Sorptionsrate->setText(Shown(captions.Bezeichnung_Sorptionsrate));
}

void kin_Sorption::Show_Entry(const Kinetic_Entry& entry)
{
    Model = entry.Model;
    kin_Modell[static_cast<std::size_t>(Model)]->setChecked(true);
    s_f_neq->setText(Shown(entry.s_f_neq));
    s_kdes->setText(Shown(entry.s_kdes));
    for (auto* field : {s_f_neq, s_kdes})
        field->setCursorPosition(0); // show the start of a long quotient
}

void kin_Sorption::Choose(Kinetic_Model model)
{
    auto entry = Entry();
    const auto refusal = Choose_Kinetic_Model(entry, model);
    Show_Entry(entry);
    if (refusal)
        return Guard->Refuse(The_Session.Ask, *refusal);
    Show_Captions(Captions_Of(model));
}

void kin_Sorption::Leave(const QWidget& field)
{
    if (const auto refusal = &field == s_f_neq ? Check_Kinetic_Fraction(Entry()) : Check_Kinetic_Rate(Entry()))
        Guard->Refuse(The_Session.Ask, *refusal);
}

void kin_Sorption::Take_Over_Entries(Session& session) const
{
    if (Entry() != At_First)
        Accept_Kinetic(session.Pesticide, Substance, Entry()); // a refused entry stays out
}

void kin_Sorption::Done()
{
    if (const auto refusal = Accept_Kinetic(The_Session.Pesticide, Substance, Entry()))
        return Guard->Refuse(The_Session.Ask, *refusal);
    The_Session.Program.PSM_Changed = true;
    accept();
}

} // namespace orvel
