#include "core/shown_path.h"

#include "core/code_page.h"

#include <algorithm>

std::string Shown(std::string_view utf8)
{
    if (const auto whole = From_Utf8(utf8))
        return *whole;
    std::string shown;
    while (!utf8.empty()) {
        const auto next = std::find_if(utf8.begin() + 1, utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; });
        const auto length = static_cast<std::size_t>(next - utf8.begin());
        shown += From_Utf8(utf8.substr(0, length)).value_or("?");
        utf8.remove_prefix(length);
    }
    return shown;
}

std::string Shown_Path(const std::filesystem::path& path)
{
    return Shown(std::string_view(path.native()));
}
