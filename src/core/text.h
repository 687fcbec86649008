#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Texts of documents and engine files are bytes of Windows-1252: a column is a byte.

constexpr std::string_view CrLf = "\r\n";
constexpr std::string_view Tab_Char = "\t";

// The text without blanks at both ends. Only the blank counts, as everywhere in the formats.
std::string_view Trim(std::string_view text);

// `width` characters from the 1-based column `first` on; fewer, or none, if the line ends before that.
std::string_view Columns(std::string_view line, std::size_t first, std::size_t width = std::string_view::npos);

// Removes the first word from the line and returns it with one trailing blank; the line keeps the rest, including that
// blank. A tab does not separate words.
std::string Next_Token(std::string& line);
std::string_view Next_Token(std::string_view& line);

std::string Comma_To_Point(std::string_view text);
std::string Replace_All(std::string text, std::string_view what, std::string_view by);

inline bool Contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

// Letters A to Z only, independent of the locale.
constexpr char Upper_Letter(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
std::string Upper(std::string_view text);
std::string Lower(std::string_view text);
bool Same_Text(std::string_view a, std::string_view b); // ignoring the case of A to Z

// Iterates over the lines of a text; lines end in CR LF or LF, and the last line may lack its end.
class Line_Reader {
public:
    explicit Line_Reader(std::string_view text) : Rest(text) {}

    bool At_End() const { return Rest.empty(); }
    std::string_view Next();                   // the next line without its end; throws File_Error after the last one
    void Skip(int lines);                      // throws File_Error after the last line
    int Line_Number() const { return Number; } // of the last line read, 1-based; 0 before the first

private:
    std::string_view Rest;
    int Number = 0;
};

// All lines of a text.
std::vector<std::string_view> Split_Lines(std::string_view text);

} // namespace orvel
