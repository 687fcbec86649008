#pragma once

#include "core/numbers.h"

#include <string>
#include <string_view>
#include <type_traits>

namespace orvel {

// A field that holds a number when it came from a reader or a rule, and text when it came from an edit box.
class Variant {
public:
    Variant() = default;
    template <class T>
    requires std::is_arithmetic_v<T> Variant(T number) : Value(static_cast<double>(number)) {}
    Variant(std::string_view text);
    Variant(const char* text) : Variant(std::string_view(text)) {}
    Variant(const std::string& text) : Variant(std::string_view(text)) {}
    static Variant Verbatim(std::string_view text); // keeps surrounding blanks, for the frequency " DAY"

    bool Is_Text() const { return Holds_Text; }
    double Number() const { return Value; } // the number, or Val of the text
    std::string Print() const;              // the print form of a number; a text as typed, without surrounding blanks
    std::string Text() const;               // the general form of a number; a text as it was typed

    bool operator==(const Variant&) const = default;

private:
    double Value = 0;
    std::string Typed;
    bool Holds_Text = false;
};

// Number_Text for a field; commas in a typed text are read as points.
std::string Number_Text(char kind, const Variant& value, int width);

} // namespace orvel
