#pragma once

#include "core/session.h"
#include "scenario/crop_rotation.h"
#include "ui/forms/entries_under_edit.h"

#include <array>
#include <QDialog>

class QComboBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace orvel {

class Leave_Guard;
class Number_Edit;

// The crop rotation: the crops of the database on the left, the rows of the rotation with their dates on the right.
// Leaving a date moves a rotation that is out of order forward in years.
class Form_rot : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    // `directory` contains the crop database.
    Form_rot(Session& session, const std::filesystem::path& directory, QWidget* parent = nullptr);
    ~Form_rot() override { hide(); } // a box left by closing the form still needs the rotation

    void Take_Over_Entries(Session& session) const override;

private:
    struct Date_Boxes {
        QComboBox *Day = nullptr, *Month = nullptr;
        Number_Edit* Year = nullptr;
    };

    struct State {
        Rotation_Work Work;
        std::optional<std::size_t> Selected;
        bool operator==(const State& other) const { return Work == other.Work; }
    };

    void Lay_Out();
    QGroupBox* Dates();
    void Connect_Date(std::size_t stage);
    std::optional<std::size_t> Selected_Row() const;
    std::optional<std::size_t> Selected_Crop() const;
    void Show_Rotation(std::optional<std::size_t> selected);
    void Rot_Show();
    void Leave_Dates();
    void Insert();
    void Append();
    void Remove();
    void Change_Crops();
    void Done();

    Session& The_Session;
    Rotation_Work Work;
    const Rotation_Work At_First;
    QListWidget *List_dat = nullptr, *List_rot = nullptr;
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command3 = nullptr, *Command6 = nullptr;
    QGroupBox* Croping_Dates = nullptr;
    QLabel* Date_Note = nullptr; // of dates that no year has
    Leave_Guard* Guard = nullptr;
    std::array<Date_Boxes, Crop_Stages.size()> Boxes;
};

} // namespace orvel
