// Reading and writing documents of the session, with the messages when that fails.
#include "core/code_page.h"
#include "core/files.h"
#include "files/climate_file.h"
#include "files/file_messages.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"

namespace orvel {

namespace fs = std::filesystem;

bool Read_PSM(Session& session, const fs::path& file)
try {
    Parse_PSM(Read_Whole(file), session.Pesticide);
    session.Program.PSM_Read_OK = true;
    return true;
} catch (const File_Error& error) {
    Refuse_Document(session, error);
    return false;
}

bool Read_PSM(Pesticide_Document& document, const fs::path& file, const Ask_Function& ask)
try {
    Parse_PSM(Read_Whole(file), document);
    return true;
} catch (const File_Error& error) {
    Refuse_Document(ask, Path_Text(file), error);
    return false;
}

bool Write_PSM(Session& session, const fs::path& file)
try {
    Write_Whole(file, Format_PSM(session.Pesticide));
    return true;
} catch (const File_Error& error) {
    Tell_Not_Saved(session, file, error);
    return false;
}

bool Read_SZE(Session& session, const fs::path& file)
try {
    Reset_SZE(session.Scenario);
    Parse_SZE(Read_Whole(file), session.Scenario);
    session.Program.PSM_Read_OK = true;
    return true;
} catch (const File_Error& error) {
    Refuse_Document(session, error);
    return false;
}

bool Read_SZE(Scenario_Document& document, const fs::path& file, const Ask_Function& ask)
try {
    Reset_SZE(document);
    Parse_SZE(Read_Whole(file), document);
    return true;
} catch (const File_Error& error) {
    Refuse_Document(ask, Path_Text(file), error);
    return false;
}

bool Write_SZE(Session& session, const fs::path& file)
try {
    Write_Whole(file, Format_SZE(session.Scenario));
    return true;
} catch (const File_Error& error) {
    Tell_Not_Saved(session, file, error);
    return false;
}

bool Read_CLI(Session& session, const fs::path& file)
try {
    const std::string bytes = Read_Whole(file);
    session.Climate = Parse_CLI(bytes);
    if (Ends_In_A_Cut_Line(bytes))
        session.Climate.Rows.pop_back(); // its lost columns are not zeros
    if (const auto cut = Seems_Cut(bytes, session.Climate); !cut.empty())
        Tell(session.Ask, Readin_Check, Path_Text(file.filename()) + ": " + cut);
    return true;
} catch (const File_Error& error) {
    Refuse_Climate(session, error);
    return false;
}

bool Write_CLI(Session& session, const fs::path& file)
try {
    Write_Whole(file, Format_CLI(session.Climate));
    return true;
} catch (const File_Error& error) {
    Tell_Not_Saved(session, file, error);
    return false;
}

} // namespace orvel
