#include "scenario/forms/form_rot.h"

#include "scenario/forms/form_difcrop.h"
#include "ui/forms/date_boxes.h"
#include "ui/forms/done_cancel.h"
#include "ui/forms/leave_guard.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/undo_history.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

namespace orvel {

namespace {

constexpr int List_Width = 22, Year_Width = 6, Rotation_Rows = 16; // in characters and lines

QListWidget* List(const QString& name)
{
    auto* list = Named(new QListWidget, name);
    list->setMinimumSize(list->fontMetrics().averageCharWidth() * List_Width,
                         list->fontMetrics().lineSpacing() * Rotation_Rows);
    return list;
}

QVBoxLayout* Headed(const QString& heading, QListWidget* list)
{
    auto* label = new QLabel(heading);
    label->setBuddy(list);
    auto* column = new QVBoxLayout;
    column->addWidget(label);
    column->addWidget(list, 1);
    return column;
}

} // namespace

Form_rot::Form_rot(Session& session, const std::filesystem::path& directory, QWidget* parent)
    : QDialog(parent),
      The_Session(session),
      Work(Load_Rotation(session.Scenario, Read_Crop_Data(session, directory)))
{
    setObjectName("Form_rot");
    setWindowTitle("Crop Rotation Information");
    Guard = new Leave_Guard(*this, [this](QWidget&) { Leave_Dates(); });
    Lay_Out();
    for (const auto& crop : Work.Data_Base)
        List_dat->addItem(Shown(crop.DB_Crop_Name));
    List_dat->setCurrentRow(0);
    Show_Rotation(Work.Rows.empty() ? std::nullopt : std::optional<std::size_t>(0));
    Keep_History(
        *this,
        [this] {
            return State{Work, Selected_Row()};
        },
        [this](const State& state) {
            Work = state.Work;
            Show_Rotation(state.Selected);
        });
}

void Form_rot::Lay_Out()
{
    List_dat = List("List_dat");
    List_rot = List("List_rot");
    connect(List_rot, &QListWidget::currentRowChanged, this, &Form_rot::Rot_Show);
    connect(List_dat, &QListWidget::itemDoubleClicked, this, &Form_rot::Append);

    auto* moves = new QVBoxLayout;
    moves->addStretch(1);
    moves->addWidget(Command1 = Push_Button("Command1", ">>", this, &Form_rot::Insert));
    moves->addWidget(Command3 = Push_Button("Command3", "&Append  >>", this, &Form_rot::Append));
    moves->addWidget(Command2 = Push_Button("Command2", "<<", this, &Form_rot::Remove));
    moves->addStretch(1);
    Command1->setToolTip("Insert the crop before the selected row of the rotation");
    Command2->setToolTip("Remove the selected row of the rotation");
    Command3->setToolTip("Add the crop behind the last row of the rotation");
    auto* right = new QVBoxLayout;
    right->addWidget(Dates());
    right->addStretch(1);
    right->addWidget(Command6 = Push_Button("Command6", "Change Crop &Parameters", this, &Form_rot::Change_Crops));

    auto* columns = new QHBoxLayout;
    columns->addLayout(Headed("&Data Base", List_dat), 1);
    columns->addLayout(moves);
    columns->addLayout(Headed("Crop &Rotation", List_rot), 1);
    columns->addLayout(right);
    auto* all = new QVBoxLayout(this);
    all->addLayout(columns, 1);
    all->addWidget(Done_And_Cancel(*this, The_Session.Ask, &Form_rot::Done, "Command5", "&OK", "Command4"));
}

QGroupBox* Form_rot::Dates()
{
    Croping_Dates = new QGroupBox("Croping Dates");
    auto* grid = new QGridLayout(Croping_Dates);
    constexpr std::array<const char*, 3> headings = {"Day", "Month", "Year"};
    for (std::size_t c = 0; c < headings.size(); ++c)
        grid->addWidget(new QLabel(headings[c]), 0, static_cast<int>(c) + 1);
    for (std::size_t i = 0; i < Boxes.size(); ++i) {
        const QString label = Shown(Crop_Stages[i].Label), suffix = Shown(Crop_Stages[i].Suffix);
        auto& boxes = Boxes[i];
        boxes = {Day_Box("Combo1_" + suffix, label + ", day"), Month_Box("Combo2_" + suffix, label + ", month"),
                 Named(new Number_Edit, "Text_" + suffix)};
        boxes.Year->setAccessibleName(label + ", year");
        boxes.Year->setMinimumWidth(fontMetrics().averageCharWidth() * Year_Width);
        const int row = static_cast<int>(i) + 1;
        grid->addWidget(new QLabel(label), row, 0);
        grid->addWidget(boxes.Day, row, 1);
        grid->addWidget(boxes.Month, row, 2);
        grid->addWidget(boxes.Year, row, 3);
        Connect_Date(i);
    }
    Date_Note = Named(new QLabel, "Date_Note");
    Date_Note->setWordWrap(true);
    grid->addWidget(Date_Note, static_cast<int>(Boxes.size()) + 1, 0, 1, 4);
    return Croping_Dates;
}

void Form_rot::Connect_Date(std::size_t stage)
{
    const auto& boxes = Boxes[stage];
    const auto which = Crop_Stages[stage].Stage;
    const auto set_day = [this, which, day = boxes.Day] {
        Set_Day(Work, Selected_Row(), which, Bytes_Of(day->currentText()));
    };
    connect(boxes.Day, &QComboBox::activated, this, set_day);
    connect(boxes.Day->lineEdit(), &QLineEdit::textEdited, this, set_day);
    connect(boxes.Month, &QComboBox::activated, this,
            [this, which](int item) { Set_Month(Work, Selected_Row(), which, item); });
    connect(boxes.Year, &QLineEdit::textEdited, this,
            [this, which, year = boxes.Year] { Set_Year(Work, Selected_Row(), which, year->Typed()); });
    for (QWidget* box : std::initializer_list<QWidget*>{boxes.Day, boxes.Month, boxes.Year})
        Guard->Watch(*box);
}

std::optional<std::size_t> Form_rot::Selected_Row() const
{
    return List_rot->currentRow() < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(List_rot->currentRow()));
}

