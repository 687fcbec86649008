#include "core/json.h"

#include "core/code_page.h"

namespace orvel {

namespace {

constexpr std::size_t Indent = 2;

std::string Quoted_Utf8(std::string_view utf8)
{
    constexpr std::string_view hex = "0123456789abcdef";
    std::string text = "\"";
    for (const char c : utf8) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            text += {'\\', c};
        else if (code < 0x20 || code == 0x7F)
            text += {'\\', 'u', '0', '0', hex[code >> 4U], hex[code & 0xFU]};
        else
            text += c;
    }
    return text + '"';
}

std::string Quoted(std::string_view bytes)
{
    return Quoted_Utf8(To_Utf8(bytes));
}

} // namespace

void Json_Writer::Value(std::string_view text)
{
    Scalar(Quoted(text));
}

void Json_Writer::Value(const Variant& value)
{
    if (value.Is_Text())
        Value(value.Text());
    else
        Value(value.Number());
}

void Json_Writer::Utf8_Value(std::string_view text)
{
    Scalar(Quoted_Utf8(text));
}

void Json_Writer::Key(std::string_view key)
{
    Utf8_Key(To_Utf8(key));
}

void Json_Writer::Utf8_Key(std::string_view key)
{
    Separate(true);
    Out += Quoted_Utf8(key) + ": ";
    Is_Behind_Key = true;
}

void Json_Writer::Open(char bracket)
{
    Separate(true);
    Out += bracket;
    ++Depth;
    Is_First = true;
    Has_Lines = false;
}

void Json_Writer::Close(char bracket)
{
    --Depth;
    if (Has_Lines) {
        Out += '\n';
        Out.append(Indent * static_cast<std::size_t>(Depth), ' ');
    }
    Out += bracket;
    Is_First = false;
    Has_Lines = true; // so the enclosing array or object has them, too
}

void Json_Writer::Scalar(std::string_view text)
{
    Separate(false);
    Out += text;
}

void Json_Writer::Separate(bool on_a_new_line)
{
    if (Is_Behind_Key) {
        Is_Behind_Key = false;
        return;
    }
    if (!Is_First)
        Out += ',';
    if (on_a_new_line && Depth > 0) {
        Out += '\n';
        Out.append(Indent * static_cast<std::size_t>(Depth), ' ');
        Has_Lines = true;
    } else if (!Is_First) {
        Out += ' ';
    }
    Is_First = false;
}

} // namespace orvel
