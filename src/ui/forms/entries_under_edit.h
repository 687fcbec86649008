#pragma once

#include "core/session.h"

namespace orvel {

// A form whose boxes hold what its user entered until it is done or saved.
class Entries_Under_Edit {
public:
    virtual ~Entries_Under_Edit() = default;

    // Puts the entries into the documents of a session, which need not be the one under edit. Nothing is asked or told.
    virtual void Take_Over_Entries(Session& session) const = 0;
};

} // namespace orvel
