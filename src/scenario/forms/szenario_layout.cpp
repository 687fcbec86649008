// Layout of the scenario form.
#include "scenario/forms/szenario.h"
#include "scenario/scenario_view.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/leave_guard.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/widgets.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

namespace {

// A check box, and what it opens at the end of its row.
QLayout* Beside(QCheckBox* check, QPushButton* opens)
{
    auto* row = new QHBoxLayout;
    row->addWidget(check);
    row->addStretch(1);
    if (opens)
        row->addWidget(opens);
    return row;
}

} // namespace

Byte_Edit* Szenario::Register(Byte_Edit* box, const QString& purpose)
{
    box->setAccessibleName(purpose);
    Guard->Watch(*box);
    Boxes[box->objectName()] = box;
    return box;
}

Byte_Edit* Szenario::Number_Box(const QString& name, const QString& purpose, const QString& unit)
{
    return Register(Named(new Number_Edit(unit), name), purpose);
}

// A row with a caption and a box. Its widgets are found through the box so that the row can be hidden.
void Szenario::Add_Row(QFormLayout& rows, const QString& caption, const QString& name, const QString& unit)
{
    auto* label = new QLabel(caption);
    auto* box = Number_Box(name, QString(caption).remove("&"), unit);
    label->setBuddy(box);
    rows.addRow(label, box);
    std::vector<QWidget*> widgets = {label, box};
    if (name == "Text_num")
        Layer_Widgets = widgets;
    if (name.startsWith("Text_et_"))
        Kc_Widgets.insert(Kc_Widgets.end(), widgets.begin(), widgets.end());
    if (name == "s_DOC")
        DOC_Widgets = widgets;
    if (name.startsWith("schnelle_Prozesse_Tiefe_")) {
        const bool macropores = name.endsWith('1');
        label->setObjectName(macropores ? "L_Schneller_Prozess_1" : "L_Schneller_Prozess_0");
        Depth_Widgets[macropores] = widgets;
    }
}

QButtonGroup* Szenario::Options(QFormLayout& rows, const QStringList& names, const QStringList& captions,
                                void (*choose)(Scenario_Edit, int))
{
    auto* group = new QButtonGroup(this);
    for (int i = 0; i < names.size(); ++i) {
        auto* option = Named(new QRadioButton(captions[i]), names[i]);
        group->addButton(option, i);
        rows.addRow(option);
    }
    connect(group, &QButtonGroup::idClicked, this, [this, choose](int option) {
        choose(The_Session, option);
        Show_View();
    });
    return group;
}

QPushButton* Szenario::Command(const QString& name, const QString& caption, void (Szenario::*handler)())
{
    return Push_Button(name, caption, this, handler);
}

