// The pages of the guide: no link leads nowhere, no picture is missing or left over.
#include "core/files.h"
#include "core/text.h"

#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>

namespace orvel {

namespace fs = std::filesystem;

namespace {

const fs::path Docs = DOCS;
const fs::path Guide = Docs / "guide";

std::vector<fs::path> Pages()
{
    std::vector<fs::path> pages;
    for (const auto& name : List_Files(Guide, "*.md"))
        pages.push_back(Guide / name);
    return pages;
}

// The anchor of a heading, as pages of Markdown have it: small letters, digits, - for a blank.
std::string Anchor_Of(std::string_view heading)
{
    std::string anchor;
    for (const char c : Lower(heading)) {
        if (c == ' ')
            anchor += '-';
        else if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_' || (c & 0x80) != 0)
            anchor += c;
    }
    return anchor;
}

std::set<std::string> Anchors_Of(const fs::path& page)
{
    std::set<std::string> anchors;
    std::istringstream text(Read_Whole(page));
    for (std::string line; std::getline(text, line);) {
        if (const auto marks = line.find_first_not_of('#');
            marks != 0 && marks != std::string::npos && line[marks] == ' ')
            anchors.insert(Anchor_Of(line.substr(marks + 1)));
    }
    return anchors;
}

// What follows "](" in a page.
std::vector<std::string> Links_Of(const fs::path& page)
{
    const std::string text = Read_Whole(page);
    const std::regex link(R"(\]\(([^)]+)\))");
    std::vector<std::string> links;
    for (std::sregex_iterator at(text.begin(), text.end(), link), end; at != end; ++at)
        links.push_back((*at)[1]);
    return links;
}

// What is wrong with a place, "page.md#heading", as seen from a directory; empty if it is there.
std::string Wrong_With(const fs::path& directory, const std::string& place, const fs::path& self = {})
{
    const auto mark = place.find('#');
    const fs::path file = mark == 0 ? self : directory / place.substr(0, mark);
    if (!fs::exists(file))
        return place + ": no such file";
    if (mark != std::string::npos && !Anchors_Of(file).contains(place.substr(mark + 1)))
        return place + ": no such heading";
    return {};
}

} // namespace

TEST(Guide, No_Link_Leads_Nowhere)
{
    int links = 0;
    for (const auto& page : Pages()) {
        for (const auto& link : Links_Of(page)) {
            if (link.starts_with("https:"))
                continue;
            EXPECT_EQ(Wrong_With(Guide, link, page), "") << page;
            ++links;
        }
    }
    EXPECT_GT(links, 100);
}

TEST(Guide, Each_Page_Is_In_The_Contents)
{
    const auto contents = Links_Of(Guide / "index.md");
    for (const auto& page : Pages()) {
        const auto name = page.filename().string();
        EXPECT_TRUE(name == "index.md" || std::ranges::count(contents, name) > 0) << name;
    }
}

TEST(Guide, Each_Window_Has_A_Place_That_Is_There)
{
    std::istringstream text(Read_Whole(Guide / "windows.txt"));
    int windows = 0;
    for (std::string line; std::getline(text, line);) {
        std::istringstream words(line);
        std::string window;
        words >> window;
        if (window.empty() || window.starts_with('#'))
            continue;
        std::vector<std::string> places;
        for (std::string place; words >> place;) {
            EXPECT_EQ(Wrong_With(Guide, place), "") << window;
            places.push_back(place);
        }
        EXPECT_FALSE(places.empty()) << window;
        ++windows;
    }
    EXPECT_GT(windows, 50);
}

TEST(Guide, Shows_Every_Picture_And_Keeps_Them_Small)
{
    std::set<std::string> shown;
    for (const auto& page : Pages()) {
        for (const auto& link : Links_Of(page))
            shown.insert(link);
    }
    std::uintmax_t bytes = 0;
    for (const auto& name : List_Files(Guide / "pictures", "*.png")) {
        EXPECT_TRUE(shown.contains("pictures/" + name)) << name;
        bytes += fs::file_size(Guide / "pictures" / name);
    }
    EXPECT_GT(bytes, 0U);
    EXPECT_LT(bytes, 6U << 20U);
}

} // namespace orvel
