#pragma once

#include "jobs/forms/run_windows.h"
#include "runs/mark.h"
#include "runs/selection.h"

#include <array>
#include <QDialog>
#include <QTimer>

class QComboBox;
class QGroupBox;
class QLabel;
class QHBoxLayout;
class QLayout;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace orvel {

class Help_Assistant;

// Sets up the runs of a regulatory mode: pesticide file, crop and location, the pending batch, and the state of the
// job.
class FOCUS : public QDialog {
    Q_OBJECT

public:
    FOCUS(Session& session, const Mode& mode, Run_Windows windows, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Lay_Out();
    QLayout* Lists();
    QLayout* Application_Data();
    QLayout* Options();
    QWidget* Scaling_Choice();
    QLayout* Versions();
    QLayout* Notices();
    QLayout* Job_State();
    QLayout* Buttons();
    void Attach_Help();
    QListWidget* List(const QString& name, const QString& caption, const QString& label_name, int columns,
                      QHBoxLayout* into);

    void Activate();
    void List_Pesticides();
    void Restore(const Run_Template& saved);
    void Crop_Click();
    void Fill_Locations(std::string_view code);
    void Evaluate();
    void Show_Selection();
    void Show_Output_Option();
    void Ausgabe_Click(int option);
    Run_Choice Choice() const;
    std::filesystem::path Directory() const;

    void Mark();
    void Mark_All_Locations();
    void Show_Marked(const Mark_All_Result& result);
    void Clear_Marked();
    void Show_Guidance();
    void Run();
    void Run_Anyway();
    void Tick();
    void Show_Job(bool running);
    void Show_Start_Notice();
    void Stop();
    void Show_Progress();

    void Evaluation();
    void Command();
    void Edit_Pesticide();
    void Edit_Scenario();
    void Edit(const std::filesystem::path& document);
    void Delete_Selected();
    bool Key(int key);

    Session& The_Session;
    const Mode& The_Mode;
    Run_Windows Windows;
    Selection Selected;
    Help_Assistant* Assistant = nullptr;
    int Crop_Step = 0;
    bool First_Open = true;
    int Irregular_Years = 26;
    double Kept_Number = 0;

    QListWidget *Pesticide = nullptr, *Crop_List = nullptr, *Location_List = nullptr;
    std::string Guidance_Text;   // of the runs marked last; empty: there is nothing to tell
    bool Tells_Of_Batch = false; // Marked counts combinations of the pending batch
    QLabel *App_Modus = nullptr, *app_Date = nullptr, *Warnung = nullptr, *Hinweis = nullptr, *Marked = nullptr;
    QWidget* Warning_Box = nullptr;
    QGroupBox* Frame4 = nullptr;
    QComboBox* L_tildepth = nullptr;
    QComboBox* Scaling = nullptr; // of the temperatures; Tier 4 only
    std::array<QRadioButton*, 3> Ausgabe{};
    QPushButton *s_run = nullptr, *Batchdatei = nullptr, *Guidance = nullptr, *Multi_batch = nullptr,
                *Command1 = nullptr, *Command2 = nullptr;
    QWidget* Job_Box = nullptr;
    QProgressBar* Job_Bar = nullptr;
    QLabel *Job_Text = nullptr, *Start_Text = nullptr;
    QPushButton* Anhalten = nullptr;
    QTimer Timer1;
    QTimer Progress_Timer; // separate, so that the bar moves while Timer1 waits for the job to start
};

} // namespace orvel
