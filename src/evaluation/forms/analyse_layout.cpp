// The result browser's controls and layout.
#include "evaluation/forms/analyse.h"
#include "evaluation/forms/series_choice.h"
#include "tables/soil_concentrations.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/help_assistant.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace orvel {

namespace {

constexpr int Combo_Columns = 36;

QComboBox* Combo(const QString& name, const QString& purpose)
{
    auto* combo = Named(new QComboBox, name);
    combo->setAccessibleName(purpose);
    combo->setMinimumContentsLength(Combo_Columns);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return combo;
}

} // namespace

void Analyse::Lay_Out()
{
    Assistant = new Help_Assistant(The_Session, *this);
    Series = new Series_Choice;
    auto* all = new QVBoxLayout(this);
    all->addLayout(Lists());
    all->addWidget(Series);
    all->addStretch(1);
    all->addLayout(Buttons());
    Use_Form_Keys(*this);
    Attach_Help();
}

QLayout* Analyse::Lists()
{
    auto* rows = new QFormLayout;
    rows->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    Pestizidverzeichnis = Combo("Pestizidverzeichnis", "Pesticide File");
    Kulturverzeichnis = Combo("Kulturverzeichnis", "Crop");
    Szenarioverzeichnis = Combo("Szenarioverzeichnis", "Location");
    rows->addRow(Label1 = Named(Label_Of(Pestizidverzeichnis, "&Pesticide File:"), "Label1"), Pestizidverzeichnis);
    rows->addRow(Label4 = Named(Label_Of(Kulturverzeichnis, "&Crop:"), "Label4"), Kulturverzeichnis);
    rows->addRow(Label6 = Named(Label_Of(Szenarioverzeichnis, "&Location:"), "Label6"), Szenarioverzeichnis);
    rows->addRow("Date of simulation:", Datum = Named(new QLabel, "Datum"));
    if (The_Mode.Kind != Mode_Kind::Focus)
        Add_ERC(*rows);
    connect(Pestizidverzeichnis, &QComboBox::currentIndexChanged, this, &Analyse::Pestizidverzeichnis_Click);
    connect(Kulturverzeichnis, &QComboBox::currentIndexChanged, this, &Analyse::Kulturverzeichnis_Click);
    connect(Szenarioverzeichnis, &QComboBox::currentIndexChanged, this, &Analyse::Szenarioverzeichnis_Click);
    return rows;
}

// The profile's layers are one centimetre thick.
void Analyse::Add_ERC(QFormLayout& rows)
{
    ERC = Named(new QComboBox, "ERC");
    ERC->setAccessibleName("Ecologically relevant soil depth in centimetres");
    for (int depth = 1; depth <= Profile_Layers; ++depth)
        ERC->addItem(QString::number(depth));
    rows.addRow("Ecologicall&y relevant soil depth (cm):", ERC);
}

QLayout* Analyse::Buttons()
{
    const bool focus = The_Mode.Kind == Mode_Kind::Focus;
    auto* buttons = new QGridLayout;
    int place = 0;
    const auto add = [&](const QString& name, const QString& text, auto handler) {
        auto* button = Push_Button(name, text, this, handler);
        buttons->addWidget(button, place / 3, place % 3);
        ++place;
        return button;
    };
    Konzentration =
        add("Konzentration", focus ? "&Ann.  Av. Conc. in Leachate" : "PEC &soil", &Analyse::Konzentration_Click);
    Balance = add("Balance", "&Mass Balance", &Analyse::Balance_Click);
    Echo = add("Echo", "&Echo of Input data", &Analyse::Echo_Click);
    Zusammenfassung = add("Zusammenfassung", focus ? "&FOCUS Summary Report" : "&Write Summary Report",
                          &Analyse::Zusammenfassung_Click);
    Grafik = add("Grafik", "S&how Diagram", &Analyse::Grafik_Click);
    Liste = add("Liste", "&Browse", &Analyse::Liste_Click);
    buttons->addWidget(Assistant->Switch(), 2, 0, Qt::AlignLeft);
    place = 7;
    add("Befehl", "Copy as comma&nd", &Analyse::Command);
    OK = add("OK", "&Done", &Analyse::accept);
    return buttons;
}

void Analyse::Attach_Help()
{
    const auto series = [&](const char* name) { return Series->findChild<QWidget*>(name); };
    const std::initializer_list<std::pair<QWidget*, int>> controls = {{Label1, 15},
                                                                      {Pestizidverzeichnis, 15},
                                                                      {Label4, 16},
                                                                      {Kulturverzeichnis, 16},
                                                                      {Label6, 17},
                                                                      {Szenarioverzeichnis, 17},
                                                                      {Datum, 18},
                                                                      {Liste, 19},
                                                                      {Echo, 20},
                                                                      {Konzentration, 21},
                                                                      {Balance, 22},
                                                                      {series("Frame4"), 23},
                                                                      {series("Cumulative"), 24},
                                                                      {series("Frame2"), 25},
                                                                      {Grafik, 26}};
    for (const auto& [control, number] : controls)
        Assistant->Attach(control, number);
}

} // namespace orvel
