#include "substance/pesticide_editor.h"

#include "files/document_differences.h"
#include "substance/application_list.h"
#include "substance/application_pattern.h"
#include "substance/pathway.h"
#include "substance/pathway_picture.h"

namespace orvel {

void New_PSM(Session& session)
{
    session.Pesticide = Pesticide_Document(); // nothing remains of the previous document
    Reset_PSM(session.Pesticide);
    Update_Pathway(session.Pesticide);
    session.Program.PSM_File = "*.psm";
    session.Editor.App_Pattern = 1;
}

void Open_Editor(Session& session)
{
    session.Program.PSM_Changed = false;
    Update_Pathway(session.Pesticide);
    for (int i = 1; i <= Substances; ++i) {
        if (session.Pesticide.Koc_Change[i] == 0)
            session.Pesticide.Koc_Change[i] = 1;
    }
}

void Open_Active_Substance(Session& session)
{
    session.Editor.Substance_Index = 1;
    session.Editor.App_Current_Location = session.Pesticide.App_Mode == App_Mode_Relative ? 0 : 1;
    Check_Pattern(session.Pesticide, session.Editor, session.Editor.App_Current_Location);
}

bool Open_Metabolite(Session& session, int i)
{
    session.Editor.Substance_Index = static_cast<std::int16_t>(i);
    return session.Pesticide.Met_Present.at(static_cast<std::size_t>(i));
}

bool Open_Transformation(Session& session, int t)
{
    if (!Arrow_Is_Clickable(t))
        return false;
    session.Editor.Transformation_Index = static_cast<std::int16_t>(t);
    return true;
}

void Check_User_Specific_Scenarios(Pesticide_Document& document)
{
    const int count = Applications_Of(document, 0);
    for (int a = 1; a <= count; ++a) {
        const auto& application = document.Applications[0][a];
        if (application.App_Day == 0 || application.App_Month == 0 || application.App_Year == 0) {
            document.App_Count[0] = a - 1;
            return;
        }
    }
}

void Prepare_Save_And_Exit(Session& session)
{
    if (session.Pesticide.App_Mode != App_Mode_Relative)
        Check_User_Specific_Scenarios(session.Pesticide);
}

bool May_Leave_Editor(const Session& session, const Pesticide_Document& opened)
{
    if (!session.Program.PSM_Changed && Differences(opened, session.Pesticide).empty())
        return true;
    const Message question = {"Saving Input File",
                              "Parameters were changed. Do you want to exit without saving ?",
                              Icon::Question,
                              {Button::Yes, Button::No},
                              Button::No};
    return session.Ask(question) == Button::Yes;
}

} // namespace orvel
