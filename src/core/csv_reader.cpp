#include "core/csv_reader.h"

#include "core/csv.h"
#include "core/error.h"

#include <algorithm>
#include <memory>

namespace orvel {

namespace {

constexpr std::size_t Block_Size = 1U << 16U, Longest_Record = 1U << 20U;
constexpr std::string_view Separators = "\t;,"; // the first that occurs is taken

// The length of the character that a text begins with, 0 if it is not UTF-8.
std::size_t Character_Length(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    const auto rest = text.substr(std::min<std::size_t>(text.size(), 1), length > 0 ? length - 1 : 0);
    const bool whole = rest.size() + 1 == length && std::ranges::all_of(rest, [](char c) {
                           return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
                       });
    return whole ? length : 0;
}

bool Is_Utf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = Character_Length(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

// The separator of a first row: one between quotes separates nothing.
char Separator_Of(std::string_view record)
{
    std::string bare;
    bool quoted = false;
    for (const char c : record) {
        quoted = quoted != (c == '"');
        if (!quoted)
            bare += c;
    }
    const auto found = std::ranges::find_if(Separators, [&](char c) { return bare.find(c) != std::string::npos; });
    return found == Separators.end() ? ',' : *found;
}

// The field that begins at `at`, which then stands behind it.
std::string Field_At(std::string_view record, std::size_t& at, char separator, int line, int column)
{
    if (at == record.size() || record[at] != '"') {
        const auto end = std::min(record.find(separator, at), record.size());
        std::string field(record.substr(at, end - at));
        at = end;
        return field;
    }
    std::string field;
    for (++at; at < record.size(); ++at) {
        if (record[at] != '"')
            field += record[at];
        else if (at + 1 < record.size() && record[at + 1] == '"')
            field += record[++at];
        else
            break;
    }
    ++at; // the closing quote
    if (at < record.size() && record[at] != separator)
        throw File_Error("There is text behind a closing quote.", line, column);
    return field;
}

} // namespace

bool Csv_Reader::Peek(char& c)
{
    if (At == Block.size()) {
        Block.resize(Block_Size);
        Block.resize(Read(Block.data(), Block_Size));
        At = 0;
    }
    if (Block.empty())
        return false;
    c = Block[At];
    return true;
}

// In the first row, before the separator is known, each of them.
bool Csv_Reader::Parts_Fields(char c) const
{
    return Separated_By == '\0' ? Separators.find(c) != std::string_view::npos : c == Separated_By;
}

bool Csv_Reader::Take(char& c)
{
    if (!Peek(c))
        return false;
    ++At;
    return true;
}

// Reads up to the next end of a line that does not lie between quotes; false at the end of the source.
bool Csv_Reader::Take_Record()
{
    Record.clear();
    First_Line = Line + 1;
    bool quoted = false, any = false;
    std::size_t dropped = 0;
    for (char c = 0; Take(c);) {
        any = true;
        if (c == '\n') {
            ++Line;
            if (!quoted)
                break;
        }
        const bool opens = !quoted && c == '"' && (Record.empty() || Parts_Fields(Record.back()));
        char next = 0;
        if (quoted && c == '"' && Peek(next) && next == '"') {
            Take(c);
            Record += '"';
        } else if (c == '"') {
            quoted = opens;
        }
        if (Record.size() < Longest_Record)
            Record += c;
        else
            ++dropped;
        if (!Begun && Record.size() == Byte_Order_Mark.size()) {
            Begun = true;
            if (Record == Byte_Order_Mark)
                Record.clear();
        }
    }
    Begun = true;
    Is_Quoted_To_The_End = quoted;
    if (!Record.empty() && Record.back() == '\r')
        Record.pop_back();
    if (dropped > 0)
        throw File_Error("The row is too long.", First_Line);
    return any;
}

void Csv_Reader::Split(Csv_Row& row) const
{
    row.Fields.clear();
    for (std::size_t at = 0;; ++at) {
        row.Fields.push_back(Field_At(Record, at, Separated_By, First_Line, static_cast<int>(row.Fields.size()) + 1));
        if (at >= Record.size())
            return;
    }
}

bool Csv_Reader::Next(Csv_Row& row)
{
    if (!Take_Record())
        return false;
    row.Line = First_Line;
    if (Is_Quoted_To_The_End)
        throw File_Error("A quote is opened and never closed.", First_Line);
    if (Record.find('\0') != std::string::npos || !Is_Utf8(Record))
        throw File_Error("The text is not UTF-8.", First_Line);
    if (Separated_By == '\0')
        Separated_By = Separator_Of(Record);
    Split(row);
    return true;
}

Csv_Reader::Source Source_Of(std::string_view text)
{
    const auto left = std::make_shared<std::string_view>(text);
    return [left](char* to, std::size_t most) {
        const std::size_t count = left->copy(to, most);
        left->remove_prefix(count);
        return count;
    };
}

} // namespace orvel
