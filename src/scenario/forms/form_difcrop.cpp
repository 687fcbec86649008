#include "scenario/forms/form_difcrop.h"

#include "scenario/crop_rotation.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/leave_guard.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/undo_history.h"
#include "ui/number_field.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>

namespace orvel {

namespace {

constexpr int Crop_List_Width = 20; // in characters

} // namespace

Form_DifCrop::Form_DifCrop(Session& session, Rotation_Work& work, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Work(work),
      Editor(Edit_Crops(work))
{
    setObjectName("Form_DifCrop");
    setWindowTitle("Different Crops in Simulation");
    Guard = new Leave_Guard(*this, [this](QWidget& box) { Leave(static_cast<Number_Edit&>(box)); });
    Lay_Out();
    for (const auto& crop : Editor.Crops)
        List_crop->addItem(Shown(crop.Name));
    List_crop->setCurrentRow(0);
    Show_Crop();
    Keep_History(
        *this,
        [this] {
            return State{Editor, List_crop->currentRow()};
        },
        [this](const State& state) {
            Editor = state.Editor;
            List_crop->setCurrentRow(state.Selected);
            Show_Crop();
        });
}

void Form_DifCrop::Lay_Out()
{
    List_crop = Named(new QListWidget, "List_crop");
    List_crop->setMinimumWidth(fontMetrics().averageCharWidth() * Crop_List_Width);
    connect(List_crop, &QListWidget::currentRowChanged, this, &Form_DifCrop::Show_Crop);
    auto* label = new QLabel("Different C&rops");
    label->setBuddy(List_crop);
    auto* crops = new QVBoxLayout;
    crops->addWidget(label);
    crops->addWidget(List_crop, 1);

    auto* middle = new QVBoxLayout;
    middle->addWidget(Crop_Group());
    middle->addStretch(1);
    auto* right = new QVBoxLayout;
    for (auto* group : {Runoff_Group(), Surface_Group(), Kc_Group()})
        right->addWidget(group);
    right->addStretch(1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(crops);
    columns->addLayout(middle);
    columns->addLayout(right, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Push_Button("Command3", "Default &Values", this, &Form_DifCrop::Defaults));
    buttons->addWidget(Done_And_Cancel(*this, The_Session.Ask, &Form_DifCrop::Done, "Command1", "&OK"), 1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(columns, 1);
    all->addLayout(buttons);
}

Number_Edit* Form_DifCrop::Box(const QString& name, const QString& purpose, const QString& unit)
{
    auto* box = Named(new Number_Edit(unit), name);
    box->setAccessibleName(QString(purpose).remove("&"));
    Guard->Watch(*box);
    connect(box, &QLineEdit::textEdited, this, [this, box] {
        if (auto* crop = Selected())
            Set_Crop_Text(crop->Properties, Bytes_Of(box->objectName()), box->Typed());
    });
    return Boxes[name] = box;
}

QGroupBox* Form_DifCrop::Crop_Group()
{
    auto* group = new QGroupBox("Crop");
    auto* rows = new QGridLayout(group);
    const auto add = [&](const QString& caption, QWidget* field) {
        auto* label = new QLabel(caption);
        label->setBuddy(field);
        const int row = rows->rowCount();
        rows->addWidget(label, row, 0);
        rows->addWidget(field, row, 1);
    };
    add("Maximum root de&pth", Box("Text1", "Maximum root depth", "cm"));
    add("Max. interception &storage for water:", Box("Text2", "Max. interception storage for water", "cm"));
    add("Maximum crop &interception:", Box("Text3", "Maximum crop interception", "%"));
    add("Maximum dry &mass", Box("Text4", "Maximum dry mass", QString::fromUtf8("kg/m²")));
    Combo1 = Named(new QComboBox, "Combo1");
    for (const auto condition : Conditions_After_Harvest)
        Combo1->addItem(Shown(condition));
    add("Cond. after &harvest:", Combo1);
    connect(Combo1, &QComboBox::activated, this, [this](int item) {
        if (auto* crop = Selected())
            Choose_Condition(crop->Properties, item);
    });
    Add_Flag(*rows, "Irrigated:", "Option_irr", &Crop_Row::SZE_Rot_Irrigated, &Form_DifCrop::Irrigated);
    Add_Flag(*rows, "Perennial crop:", "Option_peren", &Crop_Row::SZE_Rot_Perennial, &Form_DifCrop::Perennial);
    Add_Flag(*rows, "Tillage before emergence:", "Option_til", &Crop_Row::SZE_Rot_Tillage, &Form_DifCrop::Tillage);
    Groups.push_back(group);
    return group;
}

void Form_DifCrop::Add_Flag(QGridLayout& rows, const QString& caption, const QString& name,
                            std::int16_t Crop_Row::*field, void (Form_DifCrop::*chosen)(int))
{
    auto* options = new QButtonGroup(this);
    auto* line = new QHBoxLayout;
    for (const int option : {1, 0}) {
        auto* button = Named(new QRadioButton(option == 1 ? "Yes" : "No"), name + "_" + QString::number(option));
        button->setAccessibleName(caption + " " + button->text());
        options->addButton(button, option);
        line->addWidget(button);
    }
    line->addStretch(1);
    const int row = rows.rowCount();
    rows.addWidget(new QLabel(caption), row, 0);
    rows.addLayout(line, row, 1);
    connect(options, &QButtonGroup::idClicked, this, chosen);
    Flags.push_back({options, field});
}

QGroupBox* Form_DifCrop::Runoff_Group()
{
    auto* group = new QGroupBox("Runoff and erosion");
    auto* grid = new QGridLayout(group);
    const std::array<QString, 2> captions = {"Curve numbers", "Management factors (USLE)"},
                                 names = {"Text_cn", "Text_uslec"};
    for (int row = 0; row < 2; ++row) {
        const auto kind = static_cast<std::size_t>(row);
        grid->addWidget(new QLabel(captions[kind]), row + 1, 0);
        for (int stage = 1; stage <= 3; ++stage) {
            const QString condition = Shown(Conditions_After_Harvest[static_cast<std::size_t>(stage) - 1]);
            if (row == 0)
                grid->addWidget(new QLabel(condition), 0, stage);
            grid->addWidget(Box(names[kind] + QString::number(stage), captions[kind] + ", " + condition), row + 1,
                            stage);
        }
    }
    Groups.push_back(group);
    return group;
}

QGroupBox* Form_DifCrop::Surface_Group()
{
    auto* group = new QGroupBox("Fate on Plant Surface");
    auto* rows = new QFormLayout(group);
    auto* heading = new QLabel("Relative process rates for poorly compared to well exposed pesticide deposits");
    heading->setWordWrap(true);
    rows->addRow(heading);
    rows->addRow("photodegradation on leaves", Box("text_rrppex", "photodegradation on leaves"));
    rows->addRow("penetration into leaves", Box("text_rrrpex", "penetration into leaves"));
    rows->addRow("volatilisation from leaves", Box("text_rrvpex", "volatilisation from leaves"));
    rows->addRow("wash-off from leaves", Box("text_rrwpex", "wash-off from leaves"));
    Groups.push_back(group);
    return group;
}

QGroupBox* Form_DifCrop::Kc_Group()
{
    auto* group = new QGroupBox("Crop specific Kc-factors");
    auto* rows = new QFormLayout(group);
    rows->addRow("Mid season:", Box("Text_KC1", "Kc factor, mid season"));
    rows->addRow("Late Season", Box("Text_KC2", "Kc factor, late season"));
    Groups.push_back(group);
    return group;
}

Edited_Crop* Form_DifCrop::Selected()
{
    const int row = List_crop->currentRow();
    return row < 0 ? nullptr : &Editor.Crops[static_cast<std::size_t>(row)];
}

void Form_DifCrop::Show_Crop()
{
    const auto* crop = Selected();
    for (auto* group : Groups)
        group->setEnabled(crop);
    if (!crop)
        return;
    for (const auto& [name, box] : Boxes)
        box->setText(Shown(Crop_Text(crop->Properties, Bytes_Of(name))));
    Combo1->setCurrentIndex(crop->Properties.SZE_Rot_Residue - 1);
    for (const auto& [options, field] : Flags)
        options->button(crop->Properties.*field == 1 ? 1 : 0)->setChecked(true);
}

void Form_DifCrop::Irrigated(int option)
{
    if (auto* crop = Selected())
        Choose_Irrigated(crop->Properties, option);
}

void Form_DifCrop::Perennial(int option)
{
    if (auto* crop = Selected())
        Choose_Perennial(crop->Properties, option);
}

void Form_DifCrop::Tillage(int option)
{
    if (List_crop->currentRow() >= 0)
        Choose_Tillage(Editor, static_cast<std::size_t>(List_crop->currentRow()), option);
}

void Form_DifCrop::Defaults()
{
    if (auto* crop = Selected())
        Reset_Crop(*crop, Work);
    Show_Crop();
}

// A value out of range is reported once, when its box is left after an edit, and kept. False: it was reported.
bool Form_DifCrop::Leave(Number_Edit& box)
{
    const auto refusal = Check_Crop_Text(Bytes_Of(box.objectName()), box.Typed());
    if (!refusal || !box.isModified())
        return true;
    box.setModified(false);
    Guard->Refuse(The_Session.Ask, *refusal);
    return false;
}

// Accepts a box under edit first: Return does not move the focus away from it.
void Form_DifCrop::Done()
{
    auto* box = qobject_cast<Number_Edit*>(focusWidget());
    if ((!box || Leave(*box)) && Sizes_Are_Held() && Confirm_Crops(The_Session, Editor, Work))
        accept();
}

// A crop that is not in view may hold a number that was refused and kept.
bool Form_DifCrop::Sizes_Are_Held()
{
    for (std::size_t row = 0; row < Editor.Crops.size(); ++row) {
        for (const auto& [name, box] : Boxes) {
            const auto control = Bytes_Of(name);
            if (const auto refusal = Check_Size(Crop_Text(Editor.Crops[row].Properties, control), control)) {
                List_crop->setCurrentRow(static_cast<int>(row));
                Guard->Refuse(The_Session.Ask, *refusal);
                return false;
            }
        }
    }
    return true;
}

} // namespace orvel
