#pragma once

#include "substance/location_lists.h"

#include <memory>

namespace orvel {

// The application part of the substance form: loading, location and kind of dates, and the copy for Cancel.

enum class Date_Kind { Absolute, Relative }; // the index of Applikationsverfahren

Date_Kind Date_Kind_Of(const Pesticide_Document& document);

// The form loads: determines the applications per year of all locations and the pattern of the location under edit, or
// the shared one for relative dates.
void Load_Applications(Pesticide_Edit edit);

// Another location of the visible list is chosen. The first application of the year is shown.
void Choose_Location(Pesticide_Edit edit, int list_index);

// First activation of the form: outside relative mode, the location is limited to the last of `entries` and chosen.
void Activate_Applications(Pesticide_Edit edit, int entries);

// Switches the kind of dates. Absolute dates are not converted to relative ones: only the pattern is adopted, never the
// dates. Absolute ones start at the user-specific location with one application per year.
void Choose_Date_Kind(Pesticide_Edit edit, Date_Kind kind);

// After the grid of single applications: selects the first one and determines the pattern anew.
void Return_From_Grid(Pesticide_Edit edit);

// Everything that Cancel restores, copied when the form loads.
struct Editor_Copy {
    std::unique_ptr<Pesticide_Document> Document;
    Per_Location<std::int16_t> App_Per_Year{};
    std::uint8_t App_Pattern = 0, App_Cycles = 0;
};
Editor_Copy Keep_Copy(const Pesticide_Document& document, const Editor_State& editor);

// Restores the copy and clears PSM_Changed, even if a change made before the form was opened is unsaved.
void Restore_Copy(Pesticide_Edit edit, const Editor_Copy& copy);

} // namespace orvel
