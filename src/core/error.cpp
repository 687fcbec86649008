#include "core/error.h"

namespace orvel {

namespace {

// "line 12, column 5", as far as the place is known.
std::string Place(int line, int column)
{
    if (line <= 0)
        return {};
    const std::string text = "line " + std::to_string(line);
    return column > 0 ? text + ", column " + std::to_string(column) : text;
}

std::string Sentence(const std::string& reason, int line, int column)
{
    std::string place = Place(line, column);
    if (place.empty())
        return reason;
    place.front() = 'L';
    return place + ": " + reason;
}

} // namespace

File_Error::File_Error(const std::string& reason, int line, int column)
    : std::runtime_error(Sentence(reason, line, column)),
      Reason(reason),
      Line(line),
      Column(column)
{}

bool Is_Missing(const std::error_code& error)
{
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory ||
           error == std::errc::filename_too_long;
}

void Pass_On_If_Unreadable(const File_Error& error)
{
    if (error.Code && !Is_Missing(error.Code))
        throw; // the error at hand, whatever it is derived to
}

std::string Located(std::string_view file, const File_Error& error)
{
    const std::string place = Place(error.Line, error.Column);
    return std::string(file) + (place.empty() ? "" : ", " + place) + ": " + error.Reason;
}

} // namespace orvel
