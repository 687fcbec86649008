#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace orvel {

// A file that cannot be read, written or understood. The text is a whole sentence that can be shown to the user; the
// place in the file, if known, precedes the reason: "Line 12, column 5: There is no such metabolite."
struct File_Error : std::runtime_error {
    explicit File_Error(const std::string& reason, int line = 0, int column = 0);

    std::string Reason;       // without the place
    int Line = 0, Column = 0; // 1-based; 0 if unknown
    std::error_code Code;     // why the system could not read or write the file; none if its contents are at fault
};

// For a handler of File_Error that takes a missing or damaged file for none: passes the error on if the file could not
// be read. Nothing may be concluded from such a file, not even that it is not there.
void Pass_On_If_Unreadable(const File_Error& error);
bool Is_Missing(const std::error_code& error); // the file is not there

// The error's text with the file's name, as every reader reports it: "demo.psm, line 12, column 5: There is no such
// metabolite."
std::string Located(std::string_view file, const File_Error& error);

} // namespace orvel
