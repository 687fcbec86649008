// A start outside an installation.
#include "desktop/first_start.h"

#include "core/code_page.h"
#include "core/files.h"
#include "installation/lay_out.h"
#include "runs/mode.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* Title = "ORVELSUITE";
constexpr const char* Own_Directory = "ORVELSUITE"; // below a directory that holds other files

bool Wants_A_New_One(const fs::path& directory, const Ask_Function& ask)
{
    return ask({Title,
                Path_Text(directory) +
                    " is no installation of ORVELSUITE: it has no focus/c_apples.sze.\r\n\r\nShall one with "
                    "demonstration data be laid out in a directory of your choice? \"No\" ends the program; start it "
                    "again in the directory of an installation.",
                Icon::Question,
                {Button::Yes, Button::No},
                Button::Yes}) == Button::Yes;
}

fs::path Place_In(const fs::path& chosen)
{
    std::error_code error;
    return !fs::exists(chosen, error) || fs::is_empty(chosen, error) ? chosen : chosen / Own_Directory;
}

} // namespace

bool Is_Installation(const fs::path& directory)
{
    const auto& focus = Mode_Of(Mode_Kind::Focus);
    return Find_File(directory / focus.Directory, focus.Version_Source).has_value();
}

std::optional<fs::path> Find_Installation(const fs::path& directory, const std::vector<fs::path>& parts,
                                          const Ask_Function& ask, const std::function<fs::path()>& choose)
try {
    Refuse_Unfinished(directory);
    if (Is_Installation(directory))
        return directory;
    if (!Wants_A_New_One(directory, ask))
        return std::nullopt;
    const fs::path chosen = choose();
    if (chosen.empty() || Is_Installation(chosen))
        return chosen.empty() ? std::nullopt : std::optional(chosen);
    const fs::path place = Place_In(chosen);
    if (!Is_Installation(place))
        Lay_Out_Installation(place, parts);
    return place;
} catch (const File_Error& error) {
    ask({Title, To_Code_Page(error.what())});
    return std::nullopt;
}

} // namespace orvel
