#include "desktop/places.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/user_directories.h"
#include "core/text.h"
#include "files/document_kind.h"
#include "installation/lay_out.h"
#include "runs/mode.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* Title = "ORVELSUITE";
constexpr const char* Own_Directory = "ORVELSUITE";       // below a directory that holds other files
constexpr std::string_view Recent_Name = "installations"; // a path on each line
constexpr std::size_t Most_Recent = 10;

fs::path Place_In(const fs::path& chosen)
{
    std::error_code error;
    return !fs::exists(chosen, error) || fs::is_empty(chosen, error) ? chosen : chosen / Own_Directory;
}

// The installation that a file or directory lies in; an empty path if it lies in none.
fs::path Installation_Around(fs::path directory)
{
    while (!Is_Installation(directory)) {
        if (!directory.has_relative_path())
            return {};
        directory = directory.parent_path();
    }
    return directory;
}

// What a user means who types a directory. Throws File_Error for an empty one.
fs::path Whole_Path(const fs::path& typed)
{
    if (typed.empty())
        throw File_Error("Please enter a directory.");
    const bool in_home = *typed.begin() == "~";
    const fs::path path =
        fs::absolute(in_home ? User_Directory() / typed.lexically_relative("~") : typed).lexically_normal();
    return path.has_filename() ? path : path.parent_path();
}

void Copy_Scenarios(const fs::path& from, const fs::path& to)
{
    for (const auto kind : {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4}) {
        const auto directory = Mode_Of(kind).Directory;
        const fs::path source = Found_Or_New(from, directory), target = Found_Or_New(to, directory);
        for (const char* mask : {"*.sze", "*.cli"}) {
            const auto files = List_Files(source, mask);
            if (files.empty())
                continue;
            for (const auto& name : List_Files(target, mask))
                fs::remove(target / name);
            for (const auto& name : files)
                fs::copy_file(source / name, target / name);
        }
    }
}

} // namespace

bool Is_Installation(const fs::path& directory)
{
    const auto& focus = Mode_Of(Mode_Kind::Focus);
    return Find_File(directory / focus.Directory, focus.Version_Source).has_value();
}

Start_Request Request_Of(const std::optional<fs::path>& argument, const fs::path& current,
                         const std::vector<fs::path>& recent)
{
    const fs::path here = Is_Installation(current) ? current : recent.empty() ? fs::path() : recent.front();
    if (!argument)
        return {here, {}};
    const fs::path asked = fs::absolute(*argument).lexically_normal();
    std::error_code error;
    if (fs::is_directory(asked, error))
        return {asked, {}};
    if (!fs::exists(asked, error))
        throw File_Error(asked.string() + " does not exist.");
    if (!Kind_Of(asked))
        throw File_Error(asked.string() + " is neither a directory nor a file that ends in .psm, .sze or .cli.");
    const fs::path around = Installation_Around(asked.parent_path());
    return {around.empty() ? here : around, asked};
}

std::vector<fs::path> Recent_Installations(const fs::path& state)
try {
    std::vector<fs::path> recent;
    const std::string lines = Read_If_There(state, Recent_Name);
    for (const auto line : Split_Lines(lines)) {
        if (!line.empty() && Is_Installation(fs::path(line)))
            recent.emplace_back(line);
    }
    return recent;
} catch (const File_Error&) {
    return {};
}

void Remember_Installation(const fs::path& state, const fs::path& installation)
try {
    if (state.empty())
        return;
    auto recent = Recent_Installations(state);
    std::erase(recent, installation);
    recent.insert(recent.begin(), installation);
    recent.resize(std::min(recent.size(), Most_Recent));
    std::string lines;
    for (const auto& path : recent)
        lines += path.string() + "\n";
    fs::create_directories(state);
    Write_Whole(state / Recent_Name, lines);
} catch (const std::exception&) {
    // Then it is not remembered.
}

void Make_Installation(const fs::path& directory, const std::vector<fs::path>& parts, const fs::path& scenarios_of)
{
    Lay_Out_Installation(directory, parts);
    if (scenarios_of.empty())
        return;
    try {
        Copy_Scenarios(scenarios_of, directory);
    } catch (const std::exception& error) {
        std::error_code ignored;
        fs::remove_all(directory, ignored);
        const auto* failed = dynamic_cast<const fs::filesystem_error*>(&error);
        throw File_Error("The scenarios of " + scenarios_of.string() +
                         " cannot be copied: " + (failed ? failed->code().message() + "." : error.what()));
    }
}

std::optional<fs::path> Installation_In(const fs::path& chosen, const std::vector<fs::path>& parts,
                                        const Ask_Function& ask, const fs::path& scenarios_of)
try {
    const fs::path directory = Whole_Path(chosen);
    const bool unfinished = Is_Unfinished(directory); // its layout was killed, and begins again
    if (!unfinished && Is_Installation(directory))
        return directory;
    const fs::path place = unfinished ? directory : Place_In(directory);
    if (unfinished || !Is_Installation(place))
        Make_Installation(place, parts, scenarios_of);
    return place;
} catch (const File_Error& error) {
    ask({Title, To_Code_Page(error.what())});
    return std::nullopt;
}

} // namespace orvel
