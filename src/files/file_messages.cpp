#include "files/file_messages.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/rights.h"

namespace orvel {

namespace {

constexpr std::string_view Not_A_Document = " is not a ORVEL 4.01 PSM file";
constexpr std::string_view Read_Protected =
    "All FOCUS-Scenario files are read protected!     Please select a new directory for saving your changes.";

bool Is_Protected(const std::filesystem::path& file)
{
    const auto directory = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
    std::error_code unknown; // then the save itself tells
    return Is_Read_Only(file) || (std::filesystem::is_directory(directory, unknown) && !May_Write(directory));
}

} // namespace

std::string Place_And_Reason(std::string_view name, const File_Error& error)
{
    return Located(name, File_Error(To_Code_Page(error.Reason), error.Line, error.Column));
}

void Refuse_Document(const Ask_Function& ask, std::string_view name, const File_Error& error)
{
    Tell(ask, Readin_Check, std::string(name) + std::string(Not_A_Document) + "\n" + Place_And_Reason(name, error));
}

void Refuse_Document(Session& session, const File_Error& error)
{
    session.Program.PSM_Read_OK = false;
    Refuse_Document(session.Ask, session.Program.PSM_File, error);
}

void Refuse_Climate(Session& session, const File_Error& error)
{
    session.Ask({std::string(Readin_Check), Place_And_Reason(session.Program.PSM_File, error)});
}

void Tell_Not_Saved(Session& session, const std::filesystem::path& file, const File_Error& error)
{
    session.Ask({std::string(Saving_Input_File),
                 Is_Protected(file) ? std::string(Read_Protected) : To_Code_Page(error.what())});
}

} // namespace orvel
