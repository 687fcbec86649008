// The files of an installation: what it was laid out with, documents, tables of finished runs.
#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/system/rights.h"
#include "core/text.h"
#include "desktop/doctor_checks.h"
#include "files/climate_file.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "installation/installation_files.h"
#include "jobs/job_status.h"
#include "runs/mode.h"

#include <algorithm>
#include <array>
#include <memory>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* Templates = "shipped files";
constexpr const char* Documents = "documents";
constexpr const char* Tables = "tables";
constexpr const char* Lay_Out_Again = "Copy them from a new installation: orvelctl init DIR";

bool Is_Document(const std::string& path)
{
    return path.ends_with(".psm") || path.ends_with(".sze") || path.ends_with(".cli");
}

// The program writes it itself, at each mark.
bool Is_Written(const std::string& path)
{
    return fs::path(path).filename() == "orvel.inp";
}

// Without these no run can be marked or started; the rest is for windows, tables and engines that ask for it.
bool Is_Needed(const std::string& path)
{
    const std::string name = fs::path(path).filename().string();
    const auto kinds = {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4};
    return name == "orvel.inp" || std::ranges::any_of(kinds, [&](Mode_Kind kind) {
               const Mode& mode = Mode_Of(kind);
               return Same_Text(name, mode.Version_Source) || Same_Text(name, mode.Probe_File) ||
                      Same_Text(name, mode.Last_Copy);
           });
}

// Why a document cannot be used, a sentence; empty if it can.
std::string Fault_Of_Document(const std::string& name, const std::string& bytes, Pesticide_Document& pesticide,
                              Scenario_Document& scenario)
try {
    if (name.ends_with(".psm")) {
        Parse_PSM(bytes, pesticide);
        return {};
    }
    if (name.ends_with(".sze")) {
        Parse_SZE(bytes, scenario);
        return {};
    }
    const Climate_Table climate = Parse_CLI(bytes);
    return climate.Rows.empty() ? "It has no days." : Seems_Cut(bytes, climate);
} catch (const File_Error& error) {
    return error.what();
}

} // namespace

Findings Examine_Templates(const Program_State& program)
{
    std::vector<std::string> needed, missing, empty, changed;
    Make_Data_Files([&](const std::string& path, std::string_view bytes) {
        const fs::path file = program.App_Path / path;
        std::error_code ignored;
        if (!fs::is_directory(file.parent_path(), ignored))
            return; // told with the directories
        const auto found = Find_File(file.parent_path(), file.filename());
        const std::string now = found ? Read_Whole(*found) : "";
        if (found && now == bytes)
            return;
        const bool is_damaged = !found || now.empty();
        if (is_damaged && Is_Needed(path))
            needed.push_back(path + (found ? " (empty)" : ""));
        else if (is_damaged)
            (found ? empty : missing).push_back(path);
        else if (!Is_Document(path) && !Is_Written(path))
            changed.push_back(path);
    });
    Findings findings;
    const auto tell = [&](const std::vector<std::string>& names, Health state, const std::string& found,
                          const std::string& remedy) {
        if (!names.empty())
            findings.push_back({Templates, state, found + Some_Of(names) + ".", remedy});
    };
    tell(needed, Health::Fault, "Without these no run can be marked: ", Lay_Out_Again);
    tell(empty, Health::Fault, "These are empty: ", Lay_Out_Again);
    tell(missing, Health::Warning,
         "Of the files that an installation is laid out with, these are missing: ", Lay_Out_Again);
    tell(changed, Health::Warning, "These are not as they were laid out: ",
         "If nobody has changed them on purpose, copy them from a new installation: orvelctl init DIR");
    if (findings.empty())
        findings.push_back({Templates, Health::Good, "All are there and as they were laid out.", ""});
    return findings;
}

Findings Examine_Documents(const Program_State& program)
{
    const auto pesticide = std::make_unique<Pesticide_Document>();
    const auto scenario = std::make_unique<Scenario_Document>();
    std::size_t count = 0;
    Findings findings;
    for (const auto& directory : Directories_Of(program)) {
        std::vector<std::string> damaged;
        std::string first;
        for (const auto* const mask : {"*.psm", "*.sze", "*.cli"}) {
            for (const auto& name : List_Files(directory, mask)) {
                ++count;
                const std::string fault = Fault_Of_Document("x" + std::string(mask).substr(1),
                                                            Read_Whole(directory / name), *pesticide, *scenario);
                if (!fault.empty())
                    damaged.push_back(To_Utf8(Path_Text(name)));
                if (!fault.empty() && first.empty())
                    first = damaged.back() + ": " + fault;
            }
        }
        if (!damaged.empty())
            findings.push_back(
                {Documents, Health::Fault,
                 "These cannot be used in " + directory.string() + ": " + Some_Of(damaged) + ". " + first,
                 "Copy them from where they come from, or take them away."});
    }
    if (findings.empty())
        findings.push_back({Documents, Health::Good, std::to_string(count) + " documents can be read.", ""});
    return findings;
}

Findings Examine_Caches(const Program_State& program)
{
    std::vector<std::string> kept;
    std::size_t runs = 0;
    for (const auto kind : {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4}) {
        const fs::path directory = Mode_Directory(program, Mode_Of(kind));
        for (const auto& run : Simulation_Places(directory)) {
            ++runs;
            const auto files = List_Files(run.Directory, "*.orv");
            const bool is_kept =
                !May_Change_Entries(run.Directory) || Is_Read_Only(run.Directory) ||
                std::ranges::any_of(files, [&](const std::string& name) { return Is_Read_Only(run.Directory / name); });
            if (is_kept)
                kept.push_back(run.Directory.lexically_relative(program.App_Path).string());
        }
    }
    if (kept.empty())
        return {
            {Tables, Health::Good, "Tables can be kept in all run directories (" + std::to_string(runs) + ").", ""}};
    return {{Tables, Health::Warning,
             "The tables of these runs cannot be kept beside them, and are built whenever they are shown: " +
                 Some_Of(kept) + ".",
             "Give yourself the right to write there and to the files *.orv."}};
}

} // namespace orvel
