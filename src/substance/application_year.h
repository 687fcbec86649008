#pragma once

#include "core/session.h"

#include <optional>

namespace orvel {

// A regular pattern is a master copy of at most 20 applications, the first year, repeated over the application years of
// the pattern (26, 23 or 22). Application p of year k, both 1-based, is at (k - 1) x App_Per_Year + p. All rules work
// on the location under edit and leave pattern and cycles consistent with the resulting list.

constexpr int Most_Per_Year = 20;

// Determines the pattern of the location under edit, and its application years if it is regular.
void Find_Pattern(Pesticide_Edit edit);

// Applications per year of the location under edit: its count divided by the application years, rounded; App_Per_Year
// for an irregular one.
int Per_Year_Now(const Pesticide_Document& document, const Editor_State& editor);

enum class Dates { Absolute, Relative, Both };

// Repeats the first App_Per_Year applications of a location over all years of a pattern (1 to 3) and sets its count.
// Copies dates, rate, depth, interception and year, but not the hour and the poorly exposed fraction. Applications
// beyond the slots are dropped.
void Expand_Year(Pesticide_Edit edit, int location, int pattern, Dates dates);

// A choice in App_Modus, 1 "Every Year" to 3 "Every 3rd Year" (0 changes nothing): one application on 1 January if
// there is none, else the first year as far as it is known, or at most 10 applications if it is not, repeated in both
// kinds of dates. Refused if the slots do not suffice.
std::optional<Refusal> Choose_Pattern(Pesticide_Edit edit, int list_index);

// Plus: adds an application to the year, a copy of the last one a day later; from day 28 on it moves to the 1st of the
// next month, which may be month 13. Minus: removes one, down to 1. Both change only the current kind of dates; at the
// limits neither does anything.
void Add_In_Year(Pesticide_Edit edit);
void Remove_In_Year(Pesticide_Edit edit);

// Moves to the next or previous application of the year; stops at the ends.
void Next_In_Year(Pesticide_Edit edit);
void Previous_In_Year(Pesticide_Edit edit);

} // namespace orvel
