#include "records/compare.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/named_input.h"
#include "core/run_name.h"
#include "core/text.h"
#include "jobs/run_recording.h"
#include "output/run_outputs.h"
#include "output/run_record.h"
#include "records/compare_documents.h"
#include "records/unpacked_archive.h"
#include "runs/mode.h"

#include <algorithm>
#include <map>
#include <optional>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::array<Mode_Kind, 3> Modes = {Mode_Kind::Focus, Mode_Kind::Efsa, Mode_Kind::Efsa_T4};

constexpr std::array<std::string_view, 6> Kind_Texts = {"a pesticide document", "a scenario document",
                                                        "a climate document",   "a run directory",
                                                        "an installation",      "an archive"};

bool Has_Mode_Directory(const fs::path& directory)
{
    std::error_code error;
    return std::ranges::any_of(Modes, [&](Mode_Kind kind) {
        return fs::is_directory(Found_Or_New(directory, Mode_Of(kind).Directory), error);
    });
}

using Documents = std::map<std::string, fs::path>; // by their path below what is compared

// Something that is compared, and what it holds beside its runs' directories.
struct Assessment {
    fs::path Root;
    orvel::Documents Documents;
    std::vector<Found_Run> Runs;
};

void Add_Documents(const fs::path& root, const fs::path& directory, Documents& found)
{
    for (const auto& type : Document_Types) {
        for (const auto& name : List_Files(directory, type.Mask))
            found.emplace(Path_Text((directory / name).lexically_relative(root).generic_string()), directory / name);
    }
}

Documents Documents_In(const fs::path& root, const fs::path& directory)
{
    Documents found;
    Add_Documents(root, directory, found);
    return found;
}

Assessment Assessment_In(const fs::path& root)
{
    Assessment found{.Root = root, .Documents = Documents_In(root, root)};
    for (const auto kind : Modes) {
        const Mode& mode = Mode_Of(kind);
        const fs::path directory = Found_Or_New(root, mode.Directory);
        Add_Documents(root, directory, found.Documents);
        std::ranges::move(Runs_Below(directory, mode.Name), std::back_inserter(found.Runs));
    }
    return found;
}

std::string Only_In(std::string_view what, std::string_view where)
{
    return std::string(what) + " is only in the " + std::string(where) + " one.";
}

// Of an installation what an archive holds, too.
void Keep_What_Is_In(const Assessment& archive, Assessment& installation)
{
    std::erase_if(installation.Documents,
                  [&](const auto& document) { return !archive.Documents.contains(document.first); });
    std::erase_if(installation.Runs, [&](const Found_Run& run) {
        return std::ranges::find(archive.Runs, run.Key, &Found_Run::Key) == archive.Runs.end();
    });
}

// What the records say of two runs, and the lines of their run control files.
void Compare_Settings(const fs::path& first, const fs::path& second, const std::string& document,
                      Comparison& comparison)
{
    const auto one = Find_File(first, Control_Name), other = Find_File(second, Control_Name);
    if (one && other)
        Compare_Controls(*one, *other, document + std::string(Control_Name), comparison);
    else if (one || other)
        comparison.Notes.push_back(Only_In(document + std::string(Control_Name), one ? "first" : "second"));
    const auto haude = Find_File(first, Haude_Name), other_haude = Find_File(second, Haude_Name);
    if (haude && other_haude && !Have_Same_Bytes(*haude, *other_haude))
        comparison.Notes.push_back(document + std::string(Haude_Name) + " differs.");
    const auto record = Read_Run_Record(first), other_record = Read_Run_Record(second);
    if (!record || !other_record)
        return;
    const std::string name = document + std::string(Run_Record_Name);
    Compare_Values(name, "engine.version", record->Engine_Version, other_record->Engine_Version, comparison);
    Compare_Values(name, "engine.sha256", record->Engine.Sha256, other_record->Engine.Sha256, comparison);
    Compare_Values(name, "verdict", std::string(Verdict_Text(record->Verdict)),
                   std::string(Verdict_Text(other_record->Verdict)), comparison);
}

// Documents that serve the same purpose in two runs, whatever their names.
void Compare_Inputs(Document_Kind kind, const fs::path& first, const std::string& name, const fs::path& second,
                    const std::string& other_name, Comparison& comparison)
{
    if (name.empty() && other_name.empty())
        return;
    const auto one = Named_Input(first, name), other = Named_Input(second, other_name);
    const std::string shown = Path_Of(Replace_All(name.empty() ? other_name : name, "\\", "/")).filename().string();
    if (one && other)
        return Compare_Documents(kind, *one, *other, To_Code_Page(shown), comparison);
    for (const auto& [found, file] : {std::pair(one, name), std::pair(other, other_name)}) {
        if (!found && !file.empty())
            comparison.Notes.push_back("The input " + file + " is missing.");
    }
    if (name.empty() != other_name.empty())
        comparison.Notes.push_back(Only_In(To_Code_Page(shown), name.empty() ? "second" : "first"));
}

