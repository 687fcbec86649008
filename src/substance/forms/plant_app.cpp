#include "substance/forms/plant_app.h"

#include "substance/forms/sources.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/undo_history.h"

#include <QVBoxLayout>

namespace orvel {

Plant_App::Plant_App(Session& session, Application_Method method, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      At_First(Load_Plant(session.Pesticide))
{
    setObjectName("Plant_App");
    setWindowTitle("Pesticide Fate on Crops");
    Lay_Out(Shows_Filtration(method));
    Boxes.Show(Plant_Fields, At_First);
    Boxes["S_plt_dk"]->selectAll();
    Show_Sources(*this, session.Editor.Substance_Index);
    Keep_History(
        *this, [this] { return Entry(); }, [this](const Plant_Entry& entry) { Boxes.Show(Plant_Fields, entry); });
}

Plant_Entry Plant_App::Entry() const
{
    Plant_Entry entry;
    Boxes.Read(Plant_Fields, entry);
    return entry;
}

void Plant_App::Lay_Out(bool filtration)
{
    auto* rows = new QFormLayout;
    for (const auto& field : Plant_Fields)
        Boxes.Add(*rows, field);
    rows->setRowVisible(Boxes["S_plt_filtr"], filtration);

    auto* all = new QVBoxLayout(this);
    all->addLayout(rows);
    all->addStretch(1);
    all->addWidget(Done_And_Cancel(*this, The_Session.Ask, &Plant_App::Done, "Command1", "&OK"));
}

void Plant_App::Take_Over_Entries(Session& session) const
{
    if (Entry() != At_First)
        Accept_Plant(session, Entry());
}

void Plant_App::Done()
{
    Accept_Plant(The_Session, Entry());
    accept();
}

} // namespace orvel
