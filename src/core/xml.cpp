#include "core/xml.h"

#include "core/code_page.h"

namespace orvel {

std::string Xml_Text(std::string_view bytes)
{
    std::string text;
    for (const char c : To_Utf8(bytes)) {
        switch (c) {
        case '&':
            text += "&amp;";
            break;
        case '<':
            text += "&lt;";
            break;
        case '>':
            text += "&gt;";
            break;
        case '"':
            text += "&quot;";
            break;
        case '\'':
            text += "&#39;";
            break;
        default:
            text += static_cast<unsigned char>(c) < ' ' || c == '\x7F' ? ' ' : c;
        }
    }
    return text;
}

std::string Xml_Element(std::string_view name, std::string_view attributes, std::string_view inner)
{
    const std::string tag(name);
    return "<" + tag + std::string(attributes) + ">" + std::string(inner) + "</" + tag + ">";
}

} // namespace orvel
