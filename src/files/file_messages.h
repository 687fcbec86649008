#pragma once

#include "core/error.h"
#include "core/session.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvel {

// The messages of the readers and writers.

constexpr std::string_view Readin_Check = "Readin check";
constexpr std::string_view Saving_Input_File = "Saving Input File";

// The line below the text of a box that tells why a file cannot be read: "demo.psm, line 12, column 5: There is no such
// metabolite." The name is in Windows-1252; an error holds paths in UTF-8, and the box wants Windows-1252.
std::string Place_And_Reason(std::string_view name, const File_Error& error);

// A file that cannot be read as a pesticide or scenario document; both kinds have the same text. Place and reason stand
// below it.
void Refuse_Document(const Ask_Function& ask, std::string_view name, const File_Error& error);
// The same of the document under edit, PSM_File. Sets PSM_Read_OK to false.
void Refuse_Document(Session& session, const File_Error& error);

// A climate file that cannot be read.
void Refuse_Climate(Session& session, const File_Error& error);

// A file that could not be written: a read-protected one asks for another directory, any other failure has its reason.
void Tell_Not_Saved(Session& session, const std::filesystem::path& file, const File_Error& error);

} // namespace orvel