void Szenario::Lay_Out()
{
    auto* title = new QFormLayout;
    title->addRow("&Title", Register(Named(new Byte_Edit, "Text_tit"), "Title"));
    auto* left = new QVBoxLayout;
    for (auto* group : {Soil(), Compartments(), Hydraulics()})
        left->addWidget(group);
    left->addStretch(1);
    auto* right = new QVBoxLayout;
    for (auto* group : {Evapotranspiration(), Processes(), Output()})
        right->addWidget(group);
    right->addStretch(1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(title);
    all->addLayout(columns, 1);
    all->addLayout(Buttons());
    Use_Form_Keys(*this);
}

QGroupBox* Szenario::Soil()
{
    auto* group = new QGroupBox("Soil");
    auto* rows = new QFormLayout(group);
    Add_Row(*rows, "Core De&pth:", "Text_cor", "cm");
    Add_Row(*rows, "&Number of Horizons:", "Text_nhor");
    rows->addRow(Command("Command4", "Soil &Horizon Parameters", &Szenario::Horizons));
    Add_Row(*rows, "&Geogr. Latitude:", "Text_geo", QString::fromUtf8("°"));
    Add_Row(*rows, "&Factor for Snow Melt:", "Text_sfac");
    auto* uptake = Named(new Number_Edit, "Text_peup");
    rows->addRow("Pesticide &Uptake Factor:", uptake);
    connect(uptake, &QLineEdit::textEdited, this, [this] { The_Session.Program.SZE_Changed = true; });
    return group;
}

QGroupBox* Szenario::Compartments()
{
    auto* group = new QGroupBox("Compartment size");
    auto* rows = new QFormLayout(group);
    Button_Delxflg = Options(*rows, {"Button_Delxflg_0", "Button_Delxflg_1"}, {"Dependent on soil depth", "Constant"},
                             Choose_Compartments);
    Add_Row(*rows, "Number of &Layers:", "Text_num");
    auto* caption = new QLabel("Thickness of Layers:");
    Label2 = Named(new QLabel, "Label2");
    rows->addRow(caption, Label2);
    Layer_Widgets.insert(Layer_Widgets.end(), {caption, Label2});
    Dispersion =
        Options(*rows, {"Dispersion_0", "Dispersion_1"}, {"Dispersion coeff.", "Dispersion length"}, Choose_Dispersion);
    return group;
}

QGroupBox* Szenario::Hydraulics()
{
    auto* group = new QGroupBox("Hydraulics");
    auto* rows = new QFormLayout(group);
    Hydraulic_Options = Options(*rows, {"Option1_th", "Option2_th", "Option3_th"},
                                {"Direct Input of Field Capacity and Wilting Point", "Pedotransfer Function of PRZM I",
                                 "Pedotransfer Function of ORVEL"},
                                Choose_Hydraulics);
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    rows->addRow(line);
    Wasserfluss = Options(*rows, {"Wasserfluss_0", "Wasserfluss_1"},
                          {"Free drainage ", "Exponentially restricted drainage"}, Choose_Drainage);
    return group;
}

QGroupBox* Szenario::Evapotranspiration()
{
    auto* group = new QGroupBox("Evapotranspiration");
    auto* rows = new QFormLayout(group);
    Combo_et = Named(new QComboBox, "Combo_et");
    for (const auto method : Evapotranspiration_Methods)
        Combo_et->addItem(Shown(method));
    rows->addRow("&Calculate ET with:", Combo_et);
    connect(Combo_et, &QComboBox::activated, this, [this](int item) {
        Choose_Evapotranspiration(The_Session, item);
        Show_View();
    });
    Add_Row(*rows, "Minimum Depth for ET:", "Text_et_depth", "cm");
    auto* caption = new QLabel("Kc factors for ET:");
    rows->addRow(caption);
    Kc_Widgets.push_back(caption);
    Add_Row(*rows, "no crop:", "Text_et_fac_0");
    Add_Row(*rows, "mid season:", "Text_et_fac_1");
    Add_Row(*rows, "late season:", "Text_et_fac_2");
    return group;
}

QGroupBox* Szenario::Processes()
{
    auto* group = new QGroupBox("Fast processes");
    auto* rows = new QFormLayout(group);
    const std::array<QString, 2> captions = {"&Runoff", "&Macropore Flow"},
                                 depths = {"Runoff depth (cm):", "Macropore depth (cm)"};
    for (std::size_t x = 0; x < 2; ++x) {
        auto* process = schnelle_Prozesse[x] =
            Named(new QCheckBox(captions[x]), "schnelle_Prozesse_" + QString::number(x));
        rows->addRow(Beside(
            process, x == 0 ? nullptr
                            : Command_macro = Command("Command_macro", "Macropore Parameters", &Szenario::Macropores)));
        Add_Row(*rows, depths[x], "schnelle_Prozesse_Tiefe_" + QString::number(x));
        connect(process, &QCheckBox::clicked, this, [this, x](bool on) {
            Switch_Process(The_Session, x == 0 ? Fast_Process::Runoff : Fast_Process::Macropore_Flow, on);
            Show_View();
        });
    }
    Check_er = Named(new QCheckBox("Calculate &Erosion"), "Check_er");
    Command_er = Command("Command_er", "Edit Parameters", &Szenario::Erosion_Parameters);
    rows->addRow(Beside(Check_er, Command_er));
    rows->addRow(doc_check = Named(new QCheckBox("Calculate transport &via DOC"), "doc_check"));
    Add_Row(*rows, "DOC-Content in soil water", "s_DOC", "mg/L");
    connect(Check_er, &QCheckBox::clicked, this, [this](bool on) {
        Switch_Erosion(The_Session, on);
        Show_View();
    });
    connect(doc_check, &QCheckBox::clicked, this, [this](bool on) {
        Switch_DOC(The_Session, on);
        Show_View();
    });
    return group;
}

QGroupBox* Szenario::Output()
{
    auto* group = new QGroupBox("Output");
    auto* grid = new QGridLayout(group);
    grid->addWidget(new QLabel("Frequency of Output:"), 0, 1);
    grid->addWidget(new QLabel("Output for Every  ... th Layer:"), 0, 2);
    const std::array<QString, 3> kinds = {"Water", "Solute", "Concentration"},
                                 labels = {"Label_wat", "Label_chem", "Label_conc"};
    for (int i = 0; i < 3; ++i) {
        const auto kind = static_cast<std::size_t>(i);
        auto* frequency = Frequencies[kind] = Named(new QPushButton, labels[kind]);
        frequency->setAutoDefault(false);
        frequency->setAccessibleName("Frequency of Output: " + kinds[kind]);
        grid->addWidget(new QLabel(kinds[kind]), i + 1, 0);
        grid->addWidget(frequency, i + 1, 1);
        grid->addWidget(
            Number_Box(QString("Text%1_freq").arg(i + 1), "Output for every how many layers: " + kinds[kind]), i + 1,
            2);
        connect(frequency, &QPushButton::clicked, this, [this, i] {
            Switch_Frequency(The_Session, static_cast<Output_Of>(i));
            Show_View();
        });
    }
    return group;
}

QHBoxLayout* Szenario::Buttons()
{
    Button_Row = new QHBoxLayout;
    Button_Row->addWidget(Command("Command3", "Create / Modify Crop R&otation", &Szenario::Rotation));
    Button_Row->addStretch(1);
    Button_Row->addWidget(Command("Command1", "&Save", &Szenario::Save));
    Button_Row->addWidget(Command("Command2", "&Done", &Szenario::accept));
    return Button_Row;
}

} // namespace orvel
