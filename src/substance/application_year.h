#pragma once

#include "core/session.h"

#include <optional>

namespace orvel {

// A regular pattern is a first year of at most 20 applications, the master copy, that is repeated over the application
// years of the pattern (26, 23 or 22). Application p of year k, both from 1, stands at (k - 1) x App_Per_Year + p. All
// rules work on the location under edit and leave pattern and cycles as the list of applications then shows them.

constexpr int Most_Per_Year = 20;

// Finds the pattern of the location under edit, and its application years if it is regular.
void Find_Pattern(Pesticide_Edit edit);

// Applications a year of the location under edit: its count over the application years, rounded; App_Per_Year of an
// irregular one.
int Per_Year_Now(const Pesticide_Document& document, const Editor_State& editor);

enum class Dates { Absolute, Relative, Both };

// Repeats the first App_Per_Year applications of a location over all years of a pattern (1 to 3) and sets its count.
// Dates, rate, depth, interception and year are copied, hour and fraction poorly exposed are not. More than fit into
// the slots are cut.
void Expand_Year(Pesticide_Edit edit, int location, int pattern, Dates dates);

// A choice in App_Modus, 1 "Every Year" to 3 "Every 3rd Year" (0 changes nothing): one application on 1 January if
// there is none, else the first year as far as it is known, at most 10 where it is not, repeated in both kinds of
// dates. Refused where the slots do not suffice.
std::optional<Refusal> Choose_Pattern(Pesticide_Edit edit, int list_index);

// Plus: an application more in the year, a copy of the last one a day later; a 28th or later day goes on to the 1st of
// the next month, which may be a month 13. Minus: one less, down to 1. Both change the dates of the present kind only,
// and do and say nothing at their limits.
void Add_In_Year(Pesticide_Edit edit);
void Remove_In_Year(Pesticide_Edit edit);

// Walks to the next and previous application of the year; stops at its ends.
void Next_In_Year(Pesticide_Edit edit);
void Previous_In_Year(Pesticide_Edit edit);

} // namespace orvel
