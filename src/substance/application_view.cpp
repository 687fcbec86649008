#include "substance/application_view.h"

#include "substance/application_list.h"
#include "substance/application_pattern.h"
#include "substance/application_year.h"

#include <algorithm>

namespace orvel {

const std::string_view Irregular_Note = "As long as the selected \r\napplication mode is irregular, \r\nyou have to "
                                        "enter the \r\napplication data manually!";

namespace {

constexpr std::array<std::string_view, 4> Frequency = {"", "every year", "every other year", "every 3rd year"};
constexpr int Days_In_List = 31, Months_In_List = 12;

int List_Index(int value, int entries)
{
    return value >= 1 && value <= entries ? value - 1 : -1;
}

std::string Year_Sentence(int per_year, int pattern)
{
    return std::to_string(per_year) + (per_year <= 1 ? " application  " : " applications ") +
           std::string(Frequency[pattern]);
}

void Show_Application(Application_View& view, const Application& application)
{
    view.App_Tag = List_Index(application.App_Day, Days_In_List);
    view.App_Monat = List_Index(application.App_Month, Months_In_List);
    view.Rate = General_Text(application.App_Rate);
    view.Tiefe = General_Text(application.App_Depth);
    view.Interception = General_Text(application.App_Frpex);
}

void Show_Relative_Application(Application_View& view, const Relative_Application& application)
{
    view.Bezugspunkt = List_Index(application.Abs9_Month + 1, static_cast<int>(Crop_Event_Label.size()));
    view.Relative_Rate = General_Text(application.Abs9_Rate);
    view.Relative_Tiefe = General_Text(application.Abs9_Depth);
    view.Relative_Interception = General_Text(application.Abs9_Frpex);
}

void Show_Visibility(Application_View& view, Application_Method method, bool regular)
{
    view.Text_naps_Enabled = !regular;
    view.Year_Visible = view.Date_And_Rate_Visible = regular;
    view.Tiefe_Visible = regular && method == Application_Method::Soil;
    view.Interception_Visible = regular && method == Application_Method::Manually;
    view.Relative_Tiefe_Visible = method == Application_Method::Soil;
    view.Relative_Interception_Visible = method == Application_Method::Manually;
    if (method == Application_Method::Soil)
        view.Depth_Caption = "Application depth (cm)";
    if (method == Application_Method::Manually)
        view.Depth_Caption = "Crop interception (%)";
}

} // namespace

std::string Ordinal(int n)
{
    return std::to_string(n) + (n == 1 ? "st" : n == 2 ? "nd" : n == 3 ? "rd" : "th");
}

Application_View View_Of_Applications(const Pesticide_Document& document, const Editor_State& editor,
                                      Application_Method method)
{
    const int location = std::clamp<int>(editor.App_Current_Location, 0, Last_Location);
    const int pattern = editor.App_Pattern;
    const int per_year = Per_Year_Now(document, editor);
    const int current = std::clamp<int>(editor.App_Current, 1, Last_Application);

    Application_View view;
    view.Relative = document.App_Mode == App_Mode_Relative;
    view.App_Modus = pattern;
    view.Hinweis_Visible = pattern == 0;
    view.Text_naps = document.App_Count[location].Text();
    view.Anzahl_Im_Jahr = std::to_string(per_year);
    view.Bezugspunkt_Enabled = per_year <= 1;
    if (pattern > 0)
        view.Applikationen_pro_Jahr = Year_Sentence(per_year, pattern);
    Show_Visibility(view, method, pattern > 0);
    Show_Application(view, document.Applications[location][current]);
    Show_Relative_Application(view, document.Relative[current]);
    view.Tage = Relative_Days(document, editor);
    view.Label_Tag = Ordinal(current) + " application day:";
    view.Label_Monat = Ordinal(current) + " application month:";
    view.Label_Tag_Rel = Ordinal(current) + " application:";
    return view;
}

void Show_Chosen_Pattern(Application_View& view, int list_index)
{
    view.App_Modus = list_index;
    view.Hinweis_Visible = list_index == 0;
    view.Text_naps_Enabled = view.Text_naps_Enabled || list_index == 0;
}

} // namespace orvel
