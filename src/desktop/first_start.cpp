// A start outside an installation.
#include "desktop/first_start.h"

#include "core/code_page.h"
#include "core/files.h"
#include "desktop/places.h"
#include "installation/lay_out.h"
#include "runs/mode.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* Title = "ORVELSUITE";
constexpr const char* Own_Directory = "ORVELSUITE"; // below a directory that holds other files

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

std::optional<fs::path> Installation_In(const fs::path& directory, const std::vector<fs::path>& parts,
                                        const Ask_Function& ask, const fs::path& scenarios_of)
try {
    Refuse_Unfinished(directory);
    if (Is_Installation(directory))
        return directory;
    const fs::path place = Place_In(directory);
    if (!Is_Installation(place))
        Make_Installation(place, parts, scenarios_of);
    return place;
} catch (const File_Error& error) {
    ask({Title, To_Code_Page(error.what())});
    return std::nullopt;
}

} // namespace orvel
