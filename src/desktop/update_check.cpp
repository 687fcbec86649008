#include "desktop/update_check.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"

namespace orvel {

namespace {

constexpr std::size_t Name_Before_Extension = 26; // characters of the package's file name before ".zip"
constexpr std::size_t Date_Width = 8;
constexpr std::string_view Secure = "https://";
constexpr std::string_view Unofficial_Title = "ORVELSUITE";

std::string Joined_Lines(std::string_view page)
{
    std::string text;
    for (const auto line : Split_Lines(page))
        text += line;
    return text;
}

} // namespace

Message Connection_Problem()
{
    return {"Connection problem!", "Connection to the internet not successfull!\r\n"};
}

std::string Update_Address(const std::filesystem::path& installation)
try {
    const auto file = Find_File(installation, Update_File);
    if (!file)
        return {};
    const std::string bytes = Read_Whole(*file);
    const auto address = Trim(Line_Reader(bytes).Next());
    const bool trusted = Lower(address.substr(0, Secure.size())) == Secure && address.size() > Secure.size() &&
                         address.find_first_of(" \t\"<>") == std::string_view::npos;
    return trusted ? std::string(address) : std::string();
} catch (const File_Error&) {
    return {};
}

Message Evaluate_Update_Page(std::string_view page, std::string_view own)
{
    const std::string text = Joined_Lines(page);
    const auto extension = text.find(".zip");
    if (extension == std::string::npos || extension < Name_Before_Extension)
        return Connection_Problem();
    const double offered = Val(std::string_view(text).substr(extension - Date_Width, Date_Width));
    const double ours = Val(own);
    if (offered > ours)
        return {"Update available!", "There is a new version of the software available.\r\n", Icon::Information};
    if (offered < ours)
        return {std::string(Unofficial_Title), "You are using an unofficial version of the software.\r\n",
                Icon::Information};
    return {std::string(Unofficial_Title), "You have the latest version of the software.", Icon::Information};
}

} // namespace orvel
