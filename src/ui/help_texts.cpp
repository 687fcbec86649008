#include "ui/help_texts.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr std::string_view Mark = "XXX";
constexpr std::size_t Number_Column = 4;
constexpr std::size_t Number_Width = 100;
constexpr double Most_Texts = 1000;

// The number in the last head line before the end mark.
std::size_t Last_Number(const std::vector<std::string_view>& lines)
{
    double last = 0;
    for (const auto line : lines) {
        if (line == Mark)
            break;
        if (line.starts_with(Mark))
            last = Val(Columns(line, Number_Column, Number_Width));
    }
    return static_cast<std::size_t>(std::clamp(last, 0.0, Most_Texts));
}

} // namespace

std::vector<std::string> Parse_Help_Texts(std::string_view bytes)
{
    const auto lines = Split_Lines(bytes);
    if (lines.empty())
        return {};
    std::vector<std::string> texts(Last_Number(lines) + 1);
    std::size_t at = 0;
    for (std::size_t i = 0; i < texts.size() && at < lines.size() && lines[at] != Mark; ++i) {
        for (++at; at < lines.size() && !lines[at].starts_with(Mark); ++at)
            texts[i] += std::string(lines[at]) + std::string(CrLf);
    }
    return texts;
}

void Load_Help_Texts(Session& session)
try {
    session.Program.Help_Text.clear();
    session.Program.Help_Text = Parse_Help_Texts(Read_Whole(Found_Or_New(session.Program.App_Path, "Assystant.txt")));
} catch (const File_Error& error) {
    if (!Is_Missing(error.Code)) // without its file the assistant has no texts
        Tell(session.Ask, "File check", To_Code_Page(error.what()));
}

std::string_view Help_Text_Of(const Session& session, int number)
{
    const auto& texts = session.Program.Help_Text;
    return number >= 0 && static_cast<std::size_t>(number) < texts.size()
               ? std::string_view(texts[static_cast<std::size_t>(number)])
               : std::string_view();
}

} // namespace orvel
