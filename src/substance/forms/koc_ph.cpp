#include "substance/forms/koc_ph.h"

#include "substance/forms/sources.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/undo_history.h"
#include "ui/forms/widgets.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

namespace orvel {

KOC_PH::KOC_PH(Session& session, int i, std::string text_koc0, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Substance(i),
      The_Koc(std::move(text_koc0)),
      At_First(Load_PH(session.Pesticide, i, The_Koc))
{
    setObjectName("KOC_PH");
    setWindowTitle("pH-dependent sorption");
    Lay_Out();
    Show_Entry(At_First);
    s_pKa->selectAll();
    Show_Sources(*this, Substance);
    Keep_History(
        *this, [this] { return Entry(); }, [this](const PH_Entry& entry) { Show_Entry(entry); });
}

void KOC_PH::Show_Entry(const PH_Entry& entry)
{
    s_KOC->setText(Shown(entry.s_KOC));
    s_pH->setText(Shown(entry.s_pH));
    s_KOC2->setText(Shown(entry.s_KOC2));
    s_pH2->setText(Shown(entry.s_pH2));
    s_pKa->setText(Shown(entry.s_pKa));
    s_Dataset->setChecked(entry.s_Dataset);
    Show_View();
}

void KOC_PH::Lay_Out()
{
    auto* grid = new QGridLayout;
    s_pKa = Field(*grid, 0, 0, "s_pKa", "p&Ka:", "Label5");
    auto* note = new QLabel("A pKa of 20 stands for a substance that does not dissociate.");
    grid->addWidget(note, 1, 0, 1, 4);
    s_KOC = Field(*grid, 2, 0, "s_KOC", "K&OC (L/kg):", "Label1");
    s_pH = Field(*grid, 2, 2, "s_pH", "at p&H", "Label3");
    s_Dataset = Named(new QCheckBox("KOC only at a &single pH known"), "s_Dataset");
    grid->addWidget(s_Dataset, 3, 0, 1, 4);
    s_KOC2 = Field(*grid, 4, 0, "s_KOC2", "KOC (&L/kg):", "Label2");
    s_pH2 = Field(*grid, 4, 2, "s_pH2", "at &pH", "Label4");
    s_KOC2->setAccessibleName("Second KOC (L/kg)");
    s_pH2->setAccessibleName("at second pH");
    First_pH = {s_pH, findChild<QLabel*>("Label3"), s_Dataset};
    Second_Pair = {s_KOC2, s_pH2, findChild<QLabel*>("Label2"), findChild<QLabel*>("Label4")};
    connect(s_pKa, &QLineEdit::textEdited, this, &KOC_PH::Show_View);
    connect(s_Dataset, &QCheckBox::clicked, this, &KOC_PH::Show_View);

    auto* all = new QVBoxLayout(this);
    all->addLayout(grid);
    all->addStretch(1);
    all->addWidget(Done_And_Cancel(*this, The_Session.Ask, &KOC_PH::Done));
}

Number_Edit* KOC_PH::Field(QGridLayout& grid, int row, int column, const QString& name, const QString& label,
                           const QString& label_name)
{
    auto* caption = Named(new QLabel(label, this), label_name);
    auto* field = Named(new Number_Edit, name);
    caption->setBuddy(field);
    grid.addWidget(caption, row, column);
    grid.addWidget(field, row, column + 1);
    return field;
}

PH_Entry KOC_PH::Entry() const
{
    return {s_KOC->Typed(), s_pH->Typed(), s_KOC2->Typed(), s_pH2->Typed(), s_pKa->Typed(), s_Dataset->isChecked()};
}

void KOC_PH::Show_View()
{
    const auto view = View_Of_PH(Entry());
    for (auto* widget : First_pH)
        widget->setVisible(view.First_pH);
    for (auto* widget : Second_Pair)
        widget->setVisible(view.Second_Pair);
}

void KOC_PH::Take_Over_Entries(Session& session) const
{
    std::string text_koc0;
    if (Entry() != At_First)
        Accept_PH(session.Pesticide, Substance, Entry(), text_koc0);
}

void KOC_PH::Done()
{
    Accept_PH(The_Session.Pesticide, Substance, Entry(), The_Koc);
    The_Session.Program.PSM_Changed = true;
    accept();
}

} // namespace orvel
