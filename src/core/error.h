#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace orvel {

// A file that cannot be read, written or understood. The text is a whole sentence that can be shown to the user; the
// place in the file, if known, precedes the reason: "Line 12, column 5: There is no such metabolite."
struct File_Error : std::runtime_error {
    explicit File_Error(const std::string& reason, int line = 0, int column = 0);

    std::string Reason;       // without the place
    int Line = 0, Column = 0; // 1-based; 0 if unknown
};

// The error's text with the file's name, as every reader reports it: "demo.psm, line 12, column 5: There is no such
// metabolite."
std::string Located(std::string_view file, const File_Error& error);

} // namespace orvel
