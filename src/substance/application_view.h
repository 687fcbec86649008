#pragma once

#include "substance/application_edit.h"

#include <string>
#include <string_view>

namespace orvel {

// The kind of application, as numbered in the file.
enum class Application_Method { Soil = 1, Linear = 2, Exponential = 3, Manually = 4 };

// What the application part of the substance form shows: the texts of the location and application under edit, and what
// is visible and enabled. The form applies all of it after every rule that changed something.
struct Application_View {
    bool Relative = false; // which of the two frames is shown; S_Anwendung belongs to the absolute one
    int App_Modus = 0;     // the pattern detected in the list
    bool Hinweis_Visible = true;
    std::string Text_naps;
    bool Text_naps_Enabled = true;

    std::string Applikationen_pro_Jahr; // "2 applications every year"
    std::string Anzahl_Im_Jahr;         // label_Anzahl_Applikationen_im_Jahr
    bool Year_Visible = false;          // that sentence, plus and minus, the previous and next buttons, their labels
    bool Date_And_Rate_Visible = false; // Rate, App_Tag, App_Monat
    bool Tiefe_Visible = false, Interception_Visible = false;
    bool Relative_Tiefe_Visible = false, Relative_Interception_Visible = false;
    bool Bezugspunkt_Enabled = true;
    std::string_view Depth_Caption; // above depth or interception, empty while neither is shown

    int App_Tag = -1, App_Monat = -1; // list indices, -1 for a day or month not in the list
    std::string Rate, Tiefe, Interception;
    Day_List Tage;
    int Bezugspunkt = -1; // list index
    std::string Relative_Rate, Relative_Tiefe, Relative_Interception;

    std::string Label_Tag, Label_Monat,
        Label_Tag_Rel; // "2nd application day:", "2nd application month:", "2nd application:"
};

Application_View View_Of_Applications(const Pesticide_Document& document, const Editor_State& editor,
                                      Application_Method method);

// After a choice in App_Modus the list keeps the choice, whatever pattern is detected: a user who chooses "Irregular"
// for a regular list sees the note Hinweis and may type the number of applications.
void Show_Chosen_Pattern(Application_View& view, int list_index);

// The text of Hinweis, in four lines.
extern const std::string_view Irregular_Note;

constexpr std::array<std::string_view, 4> Pattern_Names = {"Irregular", "Every Year", "Every other Year",
                                                           "Every 3rd Year"};
constexpr std::array<std::string_view, 2> Date_Kind_Names = {"absolute applications dates",
                                                             "relative applications dates"};

// English ordinal: "1st", "2nd", "3rd", "4th".
std::string Ordinal(int n);

} // namespace orvel
