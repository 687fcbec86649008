#include "substance/forms/plant_app.h"

#include "ui/forms/done_cancel.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/widgets.h"

#include <QFormLayout>
#include <QLabel>

namespace orvel {

Plant_App::Plant_App(Session& session, Application_Method method, QWidget* parent)
    : QDialog(parent),
      The_Session(session)
{
    setObjectName("Plant_App");
    setWindowTitle("Pesticide Fate on Crops");
    Lay_Out(Shows_Filtration(method));
    const auto entry = Load_Plant(The_Session.Pesticide);
    S_plt_dk->setText(Shown(entry.S_plt_dk));
    S_plt_washoff->setText(Shown(entry.S_plt_washoff));
    S_plt_filtr->setText(Shown(entry.S_plt_filtr));
    S_plt_penet->setText(Shown(entry.S_plt_penet));
    S_plt_photo->setText(Shown(entry.S_plt_photo));
    S_RefRad->setText(Shown(entry.S_RefRad));
    S_dlam->setText(Shown(entry.S_dlam));
    S_Hv->setText(Shown(entry.S_Hv));
    S_plt_dk->selectAll();
}

void Plant_App::Lay_Out(bool filtration)
{
    auto* rows = new QFormLayout;
    rows->addRow("&Decay rate on the plant (1/d)", S_plt_dk = Named(new Number_Edit, "S_plt_dk"));
    rows->addRow("&Washoff-coefficient (1/cm)", S_plt_washoff = Named(new Number_Edit, "S_plt_washoff"));
    rows->addRow("&Filtration Parameter (1/cm)", S_plt_filtr = Named(new Number_Edit, "S_plt_filtr"));
    rows->addRow("Rate for &penetration (1/d)", S_plt_penet = Named(new Number_Edit, "S_plt_penet"));
    rows->addRow("Rate for P&hotodegrad. at ref. conditions",
                 S_plt_photo = Named(new Number_Edit("1/d"), "S_plt_photo"));
    rows->addRow(QString::fromUtf8("&Reference radiation (W/m²)"), S_RefRad = Named(new Number_Edit, "S_RefRad"));
    rows->addRow("&Laminar layer for volatilisation (cm)", S_dlam = Named(new Number_Edit, "S_dlam"));
    rows->addRow("Volatilisation &Enthalpy (J/mol)", S_Hv = Named(new Number_Edit, "S_Hv"));
    Named(rows->labelForField(S_plt_filtr), "Label_plt_filtr")->setVisible(filtration);
    S_plt_filtr->setVisible(filtration);

    auto* all = new QVBoxLayout(this);
    all->addLayout(rows);
    all->addStretch(1);
    all->addWidget(Done_And_Cancel(*this, &Plant_App::Done, "Command1", "&OK"));
}

void Plant_App::Done()
{
    Accept_Plant(The_Session, {.S_plt_dk = S_plt_dk->Typed(),
                               .S_plt_washoff = S_plt_washoff->Typed(),
                               .S_plt_filtr = S_plt_filtr->Typed(),
                               .S_plt_penet = S_plt_penet->Typed(),
                               .S_plt_photo = S_plt_photo->Typed(),
                               .S_RefRad = S_RefRad->Typed(),
                               .S_dlam = S_dlam->Typed(),
                               .S_Hv = S_Hv->Typed()});
    accept();
}

} // namespace orvel
