#pragma once

#include <string>
#include <string_view>

namespace orvel {

constexpr std::size_t Title_Count = 4; // titles above the tables, which are not searched
constexpr int Year_Column_Width = 4;

// A table's text in its two forms: as written to a file and as shown.
struct Table_Text {
    std::string File, Screen;

    void Line(std::string_view line) { Line(line, line); }
    void Line(std::string_view file, std::string_view screen);
    template <class Lines> void Head(const Lines& titles) // the title lines, indented by ten blanks on the screen
    {
        for (const auto& title : titles)
            Line(title, std::string(10, ' ') + title);
    }
};

// A figure as the tables print it.
std::string Figure_Text(double figure);

// A figure as it is printed and read back. Table records hold their figures in this form, so that window, diagram,
// report and command line agree whether a table was just built or read from its cache.
double As_Printed(double figure);

// Whether a file holds this text. A figure rounded up to the next power of ten is printed with one digit more than the
// figure that is read back from it; that is no difference.
bool Holds_Text(std::string_view file, std::string_view text);

} // namespace orvel
