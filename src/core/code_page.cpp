#include "core/code_page.h"

#include "core/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace orvel {

namespace {

// Code points of the bytes 0x80 to 0x9F.
constexpr std::array<char16_t, 32> Upper_Controls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Letter {
    char Dos, Ansi;
};
constexpr std::array<Letter, 3> Letters = {
    {{'\x83', '\xE2'}, {'\x81', '\xFC'}, {'\xE1', '\xDF'}}}; // a circumflex, u umlaut, sharp s

char32_t Code_Point(unsigned char byte)
{
    return byte >= 0x80 && byte <= 0x9F ? Upper_Controls[byte - 0x80U] : byte;
}

std::optional<char> Byte_Of(char32_t code)
{
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return static_cast<char>(code);
    for (std::size_t i = 0; i < Upper_Controls.size(); ++i) {
        if (Upper_Controls[i] == code)
            return static_cast<char>(0x80 + i);
    }
    return std::nullopt;
}

// Takes the first character off a UTF-8 text; nothing if it is malformed or longer than three bytes.
std::optional<char32_t> Take_Character(std::string_view& text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xC2 && lead < 0xE0 ? 2 : lead >= 0xE0 && lead < 0xF0 ? 3 : 0;
    if (length == 0 || text.size() < length)
        return std::nullopt;
    char32_t code = length == 1 ? lead : lead & (length == 2 ? 0x1FU : 0x0FU);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0U) != 0x80)
            return std::nullopt;
        code = code << 6U | (next & 0x3FU);
    }
    if (length == 3 && code < 0x800)
        return std::nullopt;
    text.remove_prefix(length);
    return code;
}

} // namespace

std::string To_Utf8(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const char32_t code = Code_Point(static_cast<unsigned char>(byte));
        if (code < 0x80) {
            text += byte;
        } else if (code < 0x800) {
            text += static_cast<char>(0xC0U | code >> 6U);
            text += static_cast<char>(0x80U | (code & 0x3FU));
        } else {
            text += static_cast<char>(0xE0U | code >> 12U);
            text += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
            text += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return text;
}

std::optional<std::string> From_Utf8(std::string_view text)
{
    std::string bytes;
    while (!text.empty()) {
        const auto code = Take_Character(text);
        const auto byte = code ? Byte_Of(*code) : std::nullopt;
        if (!byte)
            return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}

std::string Dos_To_Ansi(std::string_view bytes)
{
    std::string result(bytes);
    for (char& c : result) {
        for (const auto& letter : Letters) {
            if (c == letter.Dos) {
                c = letter.Ansi;
                break;
            }
        }
    }
    return result;
}

std::string Ansi_To_Dos(std::string_view bytes)
{
    std::string result(bytes);
    for (char& c : result) {
        for (const auto& letter : Letters) {
            if (c == letter.Ansi) {
                c = letter.Dos;
                break;
            }
        }
    }
    return result;
}

std::string To_Code_Page(std::string_view utf8)
{
    if (const auto whole = From_Utf8(utf8))
        return *whole;
    std::string shown;
    while (!utf8.empty()) {
        const auto next = std::find_if(utf8.begin() + 1, utf8.end(),
                                       [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; });
        const auto length = static_cast<std::size_t>(next - utf8.begin());
        shown += From_Utf8(utf8.substr(0, length)).value_or("?");
        utf8.remove_prefix(length);
    }
    return shown;
}

std::string Path_Text(const std::filesystem::path& path)
{
    return To_Code_Page(path.string());
}

std::string Window_Text(std::string_view bytes)
{
    std::string text;
    for (const auto line : Split_Lines(bytes))
        text.append(line).append(CrLf);
    return Dos_To_Ansi(text);
}

} // namespace orvel
