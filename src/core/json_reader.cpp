#include "core/json_reader.h"

#include "core/error.h"
#include "core/json.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace orvel {

namespace {

constexpr std::size_t Deepest = 32;
constexpr double Largest_Whole = 9007199254740992.0; // 2^53

[[noreturn]] void Refuse_At(std::string_view text, std::size_t place, const std::string& reason)
{
    const auto before = text.substr(0, std::min(place, text.size()));
    const auto line_start = before.rfind('\n');
    throw File_Error(reason, static_cast<int>(std::ranges::count(before, '\n')) + 1,
                     static_cast<int>(before.size() - (line_start == std::string_view::npos ? 0 : line_start + 1)));
}

// The text as the parser takes it, character by character; `place` is behind the last one taken.
class Counting_Iterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    Counting_Iterator(const char* at, const char*& taken) : At(at), Taken(&taken) {}
    reference operator*() const { return *At; }
    Counting_Iterator& operator++()
    {
        *Taken = ++At;
        return *this;
    }
    Counting_Iterator operator++(int)
    {
        Counting_Iterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const Counting_Iterator& other) const { return At == other.At; }

private:
    const char* At;
    const char** Taken;
};

// Builds the values as the parser meets them, so that the depth is bounded before anything is built.
class Builder : public nlohmann::json_sax<nlohmann::json> {
public:
    explicit Builder(std::string_view text) : Source(text), Counted(text.data()), Taken(text.data()) {}

    Json_Value Root;
    const char*& Last_Taken() { return Taken; }

    bool null() override { return Add(Json_Value()); }
    bool boolean(bool value) override { return Add(Json_Value(value)); }
    bool number_integer(number_integer_t value) override { return Add(Json_Value(static_cast<double>(value))); }
    bool number_unsigned(number_unsigned_t value) override { return Add(Json_Value(static_cast<double>(value))); }
    bool number_float(number_float_t value, const string_t&) override { return Add(Json_Value(value)); }
    bool string(string_t& value) override { return Add(Json_Value(std::move(value))); }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override { return Open({.Is_Object = true}); }
    bool start_array(std::size_t) override { return Open({}); }
    bool end_object() override { return Close(); }
    bool end_array() override { return Close(); }
    bool key(string_t& name) override
    {
        auto& members = Levels.back().Members;
        if (std::ranges::find(members, name, &Json_Value::Object::value_type::first) != members.end()) {
            Json_Value twice;
            Place(twice);
            twice.Refuse("The member \"" + name + "\" stands twice.");
        }
        Levels.back().Key = std::move(name);
        return true;
    }
    bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception&) override
    {
        Refuse_At(Source, position, "This is not JSON.");
    }

private:
    struct Level {
        bool Is_Object = false;
        std::string Key{};
        Json_Value::Object Members{};
        Json_Value::Array Elements{};
        Json_Value Begin{}; // holds its place
    };

    bool Open(Level level)
    {
        if (Levels.size() >= Deepest)
            throw File_Error("The text is nested too deep.");
        Place(level.Begin);
        Levels.push_back(std::move(level));
        return true;
    }

    // Gives a value the place of the token just taken.
    void Place(Json_Value& value)
    {
        for (; Counted < Taken; ++Counted) {
            if (*Counted == '\n') {
                ++Line;
                Line_Start = Counted + 1;
            }
        }
        value.Set_Place(Line, static_cast<int>(std::max(Token_Start(), Line_Start) - Line_Start) + 1);
    }

    // Back from its end. No token but a text holds what ends one; a number has been taken with the character behind it.
    const char* Token_Start() const
    {
        constexpr std::string_view Ends = " \t\r\n,:[]{}\"";
        const auto ends_token = [&](const char* at) { return Ends.find(*at) != std::string_view::npos; };
        const char* const begin = Source.data();
        if (Taken == begin)
            return begin;
        const char* at = Taken - 1;
        if (*at == '"') {
            for (--at; at > begin && !(*at == '"' && !Is_Escaped(at)); --at) {
            }
            return at;
        }
        if (*at == '{' || *at == '[')
            return at;
        while (at > begin && ends_token(at))
            --at;
        while (at > begin && !ends_token(at - 1))
            --at;
        return at;
    }

    bool Is_Escaped(const char* quote) const
    {
        std::size_t slashes = 0;
        while (quote - static_cast<std::ptrdiff_t>(slashes) > Source.data() &&
               *(quote - static_cast<std::ptrdiff_t>(slashes) - 1) == '\\')
            ++slashes;
        return slashes % 2 == 1;
    }

    bool Close()
    {
        Level level = std::move(Levels.back());
        Levels.pop_back();
        level.Begin =
            level.Is_Object ? level.Begin.With(std::move(level.Members)) : level.Begin.With(std::move(level.Elements));
        return Put(std::move(level.Begin));
    }

    bool Add(Json_Value value)
    {
        Place(value);
        return Put(std::move(value));
    }

    bool Put(Json_Value value)
    {
        if (Levels.empty())
            Root = std::move(value);
        else if (Levels.back().Is_Object)
            Levels.back().Members.emplace_back(std::move(Levels.back().Key), std::move(value));
        else
            Levels.back().Elements.push_back(std::move(value));
        return true;
    }

    std::string_view Source;
    const char *Counted, *Taken; // lines are counted up to the first; the parser has taken what precedes the second
    int Line = 1;
    const char* Line_Start = Counted;
    std::vector<Level> Levels;
};

