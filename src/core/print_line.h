#pragma once

#include "core/variant.h"

#include <string>
#include <string_view>

namespace orvel {

// Builds the lines of a text file as a print statement does: items in sequence, blanks, columns and print zones.
class Print_Line {
public:
    Print_Line& Text(std::string_view text);
    Print_Line& Number(double number);        // in print form
    Print_Line& Item(const Variant& variant); // in print form, or the text
    Print_Line& Spc(int blanks);
    Print_Line& Tab(int column); // 1-based; on a new line if the line already has `column` or more characters
    Print_Line& Zone();          // to the next of columns 15, 29, 43 ..., even if the line is at one already
    Print_Line& End();           // ends the line

    const std::string& Printed() const { return Bytes; }

private:
    std::size_t Length() const { return Bytes.size() - Line_Start; }

    std::string Bytes;
    std::size_t Line_Start = 0;
};

} // namespace orvel
