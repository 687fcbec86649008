#pragma once

#include "core/session.h"
#include "substance/half_lives.h"
#include "substance/rate_correction.h"

#include <string>

namespace orvel {

// One arrow of the scheme under edit. No field is refused: a text that is not a number counts as 0. The rates of a
// substance are independent: its loss is split over its arrows in proportion to their rates.
struct Transformation_Entry {
    Rate_Texts Soil;                 // Text1, Text2, Text3
    Rate_Texts Photolysis;           // Text10, Text11, Text12
    std::string Reference_Radiation; // Text13, W/m2
    Correction_Texts Correction;     // Text4, Text8, Text5, Text6, Text7, Text9
    bool operator==(const Transformation_Entry&) const = default;
};

// What the form of arrow t, 1 to 29, shows: the rate is the editable field, a temperature of 0 shows as 20, and a
// relative moisture of 0 means the absolute one applies.
Transformation_Entry Load_Transformation(const Pesticide_Document& document, int t);

// Stores the entry at the arrow of Transformation_Index, marks the document as changed and derives the pathway anew. A
// rate of 0 without photolysis removes the arrow, and with it the substances that only it forms.
void Accept_Transformation(Pesticide_Edit edit, const Transformation_Entry& entry);

// The same of an entry that may not be complete: the arrow keeps its rates rather than going, since a rate that is
// being typed anew is 0 for a moment.
void Store_Half_Typed(Pesticide_Edit edit, Transformation_Entry entry);

} // namespace orvel
