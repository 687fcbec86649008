#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvel {

// The only readers and printers of numbers in files. The decimal sign is the point, whatever the locale.

// The number at the beginning of the text, after any blanks and tabs; 0 if there is none. Never fails: a number beyond
// the range of a double gives the largest one.
double Val(std::string_view text);

// The whole part of Val, cut to the range from `least` to `most`.
int Whole_Part(std::string_view text, int least, int most);

// The number next to a power of ten, on every system; that of the library of C is not.
double Power_Of_Ten(double exponent);

// The general form: at most 15 significant digits, in fixed notation if that needs at most 15 decimals and at most 15
// digits before the point, else like 1.5E-16. No blanks around it. Throws std::domain_error for a value that is not
// finite.
std::string General_Text(double value);

// The print form: the general form with a leading blank (a minus sign if negative) and a trailing blank.
std::string Print_Form(double value);

// The value in a pattern of leading blanks, zeros, a point and zeros, with or without "E+00": "000", "    0.0",
// "0.00E+00". Rounds the 15 significant decimal digits of the value, halves away from zero.
std::string Format_Pattern(double value, std::string_view pattern);

// The fixed scheme for numbers in files. Kind "I" is the general form; for any other letter the pattern depends on the
// size of the value. Leading zeros that do not directly precede the point are cut; blanks fill up to `width`.
std::string Number_Text(char kind, double value, int width);

// The value with `decimals` decimals, then treated as in Number_Text.
std::string Fixed_Text(double value, int decimals);

// The value rounded to an i16, halves to the even number. Throws File_Error outside its range.
std::int16_t To_I16(double value);

// How many of `rows` rows a count in a document stands for: none below 0, all if it is greater.
std::size_t Rows_Counted(double count, std::size_t rows);

} // namespace orvel
