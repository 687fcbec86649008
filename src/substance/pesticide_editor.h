#pragma once

#include "core/session.h"

namespace orvel {

// Opening, leaving and saving the pesticide editor, and the preparation for each detail form.

// Creates a document: defaults, the pathway, the file name "*.psm" and the pattern "Every Year".
void New_PSM(Session& session);

// The scheme opens: the document counts as unchanged, the pathway is derived, and a Koc change factor of 0 becomes 1.
void Open_Editor(Session& session);

// A click on the active substance: selects location 1, or the shared list of relative dates, and its pattern.
void Open_Active_Substance(Session& session);

// A click on the box of metabolite i, 2 to 9. False if it is absent: nothing opens.
bool Open_Metabolite(Session& session, int i);

// A click on arrow t. False if it is reserved: nothing opens.
bool Open_Transformation(Session& session, int t);

// Removes all applications of the user-specific location (0) from the first undefined date on.
void Check_User_Specific_Scenarios(Pesticide_Document& document);

// What "Save and Exit" does before the save dialog; "Save" does none of it.
void Prepare_Save_And_Exit(Session& session);

// Asks before changes are discarded; true if the editor may close. Cancel of a detail form may have cleared the mark of
// an earlier change, so that the document is compared with the one that was opened or saved last.
bool May_Leave_Editor(const Session& session, const Pesticide_Document& opened);

} // namespace orvel
