#include "scenario/forms/form_eros.h"

#include "ui/forms/done_cancel.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/undo_history.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QVBoxLayout>

namespace orvel {

Form_eros::Form_eros(Session& session, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      At_First(Show_Erosion(session.Scenario))
{
    setObjectName("Form_eros");
    setWindowTitle("Erosion parameters");
    constexpr std::array<const char*, 5> captions = {
        "Soil &erodibility:", "&Slope:", "&Management:", "&Area:", "&Duration of rain storm:"};
    constexpr std::array<const char*, 5> units = {"", "", "", "ha", "h"};
    auto* group = new QGroupBox("Factors of the MUSLE");
    auto* rows = new QFormLayout(group);
    for (std::size_t i = 0; i < Factors.size(); ++i) {
        Factors[i] = Named(new Number_Edit(units[i]), QString("Text%1_er").arg(i + 1));
        rows->addRow(captions[i], Factors[i]);
    }
    auto* all = new QVBoxLayout(this);
    all->addWidget(group);
    all->addStretch(1);
    all->addWidget(Done_And_Cancel(*this, The_Session.Ask, &Form_eros::Done, "Command1", "&OK"));
    Show_Texts(At_First);
    Keep_History(
        *this, [this] { return Texts(); }, [this](const Erosion_Texts& texts) { Show_Texts(texts); });
}

void Form_eros::Show_Texts(const Erosion_Texts& texts)
{
    for (std::size_t i = 0; i < Factors.size(); ++i)
        Factors[i]->setText(Shown(texts[i]));
}

Erosion_Texts Form_eros::Texts() const
{
    Erosion_Texts texts;
    for (std::size_t i = 0; i < Factors.size(); ++i)
        texts[i] = Factors[i]->Typed();
    return texts;
}

void Form_eros::Take_Over_Entries(Session& session) const
{
    if (Texts() != At_First)
        Take_Over_Erosion(session, Texts());
}

void Form_eros::Done()
{
    Take_Over_Erosion(The_Session, Texts());
    accept();
}

} // namespace orvel
