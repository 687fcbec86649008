#include "output/run_files.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "output/echo_file.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

std::vector<Chem_File> Chem_Files(const fs::path& run_directory)
{
    std::vector<Chem_File> files = {{Found_Or_New(run_directory, "chem.orv"), ".orv", "Pesticide"}};
    for (const char generation : {'1', '2'}) {
        for (const char letter : {'A', 'B', 'C', 'D'}) {
            const std::string metabolite = {letter, generation};
            const std::string suffix = "_" + metabolite + ".orv";
            if (const auto file = Find_File(run_directory, "chem" + suffix))
                files.push_back({*file, suffix, " Metab." + metabolite});
        }
    }
    return files;
}

std::string Why_No_Cache(const fs::path& run_directory, const Plot_Head& head)
{
    if (Is_Locked(run_directory) || Is_Locked(Found_Or_New(run_directory, "echo.orv")))
        return "The simulation is still at work.";
    if (Simulation_Failed(run_directory))
        return std::string(Simulation_Failed_Text);
    return head.Whole ? "" : "The run has no complete plot.orv.";
}

std::optional<Cache_Pair> Read_Caches(const fs::path& run_directory, std::string_view first, std::string_view second)
try {
    const auto first_file = Find_File(run_directory, first), second_file = Find_File(run_directory, second);
    if (!first_file || !second_file)
        return std::nullopt;
    return Cache_Pair{Read_Whole(*first_file), Read_Whole(*second_file)};
} catch (const File_Error&) {
    return std::nullopt;
}

std::string Write_Caches(const fs::path& run_directory, std::string_view first, std::string_view second,
                         const Cache_Pair& bytes)
try {
    Write_Whole(Found_Or_New(run_directory, first), bytes.First);
    Write_Whole(Found_Or_New(run_directory, second), bytes.Second);
    return {};
} catch (const File_Error& error) {
    return To_Code_Page(error.what());
}

std::string Shown_Cache(std::string_view bytes)
{
    return Dos_Lines_To_Ansi(bytes);
}

void Table_Text::Line(std::string_view file, std::string_view screen)
{
    File.append(file).append(CrLf);
    Screen.append(screen).append(CrLf);
}

void Table_Text::Head(const Plot_Head& head)
{
    constexpr std::string_view Margin = "          ";
    for (const auto& title : head.Titles)
        Line(title, std::string(Margin) + title);
}

Reading_Progress::Reading_Progress(const Progress& progress, const std::vector<fs::path>& files)
    : Report_Progress(progress)
{
    for (const auto& file : files) {
        std::error_code missing;
        const auto size = fs::file_size(file, missing);
        Total += missing ? 0 : static_cast<double>(size);
    }
}

void Reading_Progress::Tell(const std::string& message, std::uint64_t taken) const
{
    const double share = Total > 0 ? std::min(1.0, static_cast<double>(taken) / Total) : 0;
    if (Report_Progress && !Report_Progress(message, share))
        throw Reading_Stopped();
}

} // namespace orvel
