#pragma once

#include "substance/location_lists.h"

#include <memory>

namespace orvel {

// The application half of the substance form: its load, its location and kind of dates, and the copy for Cancel.

enum class Date_Kind { Absolute, Relative }; // the index of Applikationsverfahren

Date_Kind Date_Kind_Of(const Pesticide_Document& document);

// The form loads: finds the applications a year of all locations, and the pattern of the location under edit, the
// shared one of relative dates.
void Load_Applications(Pesticide_Edit edit);

// Another location of the visible list. The first application of the year shows.
void Choose_Location(Pesticide_Edit edit, int list_index);

// The form is activated for the first time: outside relative mode the location is cut down to the last of `entries` and
// chosen.
void Activate_Applications(Pesticide_Edit edit, int entries);

// Another kind of dates. Relative ones are no conversion of absolute ones: they take the pattern over, never the dates.
// Absolute ones begin at the user-specific location with one application a year.
void Choose_Date_Kind(Pesticide_Edit edit, Date_Kind kind);

// After the grid of single applications.
void Return_From_Grid(Pesticide_Edit edit);

// All that Cancel puts back, taken when the form loads.
struct Editor_Copy {
    std::unique_ptr<Pesticide_Document> Document;
    Per_Location<std::int16_t> App_Per_Year{};
    std::uint8_t App_Pattern = 0, App_Cycles = 0;
};
Editor_Copy Keep_Copy(const Pesticide_Document& document, const Editor_State& editor);

// Puts the copy back and clears PSM_Changed, also if a change made before the form was opened is not saved yet.
void Restore_Copy(Pesticide_Edit edit, const Editor_Copy& copy);

} // namespace orvel
