#include "plans/forms/sweep_form.h"

#include "core/code_page.h"
#include "core/error.h"
#include "runs/selection.h"
#include "ui/forms/byte_edit.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace orvel {

namespace {

constexpr std::array Modes = {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4};

QComboBox* Combo(const QString& name, const QString& purpose)
{
    auto* combo = Named(new QComboBox, name);
    combo->setAccessibleName(purpose);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(32);
    return combo;
}

} // namespace

Sweep_Form::Sweep_Form(const Program_State& program, Ask_Function ask, QWidget* parent)
    : QDialog(parent),
      Program(program),
      Ask(std::move(ask))
{
    setObjectName("Sweep");
    setWindowTitle("Sweep");
    Lay_Out();
    for (const auto kind : Modes)
        Modus->addItem(Shown(Mode_Of(kind).Caption));
    for (const auto& name : Pesticide_List(Program.App_Path))
        Pesticide->addItem(Shown(name));
    for (const auto& crop : Crops) {
        if (!crop.Stem.empty() || crop.Individual)
            Crop_List->addItem(Shown(crop.Text));
    }
    Fill_Locations();
}

void Sweep_Form::Lay_Out()
{
    Modus = Combo("Modus", "Mode");
    Pesticide = Combo("Pesticide", "Pesticide file");
    Crop_List = Combo("Crop", "Crop");
    Location = Combo("Location", "Location");
    Shift = Named(new Byte_Edit, "Shift");
    Shift->setPlaceholderText("-14:14:7 is by -14, -7, 0, 7 and 14 days; empty: not at all");
    Varied = Named(new QPlainTextEdit, "Varied");
    Varied->setAccessibleName("Factors, a field a line");
    Varied->setPlaceholderText("A field a line: psm.Koc[1]=0.5,1,2");
    Varied->setTabChangesFocus(true);
    Varied->setMinimumHeight(fontMetrics().lineSpacing() * 6);
    connect(Modus, &QComboBox::activated, this, &Sweep_Form::Fill_Locations);
    connect(Crop_List, &QComboBox::activated, this, &Sweep_Form::Fill_Locations);
    for (auto* list : {Pesticide, Location})
        connect(list, &QComboBox::activated, this, &Sweep_Form::Fill_Fields);

    auto* rows = new QFormLayout;
    rows->addRow("&Mode:", Modus);
    rows->addRow("&Pesticide:", Pesticide);
    rows->addRow("C&rop:", Crop_List);
    rows->addRow("&Location:", Location);
    rows->addRow("&Shift of the applications:", Shift);
    auto* field_and_factors = Field_And_Factors();
    auto* label = new QLabel("&Field and factors:");
    label->setBuddy(Field);
    rows->addRow(label, field_and_factors);
    rows->addRow("&Varied:", Varied);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Push_Button("Make", "Ma&ke the plan ...", this, &Sweep_Form::Make));
    buttons->addWidget(Push_Button("Cancel", "&Cancel", this, &QDialog::reject));
    auto* all = new QVBoxLayout(this);
    all->addLayout(rows, 1);
    all->addLayout(buttons);
    Use_Form_Keys(*this);
}

QLayout* Sweep_Form::Field_And_Factors()
{
    Field = Combo("Field", "Field of the pesticide or scenario file");
    Field->setToolTip("The fields of the two files that hold a number other than 0");
    Factors = Named(new Byte_Edit, "Factors");
    Factors->setText("0.5,1,2");
    Factors->setAccessibleName("Factors");
    Factors->setMinimumWidth(fontMetrics().averageCharWidth() * 16);
    auto* row = new QHBoxLayout;
    row->addWidget(Field, 2);
    row->addWidget(Factors, 1);
    row->addWidget(Push_Button("Add", "&Add", this, &Sweep_Form::Add_Factor));
    return row;
}

Sweep_Order Sweep_Form::Run() const
{
    return {.Mode = &Mode_Of(Modes.at(static_cast<std::size_t>(std::max(0, Modus->currentIndex())))),
            .Pesticide = Bytes_Of(Pesticide->currentText()),
            .Crop = Bytes_Of(Crop_List->currentText()),
            .Location = Bytes_Of(Location->currentText())};
}

Sweep_Order Sweep_Form::Order() const
{
    Sweep_Order order = Run();
    const std::string shifts = Bytes_Of(Shift->text().trimmed());
    if (!shifts.empty())
        order.Shifts = Parse_Shifts(shifts);
    for (const QString& line : Varied->toPlainText().split('\n', Qt::SkipEmptyParts)) {
        if (!line.trimmed().isEmpty())
            order.Factors.push_back(Parse_Factor(To_Code_Page(line.trimmed().toStdString())));
    }
    return order;
}

void Sweep_Form::Fill_Locations()
{
    const Sweep_Order run = Run();
    const auto locations = Locations_Of_Crop(Program, *run.Mode, Crop_Named(run.Crop));
    Location->clear();
    for (const auto& location : locations)
        Location->addItem(Shown(location));
    Location->setCurrentIndex(Location_To_Select(locations, run.Location));
    Fill_Fields();
}

// Of documents that cannot be read there are none; making the plan tells why.
void Sweep_Form::Fill_Fields()
{
    const QString chosen = Field->count() > 0 ? Field->currentText() : "psm.Koc[1]";
    Field->clear();
    try {
        for (const auto& field : Fields_To_Vary(Program, Run()))
            Field->addItem(Shown(field));
    } catch (const File_Error&) {
        return;
    }
    Field->setCurrentIndex(std::max(0, Field->findText(chosen)));
}

void Sweep_Form::Add_Factor()
{
    if (!Field->currentText().isEmpty())
        Varied->appendPlainText(Field->currentText() + "=" + Factors->text().remove(' '));
}

void Sweep_Form::Make()
try {
    Made.clear();
    Print_Sweep(Program, Order(), [this](std::string_view text) { Made += text; });
    accept();
} catch (const File_Error& error) {
    Ask({"Sweep", To_Code_Page(error.what())});
}

} // namespace orvel
