// Layout of the application controls.
#include "core/session.h"
#include "substance/application_state.h"
#include "substance/application_year.h"
#include "substance/forms/application_box.h"
#include "ui/forms/leave_guard.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/widgets.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QToolButton>

namespace orvel {

namespace {

constexpr int Days_In_List = 31;

constexpr std::array<const char*, 4> Kind_Names = {"Soil Application", "Plant Application - Linear",
                                                   "Plant Application - Exponential", "Plant Application - Manually"};

QWidget* In_A_Row(std::initializer_list<QWidget*> widgets)
{
    auto* row = new QWidget;
    auto* places = new QHBoxLayout(row);
    places->setContentsMargins(0, 0, 0, 0);
    for (auto* widget : widgets)
        places->addWidget(widget);
    places->addStretch(1);
    return row;
}

} // namespace

Application_Box::Application_Box(Session& session, Application_Method method, QWidget* parent)
    : QGroupBox("Application", parent),
      The_Session(session),
      Locations(Load_Location_Lists(session))
{
    auto* rows = new QFormLayout(this);
    rows->addRow(Kinds(method));
    rows->addRow("Application dates",
                 Applikationsverfahren = Combo("Applikationsverfahren", "Kind of application dates"));
    rows->addRow("Location", Location_Row());
    rows->addRow(Location_Buttons());
    rows->addRow("Application mode", App_Modus = Combo("App_Modus", "Application mode"));
    for (const auto name : Date_Kind_Names)
        Applikationsverfahren->addItem(Shown(name));
    for (const auto name : Pattern_Names)
        App_Modus->addItem(Shown(name));
    rows->addRow("Number of applications:", Text_naps = Named(new Number_Edit, "Text_naps"));
    rows->addRow(Year_Row());
    rows->addRow(Hinweis = Named(new QLabel(Shown(Irregular_Note).remove('\r')), "Hinweis"));
    rows->addRow(Absolute());
    rows->addRow(Relative());
    connect(Applikationsverfahren, &QComboBox::activated, this, &Application_Box::Choose_Dates);
    connect(App_Modus, &QComboBox::activated, this, &Application_Box::Choose_Mode);
    Guard = new Leave_Guard(*this, [this](QWidget&) { Leave(); });
    Guard->Watch(*Text_naps);
    Guard->Let_Pass({"S_Anwendung", "Command_ok1", "Command_cancel"});

    Load_Applications(The_Session);
    Activate_Applications(The_Session, static_cast<int>(Locations.Visible().size()));
    Show_Locations();
    Show_View();
}

QComboBox* Application_Box::Combo(const QString& name, const QString& purpose)
{
    auto* combo = Named(new QComboBox, name);
    combo->setAccessibleName(purpose);
    combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return combo;
}

QWidget* Application_Box::Kinds(Application_Method method)
{
    auto* kinds = new QWidget;
    auto* grid = new QGridLayout(kinds);
    grid->setContentsMargins(0, 0, 0, 0);
    for (std::size_t kind = 0; kind < Kind_Names.size(); ++kind) {
        App_Flag[kind] = Named(new QRadioButton(Kind_Names[kind]), QString("App_Flag%1").arg(kind + 1));
        App_Flag[kind]->setChecked(static_cast<Application_Method>(kind + 1) == method);
        grid->addWidget(App_Flag[kind], static_cast<int>(kind % 2), static_cast<int>(kind / 2));
        connect(App_Flag[kind], &QRadioButton::clicked, this, [this] {
            Show_View();
            emit Method_Chosen(Method());
        });
    }
    Command1 = Push_Button("Command1", "Pesticide Fate on the C&rop", this, &Application_Box::Edit_Plant_Surface);
    QSizePolicy keeps_its_place = Command1->sizePolicy();
    keeps_its_place.setRetainSizeWhenHidden(true);
    Command1->setSizePolicy(keeps_its_place);
    grid->addWidget(Command1, 2, 0, 1, 2, Qt::AlignLeft);
    return kinds;
}

QWidget* Application_Box::Location_Row()
{
    Standort = Combo("Standort", "Location");
    Standort_EFSA = Combo("Standort_EFSA", "Soil zone");
    auto* lists = new QWidget;
    auto* row = new QHBoxLayout(lists);
    row->setContentsMargins(0, 0, 0, 0);
    for (auto* list : {Standort, Standort_EFSA}) {
        row->addWidget(list);
        connect(list, &QComboBox::activated, this, &Application_Box::Choose_Place);
    }
    return lists;
}

QWidget* Application_Box::Location_Buttons()
{
    auto* leaching = Push_Button("neue_Standort", "Edit Leaching Locations", this, [this] { Edit_Locations(false); });
    auto* soil = Push_Button("Command5", "Edit Soil Locations", this, [this] { Edit_Locations(true); });
    return In_A_Row({leaching, soil});
}

// Plus and minus, the sentence that describes the year, and the buttons through its applications.
QWidget* Application_Box::Year_Row()
{
    const auto small_button = [this](const QString& name, const QString& sign, const QString& purpose,
                                     void (*change)(Pesticide_Edit)) {
        auto* button = Named(new QToolButton, name);
        button->setText(sign);
        button->setAccessibleName(purpose);
        button->setToolTip(purpose);
        connect(button, &QToolButton::clicked, this, [this, change] { Change_Year(change); });
        Year_Widgets.push_back(button);
        return button;
    };
    label_Anzahl = Named(new QLabel, "label_Anzahl_Applikationen_im_Jahr");
    auto* more = small_button("mehr_Applikationen_im_Jahr", "+", "One application more in the year", Add_In_Year);
    auto* fewer = small_button("weniger_Applikationen_im_Jahr", QString::fromUtf8("−"),
                               "One application less in the year", Remove_In_Year);
    Applikationen_pro_Jahr = Named(new QLabel, "Applikationen_pro_Jahr");
    auto* previous =
        small_button("vorhergehende_Applikation_im_Jahr", "<", "Previous application of the year", Previous_In_Year);
    auto* next = small_button("naechste_Applikation_im_Jahr", ">", "Next application of the year", Next_In_Year);
    auto* walk = Named(new QLabel("previous / next application"), "previous_next");
    auto* in_year = new QLabel("Applications per year");
    Year_Widgets.insert(Year_Widgets.end(), {label_Anzahl, Applikationen_pro_Jahr, walk, in_year});

    auto* all = new QWidget;
    auto* column = new QVBoxLayout(all);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(In_A_Row({in_year, fewer, label_Anzahl, more, Applikationen_pro_Jahr}));
    column->addWidget(In_A_Row({previous, next, walk}));
    return all;
}

Number_Edit* Application_Box::Number(QFormLayout& rows, const QString& caption, const QString& name,
                                     void (*edit)(Pesticide_Edit, std::string_view))
{
    auto* field = Named(new Number_Edit, name);
    rows.addRow(caption, field);
    connect(field, &QLineEdit::textEdited, this, [this, field, edit] { edit(The_Session, field->Typed()); });
    return field;
}

QGroupBox* Application_Box::Absolute()
{
    absolute_Applikationen = Named(new QGroupBox("absolute application dates"), "absolute_Applikationen");
    auto& rows = *(Absolute_Rows = new QFormLayout(absolute_Applikationen));
    App_Tag = Combo("App_Tag", "Application day");
    for (int day = 1; day <= Days_In_List; ++day)
        App_Tag->addItem(QString::number(day));
    App_Monat = Combo("App_Monat", "Application month");
    for (std::size_t month = 1; month < Month_Name.size(); ++month)
        App_Monat->addItem(Shown(Month_Name[month]));
    rows.addRow(Label_Tag = Named(new QLabel, "Label_Tag"), App_Tag);
    rows.addRow(Label_Monat = Named(new QLabel, "Label_Monat"), App_Monat);
    Label_Tag->setBuddy(App_Tag);
    Label_Monat->setBuddy(App_Monat);
    rows.addRow(Datum_Hinweis = Named(new QLabel, "Datum_Hinweis"));
    connect(App_Tag, &QComboBox::activated, this, [this](int index) { Edit_Day(The_Session, index); });
    connect(App_Monat, &QComboBox::activated, this, [this](int index) { Edit_Month(The_Session, index); });
    for (auto* part : {App_Tag, App_Monat})
        connect(part, &QComboBox::currentIndexChanged, this, &Application_Box::Show_Date_Hint);
    Rate = Number(rows, "Application rate (kg/ha)", "Rate", Edit_Rate);
    Tiefe = Number(rows, "Application depth (cm)", "Tiefe", Edit_Depth);
    Interception = Number(rows, "Crop interception (%)", "Interception", Edit_Interception);
    S_Anwendung = Push_Button("S_Anwendung", "&Input Application Data Manually", this, &Application_Box::Edit_Manually);
    rows.addRow(S_Anwendung);
    return absolute_Applikationen;
}

QGroupBox* Application_Box::Relative()
{
    relative_Applikationen = Named(new QGroupBox("relative application dates"), "relative_Applikationen");
    auto& rows = *(Relative_Rows = new QFormLayout(relative_Applikationen));
    rows.addRow(label_Tag_rel = Named(new QLabel, "label_Tag_rel"),
                Tage = Combo("Tage", "Days after the reference point"));
    label_Tag_rel->setBuddy(Tage);
    rows.addRow("days after", Bezugspunkt = Combo("Bezugspunkt", "Reference point"));
    for (const auto name : Crop_Event_Label)
        Bezugspunkt->addItem(Shown(name));
    connect(Tage, &QComboBox::activated, this, [this](int index) {
        Edit_Relative_Day(The_Session, index);
        Show_View();
    });
    connect(Bezugspunkt, &QComboBox::activated, this, [this](int index) { Edit_Reference_Point(The_Session, index); });
    relative_Rate = Number(rows, "Application rate (kg/ha)", "relative_Rate", Edit_Relative_Rate);
    relative_Tiefe = Number(rows, "Application depth (cm)", "relative_Tiefe", Edit_Relative_Depth);
    relative_Interception = Number(rows, "Crop interception (%)", "relative_Interception", Edit_Relative_Interception);
    return relative_Applikationen;
}

} // namespace orvel
