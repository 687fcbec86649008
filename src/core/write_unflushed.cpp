#include "core/write_unflushed.h"

#include "core/error.h"
#include "core/system/file_handle.h"

namespace orvel {

void Write_Unflushed(const std::filesystem::path& file, std::string_view bytes)
{
    std::error_code error;
    // Over what is there: a file that is emptied first may be written to the disk as it is closed.
    File_Handle handle(file, File_Handle::Use::Update, error);
    if (!error)
        error = handle.Write(bytes);
    if (!error && handle.Size(error) > bytes.size())
        error = handle.Resize(bytes.size());
    if (!error)
        error = handle.Close();
    if (!error)
        return;
    File_Error failure("Cannot write " + file.string() + ": " + error.message() + ".");
    failure.Code = error;
    throw failure;
}

} // namespace orvel
