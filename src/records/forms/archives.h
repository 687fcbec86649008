#pragma once

#include "core/session.h"
#include "runs/mode.h"

#include <functional>
#include <QDialog>

class QComboBox;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace orvel {

class Number_Edit;

// Archives of assessments: makes one, lays one out again, runs one again, and compares documents, runs, archives and
// installations.
class Archives : public QDialog {
    Q_OBJECT

public:
    explicit Archives(Session& session, QWidget* parent = nullptr);

private:
    void Lay_Out();
    QWidget* Archive_Box();
    QWidget* Restore_Box();
    QWidget* Compare_Box();
    enum class Takes { File, Directory, Both };
    void Add_Path(QFormLayout& rows, const QString& caption, QLineEdit*& field, const QString& name, Takes takes);
    void Load_Pesticides();
    void Load_Crops();
    void Enable_Buttons();
    void Do_Archive_Click();
    void Do_Restore_Click();
    void Do_Reproduce_Click();
    void Do_Compare_Click();
    double Tolerance() const;
    std::vector<std::string> Commands() const;
    const Mode& Chosen_Mode() const;

    Session& The_Session;
    QComboBox *Mode_List = nullptr, *Pesticide_List = nullptr, *Crop_List = nullptr;
    QLineEdit *Archive_File = nullptr, *Target = nullptr, *First = nullptr, *Second = nullptr;
    Number_Edit* Tolerance_Field = nullptr;
    QPushButton *Do_Archive = nullptr, *Do_Restore = nullptr, *Do_Reproduce = nullptr, *Do_Compare = nullptr;
    QPlainTextEdit* Result = nullptr;
};

} // namespace orvel
