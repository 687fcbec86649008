#pragma once

#include "core/variant.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

namespace orvel {

// Writes JSON in UTF-8 from texts in the bytes of Windows-1252. Numbers have the general form. Each member of an object
// has a line of its own, and so has each object or array in an array; single values in an array share a line.
class Json_Writer {
public:
    void Value(std::string_view text);
    void Value(const char* text) { Value(std::string_view(text)); }
    void Value(const std::string& text) { Value(std::string_view(text)); }
    void Value(const Variant& value); // a number, or the text that was typed
    void Value(std::same_as<bool> auto value) { Scalar(value ? "true" : "false"); }
    template <class Number>
    requires std::is_arithmetic_v<Number> &&(!std::same_as<Number, bool>)void Value(Number number)
    {
        Scalar(General_Text(static_cast<double>(number)));
    }
    void Null() { Scalar("null"); }

    void Key(std::string_view key);
    void Utf8_Key(std::string_view key); // and a text that is UTF-8 already
    void Utf8_Value(std::string_view text);

    // `body` writes the members or the elements.
    template <class Body> void Object(Body body)
    {
        Open('{');
        body();
        Close('}');
    }
    template <class Body> void Array(Body body)
    {
        Open('[');
        body();
        Close(']');
    }

    template <class T> void Member(std::string_view key, const T& value)
    {
        Key(key);
        Value(value);
    }
    template <class T, std::size_t n> void Value(const std::array<T, n>& values)
    {
        Array([&] {
            for (const auto& value : values)
                Value(value);
        });
    }

    // The text, with an end of line.
    std::string Written() const { return Out + "\n"; }

private:
    void Open(char bracket);
    void Close(char bracket);
    void Scalar(std::string_view text);
    void Separate(bool on_a_new_line);

    std::string Out;
    int Depth = 0;
    bool Is_First = true; // no comma before the next item
    bool Is_Behind_Key = false;
    bool Has_Lines = false; // the array or object just written has items on lines of their own
};

} // namespace orvel
