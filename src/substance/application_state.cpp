#include "substance/application_state.h"

#include "substance/application_list.h"
#include "substance/application_pattern.h"
#include "substance/application_year.h"

#include <algorithm>

namespace orvel {

Date_Kind Date_Kind_Of(const Pesticide_Document& document)
{
    return document.App_Mode == App_Mode_Relative ? Date_Kind::Relative : Date_Kind::Absolute;
}

void Load_Applications(Session& session)
{
    auto& run = session.Run;
    for (int l = 0; l <= Last_Location; ++l) {
        Check_Pattern(session, l);
        if (run.App_Pattern == 0)
            continue;
        run.App_Cycles = static_cast<std::uint8_t>(Cycles_Of_Pattern(run.App_Pattern));
        run.App_Per_Year[l] = static_cast<std::int16_t>(Applications_Of(session.Pesticide, l) / run.App_Cycles);
    }
    if (Date_Kind_Of(session.Pesticide) == Date_Kind::Relative)
        run.App_Current_Location = 0;
    run.App_Current = 1;
    Find_Pattern(session);
}

void Choose_Location(Session& session, int list_index)
{
    session.Run.App_Current_Location = static_cast<std::int16_t>(std::clamp(list_index, 0, Last_Location));
    session.Run.App_Current = 1;
    Find_Pattern(session);
}

void Activate_Applications(Session& session, int entries)
{
    if (Date_Kind_Of(session.Pesticide) == Date_Kind::Absolute)
        Choose_Location(session, std::min<int>(session.Run.App_Current_Location, entries - 1));
    Previous_In_Year(session);
}

void Choose_Date_Kind(Session& session, Date_Kind kind)
{
    auto& run = session.Run;
    auto& document = session.Pesticide;
    run.App_Current_Location = 0;
    if (kind == Date_Kind::Absolute) {
        document.App_Mode = 0;
        for (int shown = Per_Year_Now(session); shown > 0; --shown)
            Remove_In_Year(session);
        run.App_Current = 1;
        return;
    }
    document.App_Mode = App_Mode_Relative;
    const int pattern = run.App_Pattern;
    if (pattern > 0) {
        run.App_Cycles = static_cast<std::uint8_t>(Cycles_Of_Pattern(pattern));
        run.App_Per_Year[0] =
            static_cast<std::int16_t>(std::clamp<int>(run.App_Per_Year[0], 0, Last_Application / run.App_Cycles));
        document.App_Count[0] = run.App_Per_Year[0] * run.App_Cycles;
        Choose_Pattern(session, pattern);
    } else {
        Find_Pattern(session);
    }
    run.App_Current = 1;
}

void Return_From_Grid(Session& session)
{
    session.Run.App_Current = 1;
    Find_Pattern(session);
}

Editor_Copy Keep_Copy(const Session& session)
{
    return {std::make_unique<Pesticide_Document>(session.Pesticide), session.Run.App_Per_Year, session.Run.App_Pattern,
            session.Run.App_Cycles};
}

void Restore_Copy(Session& session, const Editor_Copy& copy)
{
    session.Pesticide = *copy.Document;
    session.Run.App_Per_Year = copy.App_Per_Year;
    session.Run.App_Pattern = copy.App_Pattern;
    session.Run.App_Cycles = copy.App_Cycles;
    session.Program.PSM_Changed = false;
}

} // namespace orvel
