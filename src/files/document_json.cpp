#include "files/document_json.h"

#include "core/json.h"
#include "files/document_fields.h"

namespace orvel {

namespace {

// What a scenario's reader keeps for the engine is no part of the document that a user edits.
constexpr std::array<std::string_view, 2> Not_Shown = {"SZE_Sen_In_File", "SZE_Legacy_Crops"};

class Json_Lines {
public:
    template <class Record> void Write(const Record& record)
    {
        Out.Object([&] { Visit(record, [&](const auto& field, const auto& value) { Member(record, field, value); }); });
    }

    std::string Written() const { return Out.Written(); }

private:
    template <class Record, class Value>
    void Member(const Record&, const Record_Field<Record, Value>& field, const Value& value)
    {
        if (std::ranges::find(Not_Shown, field.Name) != Not_Shown.end())
            return;
        Out.Key(field.Name);
        Write_Value(value);
    }

    template <class Record, class Array>
    requires Is_Array<Array>
    void Member(const Record& record, const Record_Field<Record, Array>& field, const Array& array)
    {
        const Elements used = field.Used(record);
        if (!used.Is_In_Use)
            return;
        if (!used.Counted_As.empty())
            Out.Member(used.Counted_As, array.size());
        Out.Key(field.Name);
        Write_Array(array, used, [&](std::size_t i) { return field.Used_Within(record, i); });
    }

    // Elements before the first one in use are null.
    template <class Array, class Inner_Rule> void Write_Array(const Array& array, Elements used, Inner_Rule used_within)
    {
        Out.Array([&] {
            for (std::size_t i = 0; i < std::min(array.size(), used.End); ++i) {
                if (i < used.First)
                    Out.Null();
                else if constexpr (Is_Array<typename Array::value_type>)
                    Write_Array(array[i], used_within(i), [](std::size_t) { return Elements(); });
                else
                    Write_Value(array[i]);
            }
        });
    }

    template <class Value> void Write_Value(const Value& value)
    {
        if constexpr (Is_Record<Value>)
            Write(value);
        else
            Out.Value(value);
    }
    void Write_Value(const std::optional<double>& value) { Out.Value(value.value_or(0)); } // a blank as it is written
    void Write_Value(const std::optional<Rotation_Date>&) {}

    Json_Writer Out;
};

template <class Document> std::string Json(const Document& document)
{
    Json_Lines writer;
    writer.Write(document);
    return writer.Written();
}

} // namespace

std::string Json_Of(const Pesticide_Document& document)
{
    return Json(document);
}

std::string Json_Of(const Scenario_Document& document)
{
    return Json(document);
}

std::string Json_Of(const Climate_Table& table)
{
    return Json(table);
}

} // namespace orvel
