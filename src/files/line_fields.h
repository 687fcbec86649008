#pragma once

#include "files/lines.h"
#include "files/lost_field.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvel {

// What is lost where every field compared equal and yet the text could not be parsed.
inline Lost_Field Unreadable()
{
    return {"A count or the end of the file", "cannot be found"};
}

// Lists the fields of lines as a file must return them: texts, and numbers to the digits that the file keeps. Prints
// the lines as it goes, to find a field that runs into the column behind it.
class Line_Fields {
public:
    // What the fields that follow belong to; empty for the document itself.
    void About(std::string subject) { Subjects.push_back(std::move(subject)); }

    Line_Fields& Field(double value, std::string_view name)
    {
        Out.Field(value, name);
        return Keep(General_Text(value), name);
    }
    Line_Fields& Field(const Variant& value, std::string_view name)
    {
        Out.Field(value, name);
        Keep(General_Text(Meant(value)), name);
        List.back().Is_Empty = value.Is_Text() && Trim(value.Text()).empty();
        return *this;
    }
    Line_Fields& Value_Of(const Variant& value, std::string_view name) { return Field(value.Number(), name); }
    Line_Fields& Whole(std::int16_t value, std::string_view name) { return Field(value, name); }
    template <class Value> Line_Fields& Scientific(const Value& value, std::string_view name)
    {
        Out.Scientific(value, name);
        return Keep(General_Text(Val(Number_Text('E', value, Scientific_Width))), name);
    }
    template <class Value> Line_Fields& Pattern(const Value& value, std::string_view pattern, std::string_view name)
    {
        const std::string text = Format_Pattern(Variant(value).Number(), pattern);
        Out.Text(text);
        return Keep(General_Text(Val(text)), name);
    }
    Line_Fields& Text_Field(const Variant& value, std::string_view name) { return Text_Field(value.Print(), name); }
    Line_Fields& Text_Field(const std::string& text, std::string_view name)
    {
        Out.Text(text);
        return Keep(std::string(Trim(text)), name);
    }

    Line_Fields& Tag(std::string_view text) { return Text(text); }
    Line_Fields& Text(std::string_view text)
    {
        Out.Text(text);
        return *this;
    }
    Line_Fields& Spc(int blanks)
    {
        Out.Spc(blanks);
        return *this;
    }
    Line_Fields& Tab(int column)
    {
        const auto before = Out.Printed().size();
        Out.Tab(column);
        if (!List.empty() && Out.Printed().find(CrLf, before) == before)
            List.back().Too_Wide = true;
        return *this;
    }
    Line_Fields& Zone()
    {
        Out.Zone();
        return *this;
    }
    void End() { Out.End(); }

    // The first field that the other list lacks; if a field before it is too wide for its column, that one, since it
    // is the cause.
    std::optional<Lost_Field> First_Not_In(const Line_Fields& other) const
    {
        const auto lost = std::ranges::mismatch(List, other.List, [](const Kept& a, const Kept& b) {
                              return a.Name == b.Name && a.Text == b.Text;
                          }).in1;
        if (lost == List.end())
            return std::nullopt;
        const auto wide = std::find_if(List.begin(), lost, [](const Kept& kept) { return kept.Too_Wide; });
        return Lost_Field{Full_Name(*wide), Cause(*wide)};
    }

private:
    struct Kept {
        std::string_view Name; // of a literal
        std::size_t Subject;
        std::string Text;
        bool Too_Wide = false, Is_Empty = false;
    };

    Line_Fields& Keep(std::string text, std::string_view name)
    {
        List.push_back({name, Subjects.size() - 1, std::move(text)});
        return *this;
    }

    // What the user means by a text: readers do not know the decimal comma.
    static double Meant(const Variant& value)
    {
        return value.Is_Text() ? Val(Comma_To_Point(value.Text())) : value.Number();
    }

    std::string Full_Name(const Kept& kept) const
    {
        const auto& subject = Subjects[kept.Subject];
        return std::string(kept.Name) + (subject.empty() ? "" : " of " + subject);
    }

    // Only texts hold what ends or breaks them.
    static std::string Cause(const Kept& kept)
    {
        if (kept.Is_Empty)
            return "is empty";
        if (kept.Text.find_first_of(CrLf) != std::string::npos)
            return "holds a line break";
        if (kept.Text.find('<') != std::string::npos)
            return "holds a \"<\", which ends a text in the file";
        return "is too long for its column";
    }

    std::vector<std::string> Subjects{""};
    std::vector<Kept> List;
    Line_Out Out;
};

} // namespace orvel
