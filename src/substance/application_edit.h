#pragma once

#include "core/session.h"

#include <optional>
#include <string_view>

namespace orvel {

// A value typed or chosen for the application shown is stored at the same position in every year of the location under
// edit; in an irregular list only for that application. The leading number of a text counts, otherwise 0.

void Edit_Day(Pesticide_Edit edit, int list_index);   // App_Tag, from 0
void Edit_Month(Pesticide_Edit edit, int list_index); // App_Monat, from 0
void Edit_Rate(Pesticide_Edit edit, std::string_view typed);
void Edit_Depth(Pesticide_Edit edit, std::string_view typed);
void Edit_Interception(Pesticide_Edit edit, std::string_view typed);
void Edit_Relative_Rate(Pesticide_Edit edit, std::string_view typed);
void Edit_Relative_Depth(Pesticide_Edit edit, std::string_view typed);
void Edit_Relative_Interception(Pesticide_Edit edit, std::string_view typed);

// The number of applications per year is always that of location 1 here, whichever location is under edit and with both
// kinds of dates.
void Edit_Reference_Point(Pesticide_Edit edit, int list_index);

// The days that Tage offers for the application shown: from the day after the previous application, or -365 for the
// first of the year, up to 365.
struct Day_List {
    int First = -365, Last = 365;
    int Index = -1; // of the application's day, -1 if it is not offered
    bool operator==(const Day_List&) const = default;
};
Day_List Relative_Days(const Pesticide_Document& document, const Editor_State& editor);

// Stores the day chosen in Tage and shifts later applications of the year as needed to keep the days ascending.
void Edit_Relative_Day(Pesticide_Edit edit, int list_index);

// On leaving Text_naps: a number above 0 becomes the count of the location under edit. Refused if it exceeds the number
// of slots.
std::optional<Refusal> Leave_Number_Of_Applications(Pesticide_Edit edit, std::string_view typed);

// Before the grid of single applications opens: refuses a number of applications of 0.
std::optional<Refusal> Check_Manual_Entry(std::string_view text_naps);

} // namespace orvel
