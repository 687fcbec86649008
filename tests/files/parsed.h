#pragma once

#include "core/error.h"
#include "core/text.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orvel {

inline std::unique_ptr<Pesticide_Document> Parsed_PSM(std::string_view bytes)
{
    auto document = std::make_unique<Pesticide_Document>();
    Parse_PSM(bytes, *document);
    return document;
}

inline Scenario_Document Parsed_SZE(std::string_view bytes)
{
    Scenario_Document document;
    Reset_SZE(document);
    Parse_SZE(bytes, document);
    return document;
}

// A text with its one place of `what` replaced; the test stops where there is none.
inline std::string With(std::string_view text, std::string_view what, std::string_view by)
{
    std::string result(text);
    const auto at = result.find(what);
    if (at == std::string::npos)
        throw std::logic_error("the text has no " + std::string(what));
    return result.replace(at, what.size(), by);
}

// Line n of a text, 1-based, without its end.
inline std::string Line_Of(std::string_view text, std::size_t n)
{
    return std::string(Split_Lines(text).at(n - 1));
}

// The line behind the first one that begins with `start`.
inline std::string Line_Behind(std::string_view text, std::string_view start)
{
    const auto lines = Split_Lines(text);
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        if (lines[i].starts_with(start))
            return std::string(lines[i + 1]);
    }
    return "no such line";
}

} // namespace orvel
