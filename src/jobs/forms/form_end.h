#pragma once

#include "jobs/forms/run_windows.h"
#include "runs/single_run.h"

#include <array>
#include <QDialog>
#include <QTimer>

class QComboBox;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace orvel {

class Leave_Guard;
class Number_Edit;
class Path_Label;

// The single run: its input files, its period, its output, the archive of earlier output.
class form_end : public QDialog {
    Q_OBJECT

public:
    form_end(Session& session, Run_Windows windows, QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Lay_Out();
    QLayout* Directory_Row();
    QLayout* Files();
    QLayout* Climate_List();
    QLayout* Period();
    QLayout* Output();
    QWidget* Archive();
    QLayout* Buttons();

    void Choose_Directory();
    void Refresh_Files();
    void Load(const Single_Run_Entry& entry);
    Single_Run_Entry Entry() const;
    bool Has_Climate_File();
    void Insert_Climate();
    void Append_Climate();
    void Remove_Climate();
    void Edit(const QString& name);
    void Ausgabe_Click(int option);
    void Start();
    void Command();
    void Open_Archive();
    void Move_To_Archive();
    void Close_Archive();
    void Leave(const QWidget& box);
    void Show_State();
    void Show_Date_Hint();
    void Stop();

    Session& The_Session;
    Run_Windows Windows;
    std::filesystem::path Directory;
    Path_Label* Dir1 = nullptr;
    QLabel* Missing = nullptr;       // which files the directory lacks
    QLabel* Datum_Hinweis = nullptr; // days that no year has
    QListWidget *File_psm = nullptr, *File_sce = nullptr, *File_cli = nullptr, *List_cli = nullptr;
    std::array<QLabel*, 2> Label2{};
    QComboBox *Combo_stad = nullptr, *Combo_endd = nullptr, *Combo_stam = nullptr, *Combo_endm = nullptr;
    Number_Edit* Text_years = nullptr;
    QLineEdit* Text1 = nullptr;
    std::array<QRadioButton*, 3> Ausgabe{};
    QGroupBox* Frame1 = nullptr;
    QPushButton* Command8 = nullptr;
    QProgressBar* Run_Bar = nullptr;
    QLabel* Run_Text = nullptr;
    QPushButton* Anhalten = nullptr;
    Leave_Guard* Guard = nullptr;
    QTimer Timer1;
};

} // namespace orvel