void Compare_Run_Inputs(const fs::path& first, const fs::path& second, Comparison& comparison)
{
    const Run_Request one = Read_Run_Request(first), other = Read_Run_Request(second);
    Compare_Inputs(Document_Kind::Pesticide, first, one.Pesticide, second, other.Pesticide, comparison);
    Compare_Inputs(Document_Kind::Scenario, first, one.Scenario, second, other.Scenario, comparison);
    std::vector<std::pair<std::string, std::string>> done;
    for (std::size_t year = 0; year < std::min(one.Climates.size(), other.Climates.size()); ++year) {
        const std::pair climates(one.Climates[year], other.Climates[year]);
        if (std::ranges::find(done, climates) != done.end())
            continue;
        done.push_back(climates);
        Compare_Inputs(Document_Kind::Climate, first, climates.first, second, climates.second, comparison);
    }
}

void Compare_Runs(const fs::path& first, const fs::path& second, Comparison& comparison, const Progress& progress)
{
    Compare_Settings(first, second, "", comparison);
    Compare_Run_Inputs(first, second, comparison);
    comparison.Results =
        Compare_Results(Figures_Of(Found_Run{{}, first}, progress), Figures_Of(Found_Run{{}, second}, progress));
}

// What the other one has not; `where` is the one that has it.
void Note_What_Is_Only_In(const Documents& one, const Documents& other, std::string_view where, Comparison& comparison)
{
    for (const auto& [name, file] : one) {
        if (!other.contains(name))
            comparison.Notes.push_back(Only_In(name, where));
    }
}

void Compare_All(const Documents& first, const Documents& second, Comparison& comparison)
{
    for (const auto& [name, file] : first) {
        const auto other = second.find(name);
        const auto kind = Kind_Of(file);
        if (kind && other != second.end())
            Compare_Documents(*kind, file, other->second, name, comparison);
    }
    Note_What_Is_Only_In(first, second, "first", comparison);
    Note_What_Is_Only_In(second, first, "second", comparison);
}

void Compare_Assessments(const Assessment& first, const Assessment& second, Comparison& comparison,
                         const Progress& progress)
{
    Compare_All(first.Documents, second.Documents, comparison);
    std::map<Run_Key, fs::path> others;
    for (const auto& run : second.Runs)
        others.emplace(run.Key, run.Directory);
    for (const auto& run : first.Runs) {
        const auto other = others.find(run.Key);
        if (other == others.end())
            continue; // its figures tell
        Compare_Settings(run.Directory, other->second,
                         Path_Text(run.Directory.lexically_relative(first.Root).generic_string()) + "/", comparison);
        Compare_All(Documents_In(first.Root, run.Directory), Documents_In(second.Root, other->second), comparison);
    }
    comparison.Results = Compare_Results(Figures_Of(first.Runs, progress), Figures_Of(second.Runs, progress));
}

bool Is_Assessment(Comparable kind)
{
    return kind == Comparable::Archive || kind == Comparable::Installation;
}

// Archives are laid out while they are compared.
void Compare_Assessments(const fs::path& first, Comparable kind, const fs::path& second, Comparable other,
                         Comparison& comparison, const Progress& progress)
{
    std::optional<Unpacked_Archive> unpacked, unpacked_other;
    if (kind == Comparable::Archive)
        unpacked.emplace(first, progress);
    if (other == Comparable::Archive)
        unpacked_other.emplace(second, progress);
    Assessment one = Assessment_In(unpacked ? unpacked->Path() : first);
    Assessment two = Assessment_In(unpacked_other ? unpacked_other->Path() : second);
    if (kind != other)
        unpacked ? Keep_What_Is_In(one, two) : Keep_What_Is_In(two, one);
    Compare_Assessments(one, two, comparison, progress);
}

} // namespace

Comparable Comparable_Of(const fs::path& path)
{
    std::error_code error;
    const auto status = fs::status(path, error);
    if (error)
        throw File_Error("Cannot read " + path.string() + ": " + error.message() + ".");
    if (fs::is_directory(status)) {
        const fs::path directory = fs::absolute(path / ".").lexically_normal().parent_path();
        if (Is_Run_Level(directory.filename().string()) && Find_File(path, Control_Name))
            return Comparable::Run;
        if (Has_Mode_Directory(path))
            return Comparable::Installation;
        if (Find_File(path, Control_Name))
            return Comparable::Run;
    } else if (Lower(path.extension().string()) == ".zip") {
        return Comparable::Archive;
    } else if (const auto kind = Kind_Of(path)) {
        return static_cast<Comparable>(*kind);
    }
    throw File_Error(path.string() +
                     " is no document (.psm, .sze, .cli), run directory, installation or archive (.zip).");
}

Comparison Compare(const fs::path& first, const fs::path& second, double tolerance, const Progress& progress)
{
    const Comparable kind = Comparable_Of(first), other = Comparable_Of(second);
    if (kind != other && !(Is_Assessment(kind) && Is_Assessment(other)))
        throw File_Error(first.string() + " is " + std::string(Kind_Texts[static_cast<std::size_t>(kind)]) + " and " +
                         second.string() + " is " + std::string(Kind_Texts[static_cast<std::size_t>(other)]) +
                         ": only two of a kind can be compared.");
    Comparison comparison{.Tolerance = tolerance};
    if (kind == Comparable::Run) {
        Compare_Runs(first, second, comparison, progress);
    } else if (Is_Assessment(kind)) {
        Compare_Assessments(first, kind, second, other, comparison, progress);
    } else {
        Compare_Documents(static_cast<Document_Kind>(kind), first, second, Path_Text(first.filename()), comparison);
    }
    return comparison;
}

} // namespace orvel
