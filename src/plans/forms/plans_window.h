#pragma once

#include "core/session.h"
#include "plans/forms/plan_model.h"
#include "plans/plan_charts.h"
#include "plans/plan_survey.h"
#include "plans/run_plan.h"
#include "plans/slurm.h"

#include <optional>
#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QTableView;

namespace orvel {

class Path_Label;
class Picture_Panel;

// Plans: opens or makes one, runs it in a program that outlives the window, follows its runs and shows what they come
// to. It stays open beside the other windows and has a state of the program of its own.
class Plans_Window : public QDialog {
    Q_OBJECT

public:
    explicit Plans_Window(const Session& session, QWidget* parent = nullptr);
    ~Plans_Window() override;

    // A plan, the directory of its runs, or the copy in it; what cannot be opened is told.
    void Open(const std::filesystem::path& chosen);

    QSize sizeHint() const override;

signals:
    void Shown_Anew(); // what the survey has told is on the screen

private:
    void Lay_Out();
    QLayout* Sources();
    QLayout* Running();
    QLayout* Ways_To_Run();
    QWidget* Table_And_Picture();
    QLayout* Picture_Choices();
    QLayout* Foot();

    void Take(std::shared_ptr<const Plan_View> view);
    void Show_Place();
    void Show_Rows();
    void Show_Status();
    void Fill_Choices();
    void Show_Picture();
    void Size_Columns();
    void Enable();
    bool Has_Plan() const { return !Place.Plan.empty(); }
    Plan_Order Order() const;
    std::optional<Slurm_Order> Cluster() const; // nothing: on this machine

    void Open_File();
    void Paste();
    void Sweep();
    void Keep_And_Open(const std::string& text, const QString& name);
    void Choose_Directory();
    void Run();
    void Stop();
    void Copy();
    void Save();
    void Print();
    void Command();

    Program_State Program;
    Ask_Function Ask;
    Plan_Place Place;
    int Request = 0; // that the survey is to answer
    Plan_Model Table_Model;
    std::shared_ptr<const Plan_View> Latest;

    Path_Label *Plan_Path = nullptr, *Directory_Path = nullptr;
    QTableView* Table = nullptr;
    QComboBox *Keep = nullptr, *States = nullptr, *Kind = nullptr, *Substances = nullptr, *Labels = nullptr;
    QSpinBox *Jobs = nullptr, *Limit = nullptr, *Part = nullptr, *Parts = nullptr, *Tasks = nullptr, *Minutes = nullptr;
    QCheckBox* By_Slurm = nullptr;
    QPushButton *Run_Button = nullptr, *Stop_Button = nullptr, *Directory_Button = nullptr;
    QProgressBar* Bar = nullptr;
    QLabel *Status = nullptr, *Note = nullptr;
    Picture_Panel* Picture = nullptr;
    std::unique_ptr<Plan_Survey> Survey; // the last one made, the first one gone: its thread tells this window
};

} // namespace orvel
