#include "core/write_unflushed.h"

#include "core/error.h"
#include "core/system/file_handle.h"

namespace orvel {

void Write_Unflushed(const std::filesystem::path& file, std::string_view bytes)
{
    std::error_code error;
    File_Handle handle(file, File_Handle::Use::Write, error);
    if (!error)
        error = handle.Write(bytes);
    if (!error)
        error = handle.Close();
    if (!error)
        return;
    File_Error failure("Cannot write " + file.string() + ": " + error.message() + ".");
    failure.Code = error;
    throw failure;
}

} // namespace orvel
