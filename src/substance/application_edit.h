#pragma once

#include "core/session.h"

#include <optional>
#include <string_view>

namespace orvel {

// What is typed or chosen for the application shown goes to the same position of all years of the location under edit;
// in an irregular list to that application alone. Numbers are read as they begin, a text that is none is 0.

void Edit_Day(Pesticide_Edit edit, int list_index);   // App_Tag, from 0
void Edit_Month(Pesticide_Edit edit, int list_index); // App_Monat, from 0
void Edit_Rate(Pesticide_Edit edit, std::string_view typed);
void Edit_Depth(Pesticide_Edit edit, std::string_view typed);
void Edit_Interception(Pesticide_Edit edit, std::string_view typed);
void Edit_Relative_Rate(Pesticide_Edit edit, std::string_view typed);
void Edit_Relative_Depth(Pesticide_Edit edit, std::string_view typed);
void Edit_Relative_Interception(Pesticide_Edit edit, std::string_view typed);

// The applications a year are here those of location 1, whatever location is under edit and in both kinds of dates.
void Edit_Reference_Point(Pesticide_Edit edit, int list_index);

// The days that Tage offers for the application shown: from the day behind the one before it, -365 for the first of the
// year, to 365.
struct Day_List {
    int First = -365, Last = 365;
    int Index = -1; // of the day of the application, -1 if it is not offered
    bool operator==(const Day_List&) const = default;
};
Day_List Relative_Days(const Pesticide_Document& document, const Editor_State& editor);

// A day chosen in Tage. It pushes the applications behind it in the year so far that the days rise.
void Edit_Relative_Day(Pesticide_Edit edit, int list_index);

// On leaving Text_naps: a number above 0 becomes the count of the location under edit. Refused above the slots there
// are.
std::optional<Refusal> Leave_Number_Of_Applications(Pesticide_Edit edit, std::string_view typed);

// Before the grid of single applications opens.
std::optional<Refusal> Check_Manual_Entry(std::string_view text_naps);

} // namespace orvel
