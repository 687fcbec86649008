#include "core/json_reader.h"

#include "core/error.h"

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

// Builds the values as the parser meets them, so that the depth is bounded before anything is built.
class Builder : public nlohmann::json_sax<nlohmann::json> {
public:
    explicit Builder(std::string_view text) : Source(text) {}

    Json_Value Root;

    bool null() override { return Add(Json_Value()); }
    bool boolean(bool value) override { return Add(Json_Value(value)); }
    bool number_integer(number_integer_t value) override { return Add(Json_Value(static_cast<double>(value))); }
    bool number_unsigned(number_unsigned_t value) override { return Add(Json_Value(static_cast<double>(value))); }
    bool number_float(number_float_t value, const string_t&) override { return Add(Json_Value(value)); }
    bool string(string_t& value) override { return Add(Json_Value(std::move(value))); }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override { return Open(Level{.Is_Object = true}); }
    bool start_array(std::size_t) override { return Open(Level{}); }
    bool end_object() override { return Close(); }
    bool end_array() override { return Close(); }
    bool key(string_t& name) override
    {
        auto& members = Levels.back().Members;
        if (std::ranges::find(members, name, &Json_Value::Object::value_type::first) != members.end())
            throw File_Error("The member \"" + name + "\" stands twice.");
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
        std::string Key;
        Json_Value::Object Members;
        Json_Value::Array Elements;
    };

    bool Open(Level level)
    {
        if (Levels.size() >= Deepest)
            throw File_Error("The text is nested too deep.");
        Levels.push_back(std::move(level));
        return true;
    }

    bool Close()
    {
        Level level = std::move(Levels.back());
        Levels.pop_back();
        return Add(level.Is_Object ? Json_Value(std::move(level.Members)) : Json_Value(std::move(level.Elements)));
    }

    bool Add(Json_Value value)
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
    std::vector<Level> Levels;
};

template <class T, class Held> const T& Of_Type(const Held& held, const char* what)
{
    const auto* value = std::get_if<T>(&held);
    if (value == nullptr)
        throw File_Error(std::string("It is not ") + what + ".");
    return *value;
}

} // namespace

const std::string& Json_Value::Text() const
{
    return Of_Type<std::string>(Held, "a text");
}

double Json_Value::Number() const
{
    return Of_Type<double>(Held, "a number");
}

long long Json_Value::Whole_Number() const
{
    const double number = Number();
    if (!(number >= 0 && number <= Largest_Whole) || number != static_cast<double>(static_cast<long long>(number)))
        throw File_Error("It is not a whole number.");
    return static_cast<long long>(number);
}

const Json_Value::Array& Json_Value::Elements() const
{
    return Of_Type<Array>(Held, "an array");
}

const Json_Value::Object& Json_Value::Members() const
{
    return Of_Type<Object>(Held, "an object");
}

const Json_Value& Json_Value::At(std::string_view name) const
{
    if (const Json_Value* member = Find(name))
        return *member;
    throw File_Error("The member \"" + std::string(name) + "\" is missing.");
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
    nlohmann::json::sax_parse(text, &builder);
    return std::move(builder.Root);
}

} // namespace orvel
