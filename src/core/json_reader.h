#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace orvel {

class Json_Writer;

// A JSON text read into values. Texts are UTF-8.
class Json_Value {
public:
    using Array = std::vector<Json_Value>;
    using Object = std::vector<std::pair<std::string, Json_Value>>; // in the order of the text

    Json_Value() = default;
    template <class T> explicit Json_Value(T value) : Held(std::move(value)) {}

    bool Is_Null() const { return std::holds_alternative<std::nullptr_t>(Held); }
    bool Is_Text() const { return std::holds_alternative<std::string>(Held); }

    // What the value holds; each throws File_Error with the value's place if it holds something else. A whole number
    // lies within 0 and 2^53.
    const std::string& Text() const;
    bool Truth() const;
    double Number() const;
    long long Whole_Number() const;
    const Array& Elements() const;
    const Object& Members() const;

    // The member of this name. The first throws File_Error without one, naming it; so do errors below it.
    const Json_Value& At(std::string_view name) const;
    const Json_Value* Find(std::string_view name) const; // nullptr without one

    // Throws File_Error with the value's place: what it says is JSON, but not what was expected.
    [[noreturn]] void Refuse(const std::string& reason) const;

    // Where the value begins in its text, from 1; 0 for one that was not read.
    void Set_Place(int line, int column)
    {
        Line = line;
        Column = column;
    }
    template <class T> Json_Value With(T value) const // at the same place
    {
        Json_Value with(std::move(value));
        with.Set_Place(Line, Column);
        return with;
    }

    void Write(Json_Writer& json) const;

private:
    std::variant<std::nullptr_t, bool, double, std::string, Array, Object> Held = nullptr;
    int Line = 0, Column = 0;
};

// Throws File_Error with line and column for what is not JSON, holds the same member twice, or is nested deeper than
// anything that the programs write.
Json_Value Parse_Json(std::string_view text);

} // namespace orvel
