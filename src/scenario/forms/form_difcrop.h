#pragma once

#include "core/session.h"
#include "scenario/crop_properties.h"
#include "ui/forms/entries_under_edit.h"

#include <map>
#include <QDialog>

class QButtonGroup;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QListWidget;

namespace orvel {

class Leave_Guard;
class Number_Edit;

// The properties of the crops of a rotation. On acceptance they are in `work`, where a changed tillage flag has removed
// the rotation.
class Form_DifCrop : public QDialog, public Entries_Under_Edit {
    Q_OBJECT

public:
    Form_DifCrop(Session& session, Rotation_Work& work, QWidget* parent = nullptr);

    void Take_Over_Entries(Session& session) const override;

private:
    struct Flag {
        QButtonGroup* Options = nullptr;
        std::int16_t Crop_Row::*Field = nullptr;
    };

    struct State {
        Crop_Editor Editor;
        int Selected = -1;
        bool operator==(const State& other) const { return Editor == other.Editor; }
    };

    void Lay_Out();
    QGroupBox* Crop_Group();
    QGroupBox* Runoff_Group();
    QGroupBox* Surface_Group();
    QGroupBox* Kc_Group();
    Number_Edit* Box(const QString& name, const QString& purpose, const QString& unit = {});
    void Add_Flag(QGridLayout& rows, const QString& caption, const QString& name, std::int16_t Crop_Row::*field,
                  void (Form_DifCrop::*chosen)(int));
    void Show_Crop();
    Edited_Crop* Selected();
    void Irrigated(int option);
    void Perennial(int option);
    void Tillage(int option);
    void Defaults();
    bool Leave(Number_Edit& box);
    bool Sizes_Are_Held();
    void Done();

    Session& The_Session;
    Rotation_Work& Work;
    Crop_Editor Editor;
    const Crop_Editor At_First;
    QListWidget* List_crop = nullptr;
    QComboBox* Combo1 = nullptr;
    std::map<QString, Number_Edit*> Boxes;
    std::vector<Flag> Flags;
    std::vector<QWidget*> Groups;
    Leave_Guard* Guard = nullptr;
};

} // namespace orvel
