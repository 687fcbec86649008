#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// A place in a file, 1-based; 0 where it is not known.
struct Place {
    int Line = 0, Column = 0;
};

// The column in which a part of a line begins; 0 for an empty one.
inline int Column_Of(std::string_view part, std::string_view line)
{
    return part.empty() ? 0 : static_cast<int>(part.data() - line.data()) + 1;
}

// A word that stands where a number belongs and is none: Val makes 0 of "abc" and "0,02", and 3 of "3O". Readers go on
// with that value and list the word for a caller that asks.
struct Misread {
    Place At;
    std::string Word, Field;
    bool operator==(const Misread& other) const { return At.Line == other.At.Line && At.Column == other.At.Column; }
};
using Misreads = std::vector<Misread>;

// A value that a file holds and nobody uses: another one stands, or none is looked at.
struct Unused_Value {
    Place At;
    std::string Word, Field, Used; // Used: what holds instead
};

// What is told of a file beside the document in it.
struct File_Notes {
    Misreads Misread;
    std::vector<Unused_Value> Unused;
};

// Whether the whole text, blanks and tabs around it left out, is one number as Val reads it.
bool Is_One_Number(std::string_view text);

// The same for digits alone: dates, counts.
bool Is_Digits(std::string_view text);

} // namespace orvel
