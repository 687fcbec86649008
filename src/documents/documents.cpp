#include "documents/documents.h"

#include "core/files.h"
#include "files/broken_line.h"
#include "files/climate_file.h"
#include "files/document_json.h"
#include "files/file_messages.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "substance/application_pattern.h"
#include "substance/pathway.h"

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

} // namespace

bool Open_Document(Session& session, const fs::path& file)
{
    session.Program.PSM_File = Shown_Name(file);
    const auto kind = Kind_Of(file);
    if (kind == Document_Kind::Pesticide)
        return Open_Pesticide(session, file);
    if (kind == Document_Kind::Scenario)
        return Read_SZE(session, file);
    if (kind == Document_Kind::Climate)
        return Read_CLI(session, file);
    session.Ask({std::string(Readin_Check), No_Document(file)});
    return false;
}

bool Convert_Document(Session& session, const fs::path& from, const fs::path& to)
{
    if (!Open_Document(session, from))
        return false;
    const auto kind = *Kind_Of(from);
    if (Kind_Of(to) != kind) {
        session.Ask({std::string(Saving_Input_File),
                     Shown_Name(to) + " does not have the ending of " + Shown_Name(from) + "."});
        return false;
    }
    if (kind == Document_Kind::Climate)
        Round_As_Shown(session.Climate);
    if (const auto field = Broken_Field(session, kind))
        session.Ask(Broken_Line_Told(*field));
    return Save_Document(session, to);
}

std::optional<std::string> Show_Document(Session& session, const fs::path& file)
{
    if (!Open_Document(session, file))
        return std::nullopt;
    switch (*Kind_Of(file)) {
    case Document_Kind::Pesticide:
        return Json_Of(session.Pesticide);
    case Document_Kind::Scenario:
        return Json_Of(session.Scenario);
    case Document_Kind::Climate:
        return Json_Of(session.Climate);
    }
    return std::nullopt;
}

} // namespace orvel
