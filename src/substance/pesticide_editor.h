#pragma once

#include "core/session.h"

namespace orvel {

// Opening, leaving and saving of the pesticide editor, and what a click in the scheme prepares before a detail form
// shows.

// A new document: defaults, the pathway, the file name "*.psm" and the pattern "Every Year".
void New_PSM(Session& session);

// The scheme opens: nothing is changed yet, the pathway is derived, and a change of Koc of 0 becomes 1.
void Open_Editor(Session& session);

// A click on the active substance: location 1, or the shared list of relative dates, and its pattern.
void Open_Active_Substance(Session& session);

// A click on the box of metabolite i, 2 to 9. False for an absent one: nothing opens.
bool Open_Metabolite(Session& session, int i);

// A click on arrow t. False for a reserved one.
bool Open_Transformation(Session& session, int t);

// The user-specific location (0) loses every application from the first one with an undefined date on.
void Check_User_Specific_Scenarios(Pesticide_Document& document);

// What "Save and Exit" does before the save dialog; "Save" does nothing of it.
void Prepare_Save_And_Exit(Session& session);

// Asks before changes are given up; true: the editor may close.
bool May_Leave_Editor(const Session& session);

} // namespace orvel
