#pragma once

#include "evaluation/forms/overview_model.h"
#include "evaluation/overview_survey.h"
#include "report/overview_chart.h"
#include "report/overview_settings.h"

#include <functional>
#include <QDialog>

class QAction;
class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QMenu;
class QTreeView;

namespace orvel {

constexpr std::string_view Overview_Title = "Overview";

class Picture_Panel;

// An action of a higher room on what is marked; none of it is known here.
struct Overview_Action {
    QString Name, Text; // objectName, caption
    std::function<void(const Mode& mode, const Overview_Row& row, const Overview_Run* run, QWidget* parent)> Do;
};

// The whole assessment at a glance. It follows the runs, stays open beside the other windows, and has a session of its
// own: what it opens changes no document that is under edit elsewhere.
class Overview_Window : public QDialog {
    Q_OBJECT

public:
    Overview_Window(const Session& session, Mode_Kind mode, const std::vector<Overview_Action>& further = {},
                    QWidget* parent = nullptr);
    ~Overview_Window() override;

    void Show_Mode(Mode_Kind mode);
    long long Looks() const { return Survey->Looks(); }

    QSize sizeHint() const override;

signals:
    void Shown_Anew(); // what the survey has told is on the screen

private:
    void Lay_Out();
    QLayout* Choices();
    QLayout* Soil_Choices();
    QWidget* Table_And_Pictures();
    QWidget* Comparison_Banner();
    QLayout* Foot();
    void Add_Actions(const std::vector<Overview_Action>& further);
    QAction* Add_Action(const QString& name, const QString& text, std::function<void()> handler);

    void Begin();
    void Take(std::shared_ptr<const Survey_State> state);
    void Show_Rows();
    void Fill_Crops();
    void Fill_Locations();
    void Remember_Rows();
    void Restore_Rows();
    int Wanted_Width(int column) const;
    void Size_Columns();
    void Widen_Columns();
    void Widen_To_Table();
    void Show_Key();
    void Show_Pictures();
    void Show_Soil_Pictures(const Overview_Row& row, std::size_t column);
    void Enable_Actions();
    void Enable_Missing();
    Survey_Choice Choice() const;
    Row_Filter Filter() const;
    const Mode& The_Mode() const;
    std::vector<Location_Values> Values_Of_Row(const Overview_Row& row) const;
    const Overview_Run* Marked_Run() const; // nullptr: none, or only in what is compared
    Simulation Marked_Simulation() const;

    void Choose_Again();
    void Show_Choices();
    void Keep_Settings();
    void Take_Bounds();
    void Edit_Locations();

    void Leachate();
    void Daily();
    void Balance();
    void Echo();
    void Edit_Pesticide();
    void Edit_Scenario();
    void What_Changed();
    void Run_Again();
    void Delete();
    void Run_Missing();
    void Run_Failed();
    void Start(bool any);
    void Report();
    void Copy();
    void Save();
    void Print();
    void Command();
    void Compare();
    void Compare_To(const std::filesystem::path& other);
    void End_Comparison();
    void Show_Comparison();

    std::unique_ptr<Session> Owned;
    Session& The_Session;
    Overview_Settings Settings;
    Overview_Model Table_Model;
    using Row_Name = std::array<std::string, 3>; // pesticide, crop and substance
    std::set<Row_Name> Open_Rows;                // what is kept of the rows while they are put into another order
    std::optional<Row_Name> Current_Row;
    int Current_Column = 0;
    bool Is_As_Opened = true; // all of the table has not been told yet
    std::shared_ptr<const Survey_State> Latest;
    std::shared_ptr<const Compared_Assessment> Compared; // nullptr: nothing
    std::filesystem::path Compared_Path;

    QTreeView* Table = nullptr;
    QComboBox *Modus = nullptr, *Crops = nullptr, *States = nullptr, *Locations = nullptr, *Depth = nullptr,
              *Average = nullptr, *Values = nullptr;
    QLineEdit *Find = nullptr, *Classes = nullptr;
    QCheckBox* Above_Limit = nullptr;
    QLabel *Quantity = nullptr, *Key = nullptr, *Status = nullptr, *Comparison = nullptr;
    QWidget *Soil_Box = nullptr, *Class_Box = nullptr, *Comparison_Box = nullptr;
    Picture_Panel *Picture = nullptr, *Ranks = nullptr;
    QMenu* Menu = nullptr;
    QAction *A_Leachate = nullptr, *A_Daily = nullptr, *A_Balance = nullptr, *A_Echo = nullptr, *A_Pesticide = nullptr,
            *A_Scenario = nullptr, *A_Changed = nullptr, *A_Again = nullptr, *A_Delete = nullptr, *A_Missing = nullptr,
            *A_Failed = nullptr, *A_Report = nullptr, *A_Compare = nullptr;
    std::unique_ptr<Overview_Survey> Survey; // the last one made, the first one gone: its thread tells this window
};

} // namespace orvel
