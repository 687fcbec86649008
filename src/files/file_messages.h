#pragma once

#include "core/error.h"
#include "core/session.h"

#include <filesystem>
#include <string_view>

namespace orvel {

// What the readers and writers tell the user.

constexpr std::string_view Readin_Check = "Readin check";
constexpr std::string_view Saving_Input_File = "Saving Input File";

// A file that cannot be read as a pesticide or scenario document; both kinds have the same text. Place and reason stand
// below it. Sets PSM_Read_OK to false.
void Refuse_Document(Session& session, const File_Error& error);

// A climate file that cannot be read.
void Refuse_Climate(Session& session, const File_Error& error);

// A file that could not be written: one that is read protected gives the way out, any other failure its reason.
void Tell_Not_Saved(Session& session, const std::filesystem::path& file, const File_Error& error);

} // namespace orvel
