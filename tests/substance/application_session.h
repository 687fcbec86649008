#pragma once

#include "pesticide_session.h"
#include "substance/application_year.h"

namespace orvel {

// A new document whose location 1 is under edit, at its first application.
class Application_Session : public Pesticide_Session {
protected:
    Application_Session()
    {
        Document.App_Mode = 0;
        The_Session.Editor.App_Current_Location = 1;
        The_Session.Editor.App_Current = 1;
    }

    // A location with the given master copy, repeated by a pattern.
    void Regular(int location, int pattern, const std::vector<Application>& master)
    {
        The_Session.Editor.App_Per_Year[location] = static_cast<std::int16_t>(master.size());
        for (std::size_t p = 1; p <= master.size(); ++p)
            Document.Applications[location][p] = master[p - 1];
        Expand_Year(The_Session, location, pattern, Dates::Absolute);
        Find_Pattern(The_Session);
    }

    // The shared list of relative dates with one application a day given, repeated by a pattern; the mode is relative.
    void Relative(int pattern, const std::vector<int>& days)
    {
        Document.App_Mode = App_Mode_Relative;
        The_Session.Editor.App_Current_Location = 0;
        The_Session.Editor.App_Per_Year[0] = static_cast<std::int16_t>(days.size());
        for (std::size_t p = 1; p <= days.size(); ++p)
            Document.Relative[p] = {static_cast<std::int16_t>(days[p - 1]), 0, 1, 1, 0, 0};
        Expand_Year(The_Session, 0, pattern, Dates::Relative);
        Find_Pattern(The_Session);
    }

    const Application& At(int a) const { return Document.Applications[1][a]; }
};

} // namespace orvel
