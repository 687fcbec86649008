#include "substance/forms/form_met.h"

#include "substance/forms/sources.h"
#include "substance/forms/substance_fields.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/undo_history.h"
#include "ui/forms/widgets.h"

#include <QGroupBox>
#include <QHBoxLayout>

namespace orvel {

Form_MET::Form_MET(Session& session, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Substance(session.Editor.Substance_Index),
      Before(std::make_unique<const Pesticide_Document>(session.Pesticide)),
      Changed_Before(session.Program.PSM_Changed)
{
    setObjectName("Form_MET");
    setWindowTitle(Shown(Metabolite_Caption(Substance)));
    Lay_Out();
    Show_Sources(*this, Substance);
    At_First = std::make_unique<const State>(Present());
    Keep_History(
        *this, [this] { return Present(); }, [this](const State& state) { Show_State(state); });
}

// The forms behind the buttons store in the document.
Form_MET::State Form_MET::Present() const
{
    return {Fields->Entry(), The_Session.Pesticide};
}

void Form_MET::Show_State(const State& state)
{
    The_Session.Pesticide = state.Document;
    Fields->Show_Entry(state.Entry);
    Fields->Show_Notes();
}

void Form_MET::Lay_Out()
{
    Fields = new Substance_Fields(The_Session, Substance, *this);

    auto* left = new QVBoxLayout;
    left->addWidget(Fields->General());
    left->addWidget(Fields->Depth());
    left->addStretch(1);
    auto* right = new QVBoxLayout;
    right->addWidget(Fields->Sorption());
    right->addStretch(1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(columns, 1);
    all->addWidget(Done_And_Cancel(*this, The_Session.Ask, &Form_MET::Done, "Command_ok1", "D&one", "Command_cancel"));
}

void Form_MET::Done()
{
    const auto entry = Fields->Entered();
    if (!entry)
        return;
    if (const auto question = Takes_Horizons_Away(The_Session.Pesticide, *entry);
        question && The_Session.Ask(*question) != Button::Yes)
        return;
    Accept_Metabolite(The_Session, Substance, *entry);
    accept();
}

void Form_MET::Take_Over_Entries(Session& session) const
{
    if (Present() != *At_First)
        Accept_Metabolite(session, Substance, Fields->Entry());
}

void Form_MET::reject()
{
    The_Session.Pesticide = *Before;
    The_Session.Program.PSM_Changed = Changed_Before;
    QDialog::reject();
}

} // namespace orvel
