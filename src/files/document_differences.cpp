#include "files/document_differences.h"

#include "files/document_fields.h"

#include <unordered_map>
#include <utility>

namespace orvel {

namespace {

std::string Printed(const std::string& text)
{
    return text;
}

std::string Printed(const Variant& value)
{
    return value.Text();
}

std::string Printed(double value)
{
    return General_Text(value);
}

std::string Printed(std::optional<double> value)
{
    return value ? General_Text(*value) : "";
}

std::string Printed(const std::optional<Rotation_Date>& date)
{
    return date ? General_Text(date->Day) + "." + General_Text(date->Month) + "." + General_Text(date->Year) : "";
}

// The names and values of a document's fields in use.
class Difference_Lister {
public:
    template <class Record> void List(const std::string& prefix, const Record& record)
    {
        Visit(record, [&](const auto& field, const auto& value) { Member(prefix, record, field, value); });
    }

    std::vector<Field_Value> Fields;

private:
    template <class Record, class Value> void Member(const std::string& prefix, const Record& record,
                                                     const Record_Field<Record, Value>& field, const Value& value)
    {
        const std::string name = prefix + std::string(field.Name);
        if constexpr (!Is_Array<Value>)
            Fields.push_back({name, Printed(value)});
        else if (const Elements used = field.Used(record); used.Is_In_Use)
            List_Array(name, value, used, [&](std::size_t i) { return field.Used_Within(record, i); });
    }

    template <class Array, class Inner_Rule>
    void List_Array(const std::string& name, const Array& array, Elements used, Inner_Rule used_within)
    {
        for (std::size_t i = used.First; i < std::min(array.size(), used.End); ++i) {
            const std::string element = name + "[" + std::to_string(i) + "]";
            using Value = typename Array::value_type;
            if constexpr (Is_Array<Value>)
                List_Array(element, array[i], used_within(i), [](std::size_t) { return Elements(); });
            else if constexpr (Is_Record<Value>)
                List(element + ".", array[i]);
            else
                Fields.push_back({element, Printed(array[i])});
        }
    }
};

template <class Document> std::vector<Difference> Compare(const Document& first, const Document& second)
{
    Difference_Lister one, other;
    one.List("", first);
    other.List("", second);
    std::unordered_map<std::string, std::string> others;
    for (const auto& [name, value] : other.Fields)
        others.emplace(name, value);
    std::vector<Difference> differences;
    for (const auto& [name, value] : one.Fields) {
        const auto found = others.find(name);
        if (found == others.end())
            differences.push_back({name, value, ""});
        else if (found->second != value)
            differences.push_back({name, value, found->second});
        if (found != others.end())
            others.erase(found);
    }
    for (const auto& [name, value] : other.Fields) {
        if (others.contains(name))
            differences.push_back({name, "", value});
    }
    return differences;
}

template <class Document> std::vector<Field_Value> List(const Document& document)
{
    Difference_Lister lister;
    lister.List("", document);
    return std::move(lister.Fields);
}

} // namespace

std::vector<Field_Value> Values_In_Use(const Pesticide_Document& document)
{
    return List(document);
}

std::vector<Field_Value> Values_In_Use(const Scenario_Document& document)
{
    return List(document);
}

std::vector<Difference> Differences(const Pesticide_Document& first, const Pesticide_Document& second)
{
    return Compare(first, second);
}

std::vector<Difference> Differences(const Scenario_Document& first, const Scenario_Document& second)
{
    return Compare(first, second);
}

std::vector<Difference> Differences(const Climate_Table& first, const Climate_Table& second)
{
    return Compare(first, second);
}

} // namespace orvel
