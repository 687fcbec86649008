#include "files/file_messages.h"

#include "core/code_page.h"
#include "core/files.h"

#include <unistd.h>

namespace orvel {

namespace {

constexpr std::string_view Not_A_Document = " is not a ORVEL 4.01 PSM file";
constexpr std::string_view Read_Protected =
    "All FOCUS-Scenario files are read protected!     Please select a new directory for saving your changes.";

// Error texts hold UTF-8 paths; the box wants Windows-1252.
std::string For_Box(const std::string& text)
{
    return From_Utf8(text).value_or(text);
}

// Of the document that was to be read; its name is in Windows-1252 already.
std::string Place_And_Reason(const Session& session, const File_Error& error)
{
    return Located(session.Program.PSM_File, File_Error(For_Box(error.Reason), error.Line, error.Column));
}

bool Is_Protected(const std::filesystem::path& file)
{
    const auto directory = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
    return Is_Read_Only(file) || (std::filesystem::is_directory(directory) && ::access(directory.c_str(), W_OK) != 0);
}

} // namespace

void Refuse_Document(Session& session, const File_Error& error)
{
    session.Program.PSM_Read_OK = false;
    session.Ask({std::string(Readin_Check),
                 session.Program.PSM_File + std::string(Not_A_Document) + "\n" + Place_And_Reason(session, error)});
}

void Refuse_Climate(Session& session, const File_Error& error)
{
    session.Ask({std::string(Readin_Check), Place_And_Reason(session, error)});
}

void Tell_Not_Saved(Session& session, const std::filesystem::path& file, const File_Error& error)
{
    session.Ask(
        {std::string(Saving_Input_File), Is_Protected(file) ? std::string(Read_Protected) : For_Box(error.what())});
}

} // namespace orvel
