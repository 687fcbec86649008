#include "desktop/doctor.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/json.h"
#include "desktop/doctor_checks.h"

#include <algorithm>
#include <array>

namespace orvel {

namespace fs = std::filesystem;

namespace {

std::string_view Health_Text(Health health)
{
    constexpr std::array<std::string_view, 3> Texts = {"good", "warning", "fault"};
    return Texts[static_cast<std::size_t>(health)];
}

struct Look {
    const char* What;
    Findings (*At)(const Program_State&);
};

constexpr std::array<Look, 11> Looks = {{{"directories", Examine_Directories},
                                         {"free space", Examine_Space},
                                         {"locks", Examine_Locks},
                                         {"engine", Examine_Engine},
                                         {"programs", Examine_Programs},
                                         {"file names", Examine_Names},
                                         {"computer", Examine_Computer},
                                         {"shipped files", Examine_Templates},
                                         {"documents", Examine_Documents},
                                         {"tables", Examine_Caches},
                                         {"unsaved changes", Examine_Unsaved_Copies}}};

Findings Look_At(const Look& look, const Program_State& program)
try {
    return look.At(program);
} catch (const File_Error& error) {
    return {{look.What, Health::Fault, error.what(), "See that this can be read."}};
} catch (const fs::filesystem_error& error) {
    return {{look.What, Health::Fault, "Cannot read " + error.path1().string() + ": " + error.code().message() + ".",
             "See that this can be read."}};
}

} // namespace

std::vector<Finding> Examine(const Program_State& program)
{
    std::vector<Finding> findings;
    for (const auto& look : Looks)
        std::ranges::move(Look_At(look, program), std::back_inserter(findings));
    std::ranges::stable_sort(findings, std::ranges::greater(), &Finding::State);
    return findings;
}

bool Would_Spoil_A_Run(const std::vector<Finding>& findings)
{
    return std::ranges::any_of(findings, [](const Finding& finding) { return finding.State == Health::Fault; });
}

std::string Findings_Text(const std::vector<Finding>& findings)
{
    std::string text;
    for (const auto& finding : findings) {
        text += std::string(Health_Text(finding.State)) + "\t" + finding.What + "\t" + finding.Found + "\n";
        if (!finding.Remedy.empty())
            text += "\t\t" + finding.Remedy + "\n";
    }
    return text;
}

std::string Findings_Json(const std::vector<Finding>& findings)
{
    Json_Writer json;
    json.Array([&] {
        for (const auto& finding : findings) {
            json.Object([&] {
                json.Member("what", To_Code_Page(finding.What));
                json.Member("state", Health_Text(finding.State));
                json.Member("found", To_Code_Page(finding.Found));
                json.Member("remedy", To_Code_Page(finding.Remedy));
            });
        }
    });
    return json.Written();
}

} // namespace orvel