std::optional<std::size_t> Form_rot::Selected_Crop() const
{
    return List_dat->currentRow() < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(List_dat->currentRow()));
}

void Form_rot::Show_Rotation(std::optional<std::size_t> selected)
{
    const QSignalBlocker blocker(List_rot);
    List_rot->clear();
    for (std::size_t row = 0; row < Work.Rows.size(); ++row)
        List_rot->addItem(Shown(Rotation_Name(Work, row)));
    List_rot->setCurrentRow(selected ? static_cast<int>(*selected) : -1);
    Command2->setEnabled(!Work.Rows.empty());
    Command6->setEnabled(!Work.Rows.empty());
    Rot_Show();
}

void Form_rot::Rot_Show()
{
    const auto row = Selected_Row();
    for (std::size_t i = 0; i < Boxes.size(); ++i) {
        const auto& [day, month, year] = Boxes[i];
        const bool has_date = row && (Crop_Stages[i].Stage != Crop_Stage::Tillage || Is_Tilled(Work, *row));
        for (QWidget* box : std::initializer_list<QWidget*>{day, month, year})
            box->setEnabled(has_date);
        const auto date = has_date ? Date_Of(Work.Rows[*row], Crop_Stages[i].Stage) : Crop_Date{};
        day->setEditText(has_date ? QString::number(date.Day) : QString());
        month->setCurrentIndex(date.Month - 1);
        year->setText(has_date ? QString::number(date.Year) : QString());
    }
    Date_Note->setText(row ? Shown(Rotation_Date_Hints(Work, *row)) : QString());
}

void Form_rot::Leave_Dates()
{
    Check_Rotation_Dates(Work, static_cast<int>(Work.Rows.size()));
    Rot_Show();
}

void Form_rot::Insert()
{
    if (const auto crop = Selected_Crop())
        Show_Rotation(Rot_Insert(Work, Selected_Row().value_or(Work.Rows.size()), *crop));
}

void Form_rot::Append()
{
    if (const auto crop = Selected_Crop())
        Show_Rotation(Rot_Append(Work, *crop));
}

void Form_rot::Remove()
{
    if (const auto row = Selected_Row())
        Show_Rotation(Rot_Remove(Work, *row));
}

void Form_rot::Change_Crops()
{
    if (Form_DifCrop(The_Session, Work, this).exec() == Accepted)
        Show_Rotation(Work.Rows.empty() ? std::nullopt : Selected_Row());
}

// Accepts a date under edit first: Return does not move the focus away from it.
void Form_rot::Done()
{
    if (focusWidget() && focusWidget()->parentWidget() == Croping_Dates)
        Leave_Dates();
    if (const auto refusal = Check_Rotation(Work)) {
        The_Session.Ask(refusal->Text);
        return findChild<QWidget*>(Shown(refusal->Control))->setFocus();
    }
    Take_Over_Rotation(The_Session, Work);
    accept();
}

} // namespace orvel
