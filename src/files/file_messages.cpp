#include "files/file_messages.h"

#include "core/code_page.h"
#include "core/files.h"

#include <unistd.h>

namespace orvel {

namespace {

constexpr std::string_view Not_A_Document = " is not a ORVEL 4.01 PSM file";
constexpr std::string_view Read_Protected =
    "All FOCUS-Scenario files are read protected!     Please select a new directory for saving your changes.";

// A reason names paths in the system's encoding.
std::string Error_Text(const File_Error& error)
{
    return From_Utf8(error.what()).value_or(error.what());
}

bool Is_Protected(const std::filesystem::path& file)
{
    const auto directory = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
    return Is_Read_Only(file) || (std::filesystem::is_directory(directory) && ::access(directory.c_str(), W_OK) != 0);
}

} // namespace

void Refuse_Document(const Ask_Function& ask, std::string_view file)
{
    Tell(ask, Readin_Check, std::string(file) + std::string(Not_A_Document));
}

void Refuse_Document(Session& session)
{
    session.Program.PSM_Read_OK = false;
    Refuse_Document(session.Ask, session.Program.PSM_File);
}

void Refuse_Climate(Session& session, const File_Error& error)
{
    session.Ask({std::string(Readin_Check), session.Program.PSM_File + ": " + Error_Text(error)});
}

void Tell_Not_Saved(Session& session, const std::filesystem::path& file, const File_Error& error)
{
    session.Ask({std::string(Saving_Input_File), Is_Protected(file) ? std::string(Read_Protected) : Error_Text(error)});
}

} // namespace orvel
