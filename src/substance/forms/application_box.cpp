#include "substance/forms/application_box.h"

#include "substance/application_state.h"
#include "substance/application_year.h"
#include "substance/forms/andere_standorte.h"
#include "substance/forms/form_appgrid.h"
#include "substance/forms/plant_app.h"
#include "ui/date_hint.h"
#include "ui/forms/leave_guard.h"
#include "ui/forms/number_edit.h"
#include "ui/forms/widgets.h"
#include "ui/number_field.h"

#include <algorithm>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QRadioButton>

namespace orvel {

Application_Method Application_Box::Method() const
{
    std::size_t chosen = 0;
    while (!App_Flag.at(chosen)->isChecked())
        ++chosen;
    return static_cast<Application_Method>(chosen + 1);
}

void Application_Box::Show_State(const State& state)
{
    App_Flag.at(static_cast<std::size_t>(state.Method) - 1)->setChecked(true);
    Locations = state.Locations;
    Chosen_Mode = state.Chosen_Mode;
    Show_Locations();
    Show_View();
    emit Method_Chosen(state.Method);
}

void Application_Box::Show_Locations()
{
    Standort->clear();
    for (const auto& name : Locations.Standort)
        Standort->addItem(Shown(name));
    Standort_EFSA->clear();
    for (const auto& name : Locations.Standort_EFSA)
        Standort_EFSA->addItem(Shown(name));
    Standort->setVisible(!Locations.EFSA_Visible);
    Standort_EFSA->setVisible(Locations.EFSA_Visible);
}

void Application_Box::Show_View()
{
    auto view = View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Method());
    if (Chosen_Mode >= 0)
        Show_Chosen_Pattern(view, Chosen_Mode);
    Command1->setVisible(Method() != Application_Method::Soil);
    Applikationsverfahren->setCurrentIndex(view.Relative ? 1 : 0);
    for (auto* list : {Standort, Standort_EFSA}) {
        list->setCurrentIndex(The_Session.Editor.App_Current_Location);
        list->setEnabled(!view.Relative);
        list->setToolTip(view.Relative ? "Relative dates hold for all locations." : "");
    }
    App_Modus->setCurrentIndex(view.App_Modus);
    Hinweis->setVisible(view.Hinweis_Visible);
    Text_naps->setText(Shown(view.Text_naps));
    Text_naps->setEnabled(view.Text_naps_Enabled);
    for (auto* widget : Year_Widgets)
        widget->setVisible(view.Year_Visible);
    label_Anzahl->setText(Shown(view.Anzahl_Im_Jahr));
    Applikationen_pro_Jahr->setText(Shown(view.Applikationen_pro_Jahr));
    absolute_Applikationen->setVisible(!view.Relative);
    relative_Applikationen->setVisible(view.Relative);
    Show_Absolute(view);
    Show_Relative(view);
}

void Application_Box::Show_Absolute(const Application_View& view)
{
    for (QWidget* field :
         {static_cast<QWidget*>(App_Tag), static_cast<QWidget*>(App_Monat), static_cast<QWidget*>(Rate)})
        Absolute_Rows->setRowVisible(field, view.Date_And_Rate_Visible);
    Absolute_Rows->setRowVisible(Tiefe, view.Tiefe_Visible);
    Absolute_Rows->setRowVisible(Interception, view.Interception_Visible);
    Label_Tag->setText(Shown(view.Label_Tag));
    Label_Monat->setText(Shown(view.Label_Monat));
    App_Tag->setCurrentIndex(view.App_Tag);
    App_Monat->setCurrentIndex(view.App_Monat);
    Rate->setText(Shown(view.Rate));
    Tiefe->setText(Shown(view.Tiefe));
    Interception->setText(Shown(view.Interception));
    Show_Date_Hint();
}

void Application_Box::Show_Date_Hint()
{
    const auto hint = Date_Hint(App_Tag->currentIndex() + 1, App_Monat->currentIndex() + 1);
    Datum_Hinweis->setText(hint ? Shown(*hint) : QString());
    Absolute_Rows->setRowVisible(Datum_Hinweis, hint.has_value());
}

