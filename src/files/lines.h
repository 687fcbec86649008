#pragma once

#include "core/error.h"
#include "core/print_line.h"
#include "core/text.h"
#include "core/variant.h"
#include "files/misread.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace orvel {

// The layout of a line is one function template over a "line": Line_In reads the fields by it, Line_Out prints them,
// and Line_Fields (line_fields.h) lists them. Every field carries the name that a user knows it by.
//
// Field       a value in print form
// Value_Of    a value that prints as a number, also where a text was typed
// Scientific  a number ten characters wide
// Pattern     a number in a format pattern
// Text_Field  a word without blanks
// Whole       a flag that reads as 0 where the file has a fraction
// Tag         a fixed word that takes the place of a field

// Numbers in the scientific text of a file have this width.
constexpr int Scientific_Width = 10;

// Takes the fields of a line word by word; one that is missing is 0. Columns, blanks and fixed texts do not matter to
// it. A number that its field cannot hold throws a File_Error with its place; a word that is no number goes to the list
// of misreads, where there is one. A label in pointed brackets ends the numbers of a line.
class Line_In {
public:
    explicit Line_In(std::string_view line, int line_number = 0, Misreads* misreads = nullptr)
        : Line(line),
          Rest(line),
          Line_Number(line_number),
          Misread_Words(misreads)
    {}

    double Number()
    {
        const auto word = Trim(Next());
        if (Misread_Words && !word.empty() && word[0] != '<' && !Is_One_Number(word))
            Complain(word);
        return Val(word);
    }
    std::string_view Word() { return Trim(Next()); }
    std::int16_t Integer() { return Checked(Number()); }
    std::string_view Remainder() const { return Rest; }
    Place Place_Of_Last() const { return {Line_Number, Column_Of(Last, Line)}; } // of the word taken last
    void Skip_To(std::size_t column) { Rest = Columns(Line, column); }           // what follows is taken from there

    // Lists a word of the line as misread.
    void Complain(std::string_view word) const
    {
        if (Misread_Words)
            Misread_Words->push_back({{Line_Number, Column_Of(word, Line)}, std::string(word), std::string(Name)});
    }

    template <class Value> Line_In& Field(Value& value, std::string_view name)
    {
        Name = name;
        Take(value);
        return *this;
    }
    template <class Value> Line_In& Scientific(Value& value, std::string_view name) { return Field(value, name); }
    template <class Value> Line_In& Pattern(Value& value, std::string_view, std::string_view name)
    {
        return Field(value, name);
    }
    template <class Value> Line_In& Value_Of(Value& value, std::string_view name) { return Field(value, name); }
    Line_In& Text_Field(Variant& value, std::string_view)
    {
        value = Word();
        return *this;
    }
    Line_In& Whole(std::int16_t& value, std::string_view name)
    {
        Name = name;
        const double number = Number();
        const double whole = std::floor(number);
        value = number - whole < 0.01 ? Checked(whole) : std::int16_t{0};
        return *this;
    }
    Line_In& Tag(std::string_view)
    {
        Word();
        return *this;
    }

    Line_In& Text(std::string_view) { return *this; }
    Line_In& Spc(int) { return *this; }
    Line_In& Tab(int) { return *this; }
    Line_In& Zone() { return *this; }

private:
    void Take(double& value) { value = Number(); }
    void Take(Variant& value) { value = Number(); }
    void Take(std::int16_t& value) { value = Integer(); }
    void Take(std::string& value) { value = Word(); }

    std::int16_t Checked(double number) const
    try {
        return To_I16(number);
    } catch (const File_Error& error) {
        throw File_Error(error.Reason, Line_Number, Column_Of(Last, Line));
    }

    std::string_view Next()
    {
        Last = Next_Token(Rest);
        return Last;
    }

    std::string_view Line, Rest, Last, Name;
    int Line_Number;
    Misreads* Misread_Words;
};

// Prints the fields of lines.
class Line_Out {
public:
    Line_Out& Field(double value, std::string_view)
    {
        Out.Number(value);
        return *this;
    }
    Line_Out& Field(const Variant& value, std::string_view)
    {
        Out.Item(value);
        return *this;
    }
    Line_Out& Scientific(double value, std::string_view) { return Text(Number_Text('E', value, Scientific_Width)); }
    Line_Out& Scientific(const Variant& value, std::string_view)
    {
        return Text(Number_Text('E', value, Scientific_Width));
    }
    Line_Out& Pattern(double value, std::string_view pattern, std::string_view)
    {
        return Text(Format_Pattern(value, pattern));
    }
    Line_Out& Pattern(const Variant& value, std::string_view pattern, std::string_view name)
    {
        return Pattern(value.Number(), pattern, name);
    }

    Line_Out& Value_Of(const Variant& value, std::string_view name) { return Field(value.Number(), name); }
    Line_Out& Text_Field(const Variant& value, std::string_view) { return Text(value.Print()); }
    Line_Out& Whole(std::int16_t value, std::string_view name) { return Field(value, name); }
    Line_Out& Tag(std::string_view text) { return Text(text); }

    Line_Out& Text(std::string_view text)
    {
        Out.Text(text);
        return *this;
    }
    Line_Out& Spc(int blanks)
    {
        Out.Spc(blanks);
        return *this;
    }
    Line_Out& Tab(int column)
    {
        Out.Tab(column);
        return *this;
    }
    Line_Out& Zone()
    {
        Out.Zone();
        return *this;
    }
    Line_Out& End()
    {
        Out.End();
        return *this;
    }
    Line_Out& Line(std::string_view text) { return Text(text).End(); }

    const std::string& Printed() const { return Out.Printed(); }

private:
    Print_Line Out;
};

// A count read from a file or held in a document. Throws File_Error unless it is 0 to `most`.
inline int Checked_Count(double count, int most, std::string_view of_what, Place place = {})
{
    if (!(count >= 0 && count <= most))
        throw File_Error("The number of " + std::string(of_what) + " is not between 0 and " + std::to_string(most) +
                             ".",
                         place.Line, place.Column);
    return static_cast<int>(count);
}

} // namespace orvel
