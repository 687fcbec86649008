#include "documents/documents.h"

#include "core/files.h"
#include "files/broken_line.h"
#include "files/climate_file.h"
#include "files/document_notes.h"
#include "files/file_messages.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "substance/application_pattern.h"
#include "substance/pathway.h"
#include "substance/pesticide_editor.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

bool Open_Pesticide(Session& session, const fs::path& file)
{
    const bool read = Read_PSM(session, file);
    session.Editor.App_Current_Location = 0;
    if (session.Editor.App_Pattern > 0)
        session.Editor.App_Per_Year[0] =
            To_I16(session.Pesticide.App_Count[0].Number() / Cycles_Of_Pattern(session.Editor.App_Pattern));
    if (read)
        Update_Pathway(session.Pesticide);
    return read;
}

// How documents of one kind are opened, created and converted.
struct Document_Rules {
    bool (*Open)(Session& session, const fs::path& file);
    void (*Make_New)(Session& session);
    void (*Pass_Editor)(Session& session); // applies what loading and saving in the editor would change
};

void Keep(Session&) {}

// In the order of Document_Kind.
const std::array<Document_Rules, 3> Rules = {{
    {Open_Pesticide, New_PSM, Keep},
    {Read_SZE, [](Session& session) { Reset_SZE(session.Scenario); }, Keep},
    {Read_CLI, [](Session& session) { Clear_Climate(session.Climate, 0); },
     [](Session& session) { Round_As_Shown(session.Climate); }},
}};

// The notes of a pesticide file go with it.
bool Pass_On_Notes(Session& session, const fs::path& from, const fs::path& to)
try {
    Copy_Notes(from, to);
    return true;
} catch (const File_Error& error) {
    Tell_Not_Saved(session, Notes_File(to), error);
    return false;
}

const Document_Rules& Rules_Of(Document_Kind kind)
{
    return Rules[static_cast<std::size_t>(kind)];
}

} // namespace

bool Open_Document(Session& session, const fs::path& file)
{
    session.Program.PSM_File = Shown_Name(file);
    if (const auto kind = Kind_Of(file))
        return Rules_Of(*kind).Open(session, file);
    session.Ask({std::string(Readin_Check), Unknown_Ending(file)});
    return false;
}

void New_Document(Session& session, Document_Kind kind)
{
    Rules_Of(kind).Make_New(session);
    session.Program.PSM_File = Type_Of(kind).Mask;
}

bool Convert_Document(Session& session, const fs::path& from, const fs::path& to)
{
    const auto kind = Kind_Of(from);
    if (!Open_Document(session, from) || !kind)
        return false;
    if (Kind_Of(to) != kind) {
        session.Ask({std::string(Saving_Input_File),
                     Shown_Name(to) + " does not have the ending of " + Shown_Name(from) + "."});
        return false;
    }
    Rules_Of(*kind).Pass_Editor(session);
    if (const auto field = Type_Of(*kind).Broken_Field(session))
        session.Ask(Broken_Line_Message(*field));
    return Save_Document(session, to) && (kind != Document_Kind::Pesticide || Pass_On_Notes(session, from, to));
}

std::optional<std::string> Show_Document(Session& session, const fs::path& file)
{
    const auto kind = Kind_Of(file);
    if (!Open_Document(session, file) || !kind)
        return std::nullopt;
    return Type_Of(*kind).Json(session);
}

} // namespace orvel
