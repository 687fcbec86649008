#include "files/document_values.h"

#include "core/text.h"
#include "files/document_fields.h"

#include <charconv>
#include <cmath>

namespace orvel {

namespace {

// What follows from other fields, or says how many of them there are: a single value of it cannot be replaced.
constexpr std::array<std::string_view, 13> Derived = {
    "Met_Present",      "Bound_Active",    "Trans_Active",    "App_Loc_Count", "App_Count",
    "PSM_Legacy_Volat", "N_Horizons",      "SZE_Crop_Count",  "SZE_Rot_Count", "SZE_Horizons",
    "SZE_Runoff",       "SZE_Sen_In_File", "SZE_Legacy_Crops"};

enum class Found { Unknown, Not_In_Use, Yes };

// Takes "Name" off the front of "Name[1][2].Rest"; empty if there is none.
std::string_view Take_Name(std::string_view& path)
{
    const auto name = path.substr(0, path.find_first_of("[]."));
    path.remove_prefix(name.size());
    return name;
}

// Takes "[12]" off the front; nothing if there is none.
std::optional<std::size_t> Take_Index(std::string_view& path)
{
    constexpr std::size_t Most_Digits = 6;
    const auto close = path.find(']');
    if (path.empty() || path.front() != '[' || close == std::string_view::npos)
        return std::nullopt;
    const auto digits = path.substr(1, close - 1);
    std::size_t index = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
    const bool plain = digits.size() == 1 || (!digits.empty() && digits.front() != '0');
    if (error != std::errc() || end != digits.data() + digits.size() || digits.size() > Most_Digits || !plain)
        return std::nullopt;
    path.remove_prefix(close + 1);
    return index;
}

bool Take_Point(std::string_view& path)
{
    const bool is_there = !path.empty() && path.front() == '.';
    if (is_there)
        path.remove_prefix(1);
    return is_there;
}

// Calls use(value) for the field of a record at the end of a path.
template <class Record, class Use> Found Find_In(Record& record, std::string_view path, Use& use);

template <class Value, class Use> Found Find_Value(Value& value, std::string_view path, Use& use)
{
    if constexpr (Is_Record<std::remove_const_t<Value>>)
        return Take_Point(path) ? Find_In(value, path, use) : Found::Unknown;
    if (!path.empty())
        return Found::Unknown;
    if constexpr (!Is_Record<std::remove_const_t<Value>>)
        use(value);
    return Found::Yes;
}

// An element that the document does not have serves to tell whether the rest of the path is one.
template <class Value, class Use> Found Find_In_Blank(std::string_view path)
{
    Value blank{};
    const auto nothing = [](const auto&) {};
    const Found found = Find_Value(blank, path, nothing);
    return found == Found::Unknown ? found : Found::Not_In_Use;
}

template <class Array, class Use, class Inner_Rule>
Found Find_Element(Array& array, Elements used, Inner_Rule used_within, std::string_view path, Use& use)
{
    using Value = typename std::remove_const_t<Array>::value_type;
    constexpr bool Is_Growing = std::is_same_v<std::remove_const_t<Array>, std::vector<Value>>;
    const auto index = Take_Index(path);
    if (!index || (!Is_Growing && *index >= array.size()))
        return Found::Unknown;
    const bool in_use = used.Is_In_Use && *index >= used.First && *index < used.End && *index < array.size();
    if constexpr (Is_Array<Value>) {
        const auto within = [](std::size_t) { return Elements(); };
        const Elements inner = used_within(*index);
        if (*index >= array.size())
            return Found::Not_In_Use;
        Elements limited = inner;
        limited.Is_In_Use = limited.Is_In_Use && in_use;
        return Find_Element(array[*index], limited, within, path, use);
    } else {
        return in_use ? Find_Value(array[*index], path, use) : Find_In_Blank<Value, Use>(path);
    }
}

template <class Record, class Use> Found Find_In(Record& record, std::string_view path, Use& use)
{
    const auto name = Take_Name(path);
    Found found = Found::Unknown;
    Visit(record, [&](const auto& field, auto& value) {
        using Value = std::remove_cvref_t<decltype(value)>;
        if (field.Name != name)
            return;
        if constexpr (Is_Array<Value>)
            found = Find_Element(
                value, field.Used(record), [&](std::size_t i) { return field.Used_Within(record, i); }, path, use);
        else
            found = Find_Value(value, path, use);
    });
    return found;
}

std::optional<double> Number_In(std::string_view text)
{
    double number = 0;
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::string Quoted(std::string_view text)
{
    return "'" + std::string(text) + "'";
}

// Puts a text into a value, or tells why not.
class Replacer {
public:
    explicit Replacer(std::string_view text) : Text(text) {}

    void operator()(double& value)
    {
        Take_Number([&](double number) { value = number; });
    }
    void operator()(std::optional<double>& value)
    {
        Take_Number([&](double number) { value = number; });
    }
    void operator()(std::int16_t& value) { Take_Whole(value); }
    void operator()(std::uint8_t& value) { Take_Whole(value); }
    void operator()(bool& value)
    {
        std::uint8_t number = 0;
        Take_Whole(number);
        value = number != 0;
    }
    void operator()(std::string& value) { value = Text; }
    void operator()(std::optional<Rotation_Date>&) {}
    void operator()(Variant& value)
    {
        if (value.Is_Text() && !Number_In(Trim(value.Text())))
            value = Variant::Verbatim(Text);
        else
            Take_Number([&](double number) { value = number; });
    }

    std::string Reason;

private:
    template <class Take> void Take_Number(Take take)
    {
        if (const auto number = Number_In(Text))
            take(*number);
        else
            Reason = Quoted(Text) + (Number_In(Comma_To_Point(Text)) ? " has a decimal comma: write a decimal point."
                                                                     : " is not a number.");
    }

    template <class Whole> void Take_Whole(Whole& value)
    {
        Take_Number([&](double number) {
            if (number != std::trunc(number) || number < std::numeric_limits<Whole>::min() ||
                number > std::numeric_limits<Whole>::max())
                Reason = Quoted(Text) + " is not a whole number of this field.";
            else
                value = static_cast<Whole>(number);
        });
    }

    std::string_view Text;
};

struct Printer {
    std::string Text;
    void operator()(const std::string& value) { Text = value; }
    void operator()(const Variant& value) { Text = value.Text(); }
    void operator()(double value) { Text = General_Text(value); }
    void operator()(const std::optional<double>& value) { Text = value ? General_Text(*value) : ""; }
    void operator()(const std::optional<Rotation_Date>&) {}
};

template <class Document> std::string Why_Not_A_Field(const Document& blank, std::string_view name)
{
    std::string_view path = name;
    if (std::ranges::find(Derived, Take_Name(path)) != Derived.end())
        return "The field " + std::string(name) + " follows from others and cannot be replaced.";
    const auto nothing = [](const auto&) {};
    return Find_In(blank, name, nothing) == Found::Unknown ? "There is no field " + std::string(name) + "." : "";
}

template <class Document> std::optional<std::string> Value_In(const Document& document, std::string_view name)
{
    Printer printer;
    return Find_In(document, name, printer) == Found::Yes ? std::optional(printer.Text) : std::nullopt;
}

template <class Document> std::string Replace_In(Document& document, std::string_view name, std::string_view text)
{
    Replacer replacer(text);
    switch (Find_In(document, name, replacer)) {
    case Found::Unknown:
        return "There is no field " + std::string(name) + ".";
    case Found::Not_In_Use:
        return "This document has no " + std::string(name) + ".";
    case Found::Yes:
        break;
    }
    return replacer.Reason;
}

} // namespace

std::string Why_Not_A_Pesticide_Field(std::string_view name)
{
    static const auto blank = std::make_unique<const Pesticide_Document>();
    return Why_Not_A_Field(*blank, name);
}

std::string Why_Not_A_Scenario_Field(std::string_view name)
{
    static const Scenario_Document blank;
    return Why_Not_A_Field(blank, name);
}

std::optional<std::string> Value_Of(const Pesticide_Document& document, std::string_view name)
{
    return Value_In(document, name);
}

std::optional<std::string> Value_Of(const Scenario_Document& document, std::string_view name)
{
    return Value_In(document, name);
}

std::string Replace_Value(Pesticide_Document& document, std::string_view name, std::string_view text)
{
    return Replace_In(document, name, text);
}

std::string Replace_Value(Scenario_Document& document, std::string_view name, std::string_view text)
{
    return Replace_In(document, name, text);
}

} // namespace orvel
