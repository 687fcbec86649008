#include "ui/guide.h"

#include "core/code_page.h"

#include <cstdlib>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* Guide_Box = "Guide";

} // namespace

fs::path Guide_Directory(const fs::path& program)
{
    if (const char* named = std::getenv("ORVELSUITE_GUIDE"); named && *named)
        return named;
    std::error_code ignored;
    if (auto unpacked = program.parent_path() / "guide"; fs::exists(unpacked / "index.html", ignored))
        return unpacked;
    const fs::path beside = program.parent_path().parent_path();
    if (auto built = beside / "guide"; fs::exists(built / "index.html", ignored))
        return built;
    return beside / "share" / "orvelsuite" / "guide";
}

fs::path Guide_Page(const fs::path& guide, const std::vector<std::string>& windows)
{
    std::error_code ignored;
    for (const auto& window : windows) {
        if (auto page = guide / "windows" / (window + ".html"); !window.empty() && fs::exists(page, ignored))
            return page;
    }
    return guide / "index.html";
}

Message Guide_Not_Installed(const fs::path& guide)
{
    return {Guide_Box, "The guide is not installed: there is no " + Path_Text(guide / "index.html") + "."};
}

Message Guide_Not_Shown(const fs::path& page)
{
    return {Guide_Box, "No program was found that shows the guide. Its page here is " + Path_Text(page) + "."};
}

} // namespace orvel
