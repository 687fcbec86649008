#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Comma-separated values, read row by row so that a file of any length needs no more memory than its longest row. UTF-8
// with or without a byte order mark, lines ending in CR LF or LF; what separates the fields, a tab, a semicolon or a
// comma, the first row tells.

struct Csv_Row {
    int Line = 0; // on which it begins, 1-based
    std::vector<std::string> Fields;
};

class Csv_Reader {
public:
    // Puts at most `most` bytes into `to` and returns their number, 0 at the end.
    using Source = std::function<std::size_t(char* to, std::size_t most)>;
    explicit Csv_Reader(Source source) : Read(std::move(source)) {}

    // The next row; false at the end. Throws File_Error with line and field for a row that cannot be read; the next
    // call goes on behind it.
    bool Next(Csv_Row& row);

    char Separator() const { return Separated_By; } // once the first row was read

private:
    bool Parts_Fields(char c) const;
    bool Take(char& c);
    bool Peek(char& c);
    bool Take_Record();
    void Split(Csv_Row& row) const;

    Source Read;
    std::string Block, Record;
    std::size_t At = 0;
    int Line = 0, First_Line = 1; // lines ended so far, line of the record
    char Separated_By = '\0';
    bool Begun = false, Is_Quoted_To_The_End = false;
};

// A source of the bytes of a text, which must outlive it.
Csv_Reader::Source Source_Of(std::string_view text);

} // namespace orvel