void Application_Box::Show_Relative(const Application_View& view)
{
    Relative_Rows->setRowVisible(relative_Tiefe, view.Relative_Tiefe_Visible);
    Relative_Rows->setRowVisible(relative_Interception, view.Relative_Interception_Visible);
    label_Tag_rel->setText(Shown(view.Label_Tag_Rel));
    Fill_Days(view.Tage);
    Bezugspunkt->setCurrentIndex(view.Bezugspunkt);
    Bezugspunkt->setEnabled(view.Bezugspunkt_Enabled);
    relative_Rate->setText(Shown(view.Relative_Rate));
    relative_Tiefe->setText(Shown(view.Relative_Tiefe));
    relative_Interception->setText(Shown(view.Relative_Interception));
}

void Application_Box::Fill_Days(const Day_List& days)
{
    if (Tage->count() == 0 || Tage->itemData(0).toInt() != days.First) {
        Tage->clear();
        for (int day = days.First; day <= days.Last; ++day)
            Tage->addItem(QString::number(day), day);
    }
    Tage->setCurrentIndex(days.Index);
}

// Accepts only a number that was typed.
bool Application_Box::Leave()
{
    if (!Text_naps->isModified())
        return true;
    Text_naps->setModified(false);
    const auto refusal = Leave_Number_Of_Applications(The_Session, Text_naps->Typed());
    if (!refusal)
        return true;
    Guard->Refuse(The_Session.Ask, *refusal);
    Text_naps->setModified(true); // leaving it again is refused again
    return false;
}

// Before the boxes show other applications: what is not in view could not be refused any more.
bool Application_Box::Amounts_Are_Held()
{
    for (const auto* box : {Rate, Tiefe, Interception, relative_Rate, relative_Tiefe, relative_Interception}) {
        const auto refusal = Check_Size(box->Typed(), Bytes_Of(box->objectName()));
        if (refusal && box->isVisible()) {
            Guard->Refuse(The_Session.Ask, *refusal);
            return false;
        }
    }
    return true;
}

void Application_Box::Choose_Dates(int index)
{
    if (!Amounts_Are_Held())
        return Show_View();
    Choose_Date_Kind(The_Session, static_cast<Date_Kind>(index));
    Chosen_Mode = -1;
    Show_View();
}

void Application_Box::Choose_Place(int index)
{
    if (!Amounts_Are_Held())
        return Show_View();
    Choose_Location(The_Session, index);
    Chosen_Mode = -1;
    Show_View();
}

void Application_Box::Choose_Mode(int index)
{
    if (!Amounts_Are_Held())
        return Show_View();
    const auto refusal = Choose_Pattern(The_Session, index);
    Chosen_Mode = refusal ? -1 : index;
    if (refusal)
        Show_Refusal(The_Session.Ask, *window(), *refusal);
    Show_View();
}

void Application_Box::Change_Year(void (*change)(Pesticide_Edit))
{
    if (!Amounts_Are_Held())
        return;
    change(The_Session);
    Show_View();
}

void Application_Box::Edit_Locations(bool efsa)
{
    const auto& list = efsa ? Locations.Standort_EFSA : Locations.Standort;
    andere_Standorte form(efsa ? Location_Kind::Soil : Location_Kind::Leaching, list, this);
    if (form.exec() != QDialog::Accepted)
        return;
    const int entry = Take_Chosen_Locations(The_Session, Locations, efsa, form.Loc_Available(), form.Loc_Selected());
    Show_Locations();
    Tell_Left_Out(form.Loc_Selected());
    if (Date_Kind_Of(The_Session.Pesticide) == Date_Kind::Absolute)
        Choose_Location(The_Session, entry);
    Chosen_Mode = -1;
    Show_View();
}

// A document holds nine locations; a list with names of its own may not have room for all.
void Application_Box::Tell_Left_Out(const std::vector<std::string>& selected)
{
    std::string left_out;
    for (const auto& name : selected) {
        if (std::ranges::find(Locations.Visible(), name) == Locations.Visible().end())
            left_out += "\r\n" + name;
    }
    if (!left_out.empty())
        The_Session.Ask({"Data check", "No more than " + std::to_string(Last_Location) +
                                           " locations are possible. Not added:" + left_out});
}

void Application_Box::Edit_Plant_Surface()
{
    Plant_App(The_Session, Method(), this).exec();
}

void Application_Box::Edit_Manually()
{
    if (!Leave() || !Amounts_Are_Held())
        return;
    if (const auto refusal = Check_Manual_Entry(Text_naps->Typed()))
        return Show_Refusal(The_Session.Ask, *window(), *refusal);
    if (Form_appgrid(The_Session, Text_naps->Typed(), Method(), this).exec() != QDialog::Accepted)
        return;
    Chosen_Mode = -1;
    Show_View();
}

} // namespace orvel
