#pragma once

#include "files/document_notes.h"

namespace orvel {

// A form that holds a document's notes, or an entry of them that its user has typed so far.
class Notes_Under_Edit {
public:
    virtual ~Notes_Under_Edit() = default;

    // Puts the form's notes in place of those given, or its entry into them. Nothing is asked or told.
    virtual void Take_Over_Notes(Document_Notes& notes) const = 0;
};

} // namespace orvel
