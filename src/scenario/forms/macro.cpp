#include "scenario/forms/macro.h"

#include "ui/forms/done_cancel.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/undo_history.h"

#include <QFormLayout>
#include <QHBoxLayout>

namespace orvel {

Macro::Macro(Session& session, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      At_First(Show_Macropores(session.Scenario))
{
    setObjectName("Macro");
    setWindowTitle("Macropore Parameters");
    constexpr std::array<const char*, 3> names = {"S_Ic", "S_fmac", "S_depma"};
    constexpr std::array<const char*, 3> captions = {
        "&Threshould rainflow that generates macropore flow (cm): ",
        "&Fraction of excess rainflow routed into macropores:", "&Macropore depth (cm):"};
    auto* rows = new QFormLayout;
    for (std::size_t i = 0; i < Fields.size(); ++i)
        rows->addRow(captions[i], Fields[i] = Named(new Number_Edit, names[i]));
    Show_Texts(At_First);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Push_Button("Reset", "&Default Values", this, [this] { Show_Texts(Default_Macropores()); }));
    buttons->addWidget(Done_And_Cancel(*this, The_Session.Ask, &Macro::Done, "Command1", "&OK"), 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(rows);
    all->addStretch(1);
    all->addLayout(buttons);
    Keep_History(
        *this, [this] { return Texts(); }, [this](const Macropore_Texts& texts) { Show_Texts(texts); });
}

Macropore_Texts Macro::Texts() const
{
    return {Fields[0]->Typed(), Fields[1]->Typed(), Fields[2]->Typed()};
}

void Macro::Show_Texts(const Macropore_Texts& texts)
{
    for (std::size_t i = 0; i < Fields.size(); ++i)
        Fields[i]->setText(Shown(texts[i]));
}

void Macro::Take_Over_Entries(Session& session) const
{
    if (Texts() != At_First)
        Take_Over_Macropores(session, Texts());
}

void Macro::Done()
{
    Take_Over_Macropores(The_Session, Texts());
    accept();
}

} // namespace orvel
