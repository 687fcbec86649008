#pragma once

#include "core/error.h"
#include "core/session.h"

#include <filesystem>
#include <string_view>

namespace orvel {

// What the readers and writers tell the user.

constexpr std::string_view Readin_Check = "Readin check";
constexpr std::string_view Saving_Input_File = "Saving Input File";

// A file that cannot be read as a pesticide or scenario document: the scenario reader deliberately shares the text.
void Refuse_Document(const Ask_Function& ask, std::string_view file);
// The same of the document under edit, PSM_File. Sets PSM_Read_OK to false.
void Refuse_Document(Session& session);

// A climate file that cannot be read.
void Refuse_Climate(Session& session, const File_Error& error);

// A file that could not be written: one that is read protected gives the way out, any other failure its reason.
void Tell_Not_Saved(Session& session, const std::filesystem::path& file, const File_Error& error);

} // namespace orvel
