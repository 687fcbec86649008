#include "results/shown_file.h"

#include "core/files.h"
#include "results/run_files.h"
#include "runs/shown_path.h"

#include <fstream>

namespace {

// The first `most` bytes of a file.
std::string Read_Begin(const std::filesystem::path& file, std::size_t most)
{
    std::ifstream stream(file, std::ios::binary);
    std::string bytes(most, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(most));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

std::string Name_Shown(const std::filesystem::path& file)
{
    return Shown(file.filename().string());
}

} // namespace

std::optional<std::string> Shown_File(const Session& session, const std::filesystem::path& file)
try {
    std::error_code missing;
    const auto size = std::filesystem::file_size(file, missing);
    if (missing || size <= Largest_Shown_File)
        return Shown_Cache(Read_Whole(file));
    session.Ask({"Size limit exceeded!", "The file " + Name_Shown(file) + " is too big! Only the first part is presented."});
    return Shown_Cache(Read_Begin(file, Largest_Shown_File));
} catch (const File_Error& error) {
    session.Ask({"File check", Shown(error.what())});
    return std::nullopt;
}

std::optional<std::string> Shown_Whole(const Session& session, const std::filesystem::path& file)
try {
    return Shown_Cache(Read_Whole(file));
} catch (const File_Error& error) {
    session.Ask({"File check", Shown(error.what())});
    return std::nullopt;
}

std::optional<std::string> Shown_Echo(const Session& session, const std::filesystem::path& run_directory)
{
    return Shown_Whole(session, Found_Or_New(run_directory, "echo.orv"));
}