template <class T, class Held> const T& Of_Type(const Json_Value& value, const Held& held, const char* what)
{
    const auto* const found = std::get_if<T>(&held);
    if (found == nullptr)
        value.Refuse(std::string("It is not ") + what + ".");
    return *found;
}

} // namespace

void Json_Value::Refuse(const std::string& reason) const
{
    throw File_Error(reason, Line, Column);
}

const std::string& Json_Value::Text() const
{
    return Of_Type<std::string>(*this, Held, "a text");
}

bool Json_Value::Truth() const
{
    return Of_Type<bool>(*this, Held, "true or false");
}

double Json_Value::Number() const
{
    return Of_Type<double>(*this, Held, "a number");
}

long long Json_Value::Whole_Number() const
{
    const double number = Number();
    if (!(number >= 0 && number <= Largest_Whole) || number != static_cast<double>(static_cast<long long>(number)))
        Refuse("It is not a whole number.");
    return static_cast<long long>(number);
}

const Json_Value::Array& Json_Value::Elements() const
{
    return Of_Type<Array>(*this, Held, "an array");
}

const Json_Value::Object& Json_Value::Members() const
{
    return Of_Type<Object>(*this, Held, "an object");
}

const Json_Value& Json_Value::At(std::string_view name) const
{
    if (const Json_Value* member = Find(name))
        return *member;
    Refuse("The member \"" + std::string(name) + "\" is missing.");
}

const Json_Value* Json_Value::Find(std::string_view name) const
{
    const Object& members = Members();
    const auto found = std::ranges::find(members, name, &Object::value_type::first);
    return found == members.end() ? nullptr : &found->second;
}

Json_Value Parse_Json(std::string_view text)
{
    Builder builder(text);
    const char*& taken = builder.Last_Taken();
    nlohmann::json::sax_parse(Counting_Iterator(text.data(), taken),
                              Counting_Iterator(text.data() + text.size(), taken), &builder);
    return std::move(builder.Root);
}

void Json_Value::Write(Json_Writer& json) const
{
    if (const auto* members = std::get_if<Object>(&Held)) {
        json.Object([&] {
            for (const auto& [name, value] : *members) {
                json.Utf8_Key(name);
                value.Write(json);
            }
        });
    } else if (const auto* elements = std::get_if<Array>(&Held)) {
        json.Array([&] {
            for (const auto& element : *elements)
                element.Write(json);
        });
    } else if (const auto* text = std::get_if<std::string>(&Held)) {
        json.Utf8_Value(*text);
    } else if (const auto* number = std::get_if<double>(&Held)) {
        json.Value(*number);
    } else if (const auto* truth = std::get_if<bool>(&Held)) {
        json.Value(*truth);
    } else {
        json.Null();
    }
}

} // namespace orvel
