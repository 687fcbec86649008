#include "programs/console.h"

#include "core/code_page.h"
#include "core/system/terminal.h"

#include <iostream>

namespace orvel {

void Tell(std::string_view title, std::string_view text)
{
    std::cerr << To_Utf8(title) << ": " << To_Utf8(text) << '\n';
}

Progress Shown_Progress()
{
    if (!Error_Is_Terminal())
        return {};
    return [](const std::string& message, double) {
        std::cerr << '\r' << message << "\033[K" << std::flush;
        return true;
    };
}

void Clear_Progress()
{
    if (Error_Is_Terminal())
        std::cerr << "\r\033[K" << std::flush;
}

} // namespace orvel
