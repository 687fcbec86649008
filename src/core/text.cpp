#include "core/text.h"

#include "core/error.h"

#include <algorithm>

namespace orvel {

std::string_view Trim(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view Columns(std::string_view line, std::size_t first, std::size_t width)
{
    if (first < 1 || first > line.size())
        return {};
    return line.substr(first - 1, width);
}

std::string_view Next_Token(std::string_view& line)
{
    const auto start = line.find_first_not_of(' ');
    line.remove_prefix(start == std::string_view::npos ? line.size() : start);
    const auto blank = line.find(' ');
    if (blank == std::string_view::npos) {
        const auto token = line;
        line = {};
        return token;
    }
    const auto token = line.substr(0, blank + 1);
    line.remove_prefix(blank);
    return token;
}

std::string Next_Token(std::string& line)
{
    std::string_view rest = line;
    std::string token(Next_Token(rest));
    line = std::string(rest);
    return token;
}

std::string Comma_To_Point(std::string_view text)
{
    std::string result(text);
    std::ranges::replace(result, ',', '.');
    return result;
}

std::string Replace_All(std::string text, std::string_view what, std::string_view by)
{
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
    return text;
}

std::string Upper(std::string_view text)
{
    std::string result(text);
    std::ranges::transform(result, result.begin(), Upper_Letter);
    return result;
}

std::string Lower(std::string_view text)
{
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return result;
}

bool Same_Text(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, Upper_Letter, Upper_Letter);
}

std::string_view Line_Reader::Next()
{
    if (Rest.empty())
        throw File_Error(Number == 0 ? "The file is empty." : "The file ends behind this line.", Number);
    const auto end = Rest.find('\n');
    auto line = Rest.substr(0, end);
    Rest.remove_prefix(end == std::string_view::npos ? Rest.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    ++Number;
    return line;
}

void Line_Reader::Skip(int lines)
{
    for (int i = 0; i < lines; ++i)
        Next();
}

std::vector<std::string_view> Split_Lines(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (Line_Reader reader(text); !reader.At_End();)
        lines.push_back(reader.Next());
    return lines;
}

} // namespace orvel
