#include "substance/forms/volatilisation_box.h"

#include "ui/forms/number_edit.h"
#include "ui/forms/widgets.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>

namespace orvel {

Volatilisation_Box::Volatilisation_Box(const Active_Entry& entry, QWidget* parent) : QGroupBox("Volatilisation", parent)
{
    Lay_Out();
    Show_Entry(entry);
}

void Volatilisation_Box::Show_Entry(const Active_Entry& entry)
{
    Method = entry.App_Flag;
    (entry.Henry_Direct ? Option_hen1 : Option_hen2)->setChecked(true);
    Text_vol3->setText(Shown(entry.Text_vol3));
    Text_vol4->setText(Shown(entry.Text_vol4));
    Show_Pairs(entry.Pairs);
    Show_View();
}

void Volatilisation_Box::Lay_Out()
{
    Rows = new QFormLayout(this);
    Option_hen1 = Named(new QRadioButton("Direct Input"), "Option_hen1");
    Option_hen2 = Named(new QRadioButton("Calculated"), "Option_hen2");
    auto* ways = new QButtonGroup(this);
    ways->addButton(Option_hen1);
    ways->addButton(Option_hen2);
    connect(ways, &QButtonGroup::idClicked, this, &Volatilisation_Box::Show_View);
    auto* options = new QHBoxLayout;
    options->addWidget(Option_hen1);
    options->addWidget(Option_hen2);
    options->addStretch(1);
    Rows->addRow("Henry Constant", options);
    S_Temperatur = Add_Pair(QString::fromUtf8("Temperature (°C)"), "S_Temperatur", "Label_Temperatur",
                            &Volatilisation::Volat_Temp);
    Text_vol0 = Add_Pair("Henry Constant [J / mol]", "Text_vol0", "Label_vol_0", &Volatilisation::Henry);
    Text_vol1 = Add_Pair("Vapor Pressure [Pa]", "Text_vol1", "Label_vol_1", &Volatilisation::Vap_Press);
    Text_vol2 = Add_Pair("Aquaeus Solubility [mg / L]", "Text_vol2", "Label_vol_2", &Volatilisation::Solubility);
    Text_vol3 = Add_Number(QString::fromUtf8("Diffusion Coefficient Air at 20°C [cm2/s]"), "Text_vol3", "Label_vol_3");
    Text_vol4 = Add_Number("Thickness of Boundary layer (cm)", "Text_vol4", "Label_vol_4");
}

// Only typed text changes the values: scientific notation shows fewer digits than they have.
Volatilisation_Box::Pair Volatilisation_Box::Add_Pair(const QString& caption, const QString& name,
                                                      const QString& label_name,
                                                      std::array<double, 2> Volatilisation::*values)
{
    Pair pair{};
    auto* fields = new QWidget;
    auto* row = new QHBoxLayout(fields);
    row->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < pair.size(); ++i) {
        pair[i] = Named(new Number_Edit, QString("%1_%2").arg(name).arg(i));
        pair[i]->setAccessibleName(QString("%1, %2. temperature").arg(caption).arg(i + 1));
        row->addWidget(pair[i]);
        connect(pair[i], &QLineEdit::textEdited, this,
                [this, field = pair[i], values, i] { (Pairs.*values)[i] = Val(field->Typed()); });
    }
    Rows->addRow(Named(new QLabel(caption), label_name), fields);
    return pair;
}

Number_Edit* Volatilisation_Box::Add_Number(const QString& caption, const QString& name, const QString& label_name)
{
    auto* field = Named(new Number_Edit, name);
    auto* label = Named(new QLabel(caption), label_name);
    label->setBuddy(field);
    auto* whole = new QWidget; // a row of its own: its long caption would push all other boxes to the right
    auto* row = new QHBoxLayout(whole);
    row->setContentsMargins(0, 0, 0, 0);
    field->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    row->addWidget(label, 1);
    row->addWidget(field);
    Rows->addRow(whole);
    return field;
}

void Volatilisation_Box::Take(Active_Entry& entry) const
{
    entry.Henry_Direct = Option_hen1->isChecked();
    entry.Pairs = Pairs;
    entry.Text_vol3 = Text_vol3->Typed();
    entry.Text_vol4 = Text_vol4->Typed();
}

void Volatilisation_Box::Show_Pairs(const Volatilisation& pairs)
{
    Pairs = pairs;
    for (std::size_t i = 0; i < S_Temperatur.size(); ++i) {
        S_Temperatur[i]->setText(Shown(General_Text(pairs.Volat_Temp[i])));
        Text_vol0[i]->setText(Shown(Scientific_Text(pairs.Henry[i])));
        Text_vol1[i]->setText(Shown(Scientific_Text(pairs.Vap_Press[i])));
        Text_vol2[i]->setText(Shown(General_Text(pairs.Solubility[i])));
    }
}

void Volatilisation_Box::Show_Method(Application_Method method)
{
    Method = method;
    Show_View();
}

void Volatilisation_Box::Show_View()
{
    Active_Entry entry;
    entry.App_Flag = Method;
    entry.Henry_Direct = Option_hen1->isChecked();
    const auto view = View_Of_Volatilisation(entry);
    Rows->setRowVisible(Text_vol0[0]->parentWidget(), view.Henry_Visible);
    Rows->setRowVisible(Text_vol1[0]->parentWidget(), view.Vap_Press_Visible);
    Rows->setRowVisible(Text_vol2[0]->parentWidget(), view.Solubility_Visible);
}

void Volatilisation_Box::Show_Minor(bool visible)
{
    Rows->setRowVisible(Text_vol3->parentWidget(), visible);
    Rows->setRowVisible(Text_vol4->parentWidget(), visible);
}

} // namespace orvel
