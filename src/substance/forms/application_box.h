#pragma once

#include "substance/application_view.h"
#include "substance/location_lists.h"

#include <array>
#include <QGroupBox>
#include <vector>

class QComboBox;
class QFormLayout;
class QLabel;
class QPushButton;
class QRadioButton;

namespace orvel {

class Leave_Guard;
class Number_Edit;

// The applications of the active substance: their kind, their locations, and the year that is repeated over the
// simulation. Every edit is stored immediately.
class Application_Box : public QGroupBox {
    Q_OBJECT

public:
    // The method comes from the entry and is stored only on "Done".
    Application_Box(Session& session, Application_Method method, QWidget* parent = nullptr);

    Application_Method Method() const;
    const Location_Lists& Lists() const { return Locations; }
    void Show_View();

    // What is shown of the session's document, and what is not stored in it before Done.
    struct State {
        Application_Method Method = Application_Method::Soil;
        Location_Lists Locations;
        int Chosen_Mode = -1;
        bool operator==(const State& other) const { return Method == other.Method && Locations == other.Locations; }
    };
    State Present() const { return {Method(), Locations, Chosen_Mode}; }
    void Show_State(const State& state);

    bool Leave(); // accepts a number of applications still being typed; false if it was refused

signals:
    void Method_Chosen(Application_Method method);

private:
    QWidget* Kinds(Application_Method method);
    QWidget* Location_Row();
    QWidget* Location_Buttons();
    QWidget* Year_Row();
    QGroupBox* Absolute();
    QGroupBox* Relative();
    QComboBox* Combo(const QString& name, const QString& purpose);
    Number_Edit* Number(QFormLayout& rows, const QString& caption, const QString& name,
                        void (*edit)(Pesticide_Edit, std::string_view));
    void Show_Locations();
    void Show_Absolute(const Application_View& view);
    void Show_Relative(const Application_View& view);
    void Show_Date_Hint();
    void Fill_Days(const Day_List& days);

    bool Amounts_Are_Held(); // false: one that is shown is too large a number, and was refused
    void Choose_Dates(int index);
    void Choose_Place(int index);
    void Choose_Mode(int index);
    void Change_Year(void (*change)(Pesticide_Edit));
    void Edit_Day_Behind(int index);
    void Edit_Locations(bool efsa);
    void Tell_Left_Out(const std::vector<std::string>& selected);
    void Edit_Plant_Surface();
    void Edit_Manually();

    Session& The_Session;
    Location_Lists Locations;
    Leave_Guard* Guard = nullptr;
    int Chosen_Mode = -1; // the choice in App_Modus while it overrides the pattern detected
    std::array<QRadioButton*, 4> App_Flag{};
    QPushButton *Command1 = nullptr, *S_Anwendung = nullptr;
    QComboBox *Applikationsverfahren = nullptr, *Standort = nullptr, *Standort_EFSA = nullptr, *App_Modus = nullptr;
    QComboBox *App_Tag = nullptr, *App_Monat = nullptr, *Tage = nullptr, *Bezugspunkt = nullptr;
    Number_Edit *Text_naps = nullptr, *Rate = nullptr, *Tiefe = nullptr, *Interception = nullptr;
    Number_Edit *relative_Rate = nullptr, *relative_Tiefe = nullptr, *relative_Interception = nullptr;
    QLabel *Hinweis = nullptr, *Applikationen_pro_Jahr = nullptr, *label_Anzahl = nullptr, *Label_Tag = nullptr,
           *Label_Monat = nullptr, *label_Tag_rel = nullptr, *Datum_Hinweis = nullptr;
    std::vector<QWidget*> Year_Widgets;
    QGroupBox *absolute_Applikationen = nullptr, *relative_Applikationen = nullptr;
    QFormLayout *Absolute_Rows = nullptr, *Relative_Rows = nullptr;
};

} // namespace orvel
