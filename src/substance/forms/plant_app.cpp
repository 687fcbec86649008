#include "substance/forms/plant_app.h"

#include "substance/forms/sources.h"
#include "ui/forms/done_cancel.h"

#include <QVBoxLayout>

namespace orvel {

Plant_App::Plant_App(Session& session, Application_Method method, QWidget* parent)
    : QDialog(parent),
      The_Session(session)
{
    setObjectName("Plant_App");
    setWindowTitle("Pesticide Fate on Crops");
    Lay_Out(Shows_Filtration(method));
    Boxes.Show(Plant_Fields, Load_Plant(The_Session.Pesticide));
    Boxes["S_plt_dk"]->selectAll();
    Show_Sources(*this, session.Editor.Substance_Index);
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

void Plant_App::Done()
{
    Plant_Entry entry;
    Boxes.Read(Plant_Fields, entry);
    Accept_Plant(The_Session, entry);
    accept();
}

} // namespace orvel
