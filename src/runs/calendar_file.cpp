#include "runs/calendar_file.h"

#include "core/files.h"
#include "core/text.h"
#include "runs/mode.h"

#include <algorithm>

namespace orvel {

namespace {

// Whether the path contains a directory of this name, ignoring case.
bool Lies_In(const std::filesystem::path& path, std::string_view directory)
{
    return std::ranges::any_of(path, [&](const auto& part) { return Same_Text(part.string(), directory); });
}

} // namespace

std::filesystem::path Calendar_File(const Session& session, const std::filesystem::path& run_directory, bool single_run)
{
    auto directory = session.Program.App_Path;
    if (!single_run) {
        const auto below = run_directory.lexically_relative(directory);
        auto kind = Mode_Kind::Focus;
        for (const auto other : {Mode_Kind::Efsa, Mode_Kind::Efsa_T4}) {
            if (Lies_In(below.empty() ? run_directory : below, Mode_Of(other).Directory))
                kind = other;
        }
        directory = Mode_Directory(session.Program, Mode_Of(kind));
    }
    return Found_Or_New(directory, "datum.dat");
}

} // namespace orvel
