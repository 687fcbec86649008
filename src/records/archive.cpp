#include "records/archive.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/named_input.h"
#include "core/sha256.h"
#include "core/text.h"
#include "core/version.h"
#include "core/write_from.h"
#include "files/document_notes.h"
#include "jobs/run_recording.h"
#include "output/run_outputs.h"
#include "output/run_state.h"
#include "records/archive_manifest.h"
#include "records/verify.h"
#include "records/zip_file.h"
#include "report/report_formats.h"
#include "runs/run_place.h"

#include <algorithm>
#include <map>
#include <optional>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Report_Name = "report.html";

// The part of the work that reading twice for the digests takes.
constexpr double Share_Of_Digests = 0.4, Share_Of_Report = 0.2;

bool Is_There(const fs::path& file)
{
    std::error_code error;
    const auto type = fs::status(file, error).type();
    if (error && !Is_Missing(error)) {
        File_Error failure("Cannot read " + file.string() + ": " + error.message() + ".");
        failure.Code = error;
        throw failure;
    }
    return type != fs::file_type::not_found;
}

// Whether a file of a run directory is a part of the run: no stored table, engine or user's file.
bool Belongs_To_Run(const fs::path& file)
{
    const std::string name = file.filename().string();
    const auto matches = [&](std::string_view mask) { return Matches(name, mask); };
    constexpr std::array<std::string_view, 7> Masks = {"orvel.inp", "Haude.dat", "*.psm",      "*.sze",
                                                       "*.cli",     "run.json",  Progress_Name};
    return Is_Engine_Output(name) || std::ranges::any_of(Masks, matches);
}

// The files that a run reads, as its record names them or, without one, its orvel.inp.
std::vector<std::string> Named_Inputs(const fs::path& run, const std::optional<Run_Record>& record)
{
    std::vector<std::string> names;
    if (record) {
        std::ranges::transform(record->Inputs, std::back_inserter(names), &Recorded_File::Name);
        return names;
    }
    const Run_Request request = Read_Run_Request(run);
    for (const auto& name : {request.Scenario, request.Pesticide})
        names.push_back(name);
    std::ranges::copy(request.Climates, std::back_inserter(names));
    std::erase_if(names, [](const std::string& name) { return name.empty(); });
    return names;
}

// What goes into an archive: the manifest, and the file behind each name of it.
class Gathering {
public:
    Gathering(const Program_State& program, const Mode& mode)
        : Root(program.App_Path),
          Mode_Place(Mode_Directory(program, mode)),
          Verify(program.App_Path)
    {}

    // `problem`: why the report has no figures of the run; empty if it has.
    void Add_Run(const Summary_Request& request, const Summary_Location& location, const std::string& problem)
    {
        const fs::path& run = location.Directory;
        Check_No_Link(Mode_Place, run);
        const auto record = Read_Good_Record(run);
        if (State_Of_Run(run).Verdict == Verdict::Running)
            throw File_Error("The simulation in " + run.string() +
                             " is at work: it can be archived when it has ended.");
        const Verified_Run verified = Verify.Verify(run);
        if (verified.Unreadable) // what it is worth is not known
            throw File_Error(To_Utf8(verified.Detail));
        Archived_Run archived{.Directory = Name_Below(run).value_or(""),
                              .Pesticide = request.Pesticide,
                              .Crop = request.Crop,
                              .Location = location.Text,
                              .Check = std::string(Check_Text(verified.Result)),
                              .Detail = Replace_All(verified.Detail, Path_Text(Root / ""), "")};
        for (const auto& name : List_Files(run, "*")) {
            if (Belongs_To_Run(run / name))
                Add_File(run / name);
        }
        for (const auto& name : Named_Inputs(run, record))
            Add_Input(run, name, archived.Missing);
        if (record)
            Add_Named(Found_Or_New(Root, Path_Of(record->Engine.Name)), record->Engine.Name, archived.Missing);
        Note(archived, problem);
        Manifest.Runs.push_back(std::move(archived));
    }

    // What a report says of the installation, and what the lists expect there.
    void Add_Surroundings(const Mode& mode, std::string_view stem)
    {
        if (const auto notes = Notes_File(Root / Path_Of(std::string(stem) + ".psm")); Is_There(notes))
            Add_File(notes);
        const fs::path focus = Found_Or_New(Root, Mode_Of(Mode_Kind::Focus).Directory);
        for (const auto& file :
             {Found_Or_New(focus, Mode_Of(Mode_Kind::Focus).Version_Source),
              Found_Or_New(Mode_Place, mode.Version_Source), Found_Or_New(Mode_Place, mode.Probe_File)}) {
            if (Is_There(file))
                Add_File(file);
        }
    }

    // A text that is made for the archive.
    void Add_Text(const std::string& name, std::string bytes)
    {
        Items[name] = {.Name = Entry_Name(name), .Bytes = std::move(bytes)};
    }

    // Manifest and files in the order of the archive.
    std::vector<Zip_Item> Take_Items()
    {
        std::vector<Zip_Item> items(1);
        for (auto& [name, item] : Items) {
            if (item.File.empty()) {
                item.Size = item.Bytes.size();
                item.Sha256 = Sha256(item.Bytes);
            }
            Manifest.Files.push_back({name, item.Size, item.Sha256});
            items.push_back(std::move(item));
        }
        items.front() = {.Name = std::string(Manifest_Name), .Bytes = Format_Manifest(Manifest)};
        return items;
    }

    std::optional<std::string> Name_Below(const fs::path& file) const
    {
        return Name_Of(file.lexically_normal().lexically_relative(Root).generic_string());
    }

    Archive_Manifest Manifest;
    std::vector<std::string> Notes;

private:
    static std::string Entry_Name(const std::string& name) { return std::string(Archived_Files) + To_Utf8(name); }

    void Add_Input(const fs::path& run, const std::string& name, std::vector<std::string>& missing)
    {
        const auto found = Named_Input(run, name);
        Add_Named(found ? *found : run / Path_Of(name), name, missing);
    }

    void Add_Named(const fs::path& file, const std::string& name, std::vector<std::string>& missing)
    {
        const auto below = Name_Below(file);
        const bool can_be_added = below && Is_Safe_Name(*below) && Is_There(file);
        if (can_be_added)
            Add_File(file);
        else if (std::ranges::find(missing, name) == missing.end())
            missing.push_back(name);
    }

    void Add_File(const fs::path& file)
    {
        const auto name = Name_Below(file);
        if (!name || !Is_Safe_Name(*name))
            throw File_Error("The file " + file.string() + " has a name that no archive can hold.");
        if (Items.contains(*name))
            return;
        const File_Digest& digest = Digests.Of(file);
        Items[*name] = {.Name = Entry_Name(*name),
                        .Bytes = {},
                        .File = file.lexically_normal(),
                        .Size = digest.Size,
                        .Sha256 = digest.Sha256};
    }

    void Note(const Archived_Run& run, const std::string& problem)
    {
        if (run.Check == Check_Text(Check::Ok) && !problem.empty())
            Notes.push_back(run.Directory + ": The report has no figures of it: " + problem);
        if (run.Check != Check_Text(Check::Ok))
            Notes.push_back(run.Directory + ": " + run.Check + (run.Detail.empty() ? "." : ": " + run.Detail));
        for (const auto& name : run.Missing)
            Notes.push_back(run.Directory + ": The input " + name + " is missing, and so it is in the archive.");
    }

    fs::path Root, Mode_Place;
    Verifier Verify;
    File_Digests Digests;
    std::map<std::string, Zip_Item> Items; // by the name in the manifest
};

// The report as it is for these simulations, whenever and wherever it is made: its times are those of the records.
Report Archived_Report(const Session& session, const std::vector<Summary_Request>& requests, const Progress& progress)
{
    Report report = Gather_Report(session, requests, 0, progress);
    std::time_t last = 0;
    for (std::size_t crop = 0; crop < requests.size(); ++crop) {
        for (std::size_t i = 0; i < requests[crop].Locations.size(); ++i) {
            const auto record = Read_Good_Record(requests[crop].Locations[i].Directory);
            const std::time_t end = record ? record->End : 0;
            report.Crops[crop].Runs[i].Date = end == 0 ? "" : Utc_Text(end);
            last = std::max(last, end);
        }
    }
    report.Made = last == 0 ? "" : Utc_Text(last);
    return report;
}

// A part of the whole work's progress.
Progress Part_Of(const Progress& progress, double begin, double share)
{
    return [&progress, begin, share](const std::string& message, double done) {
        return !progress || progress(message, begin + share * done);
    };
}

std::string Without_All(std::string_view crop)
{
    return crop == All_Crops ? "" : std::string(crop);
}

void Gather_Runs(const std::vector<Summary_Request>& requests, const Report& report, Gathering& gathering,
                 const Progress& progress)
{
    for (std::size_t crop = 0; crop < requests.size(); ++crop) {
        const auto& locations = requests[crop].Locations;
        for (std::size_t i = 0; i < locations.size(); ++i) {
            const double done =
                static_cast<double>(crop) + static_cast<double>(i) / static_cast<double>(locations.size());
            if (!progress(To_Utf8(locations[i].Text), done / static_cast<double>(requests.size())))
                throw Zip_Stopped();
            gathering.Add_Run(requests[crop], locations[i], report.Crops[crop].Runs[i].Problem);
        }
    }
}

// Beside the crops of the pesticide, or beside the locations of the one crop.
fs::path Place_Of_Report(const Summary_Request& first, bool is_of_all_crops)
{
    const fs::path crop = first.Locations.front().Directory.parent_path();
    return (is_of_all_crops ? crop.parent_path() : crop) / Report_Name;
}

void Write_Archive(const fs::path& target, const std::vector<Zip_Item>& items, std::uint64_t bytes,
                   const Progress& progress)
{
    Write_Whole_From(target, [&](File_Handle& to) {
        Write_Zip(to, items, [&](const std::string& name, std::uint64_t read) {
            return progress(name, static_cast<double>(read) / static_cast<double>(bytes + 1));
        });
    });
}

} // namespace

Archived_Assessment Make_Archive(const Session& session, const Mode& mode, std::string_view stem, std::string_view crop,
                                 const fs::path& target, const Progress& progress)
{
    auto requests = Request_Summaries(session, mode, stem, crop.empty() ? All_Crops : crop, {});
    std::erase_if(requests, [](const Summary_Request& request) { return request.Locations.empty(); });
    if (requests.empty())
        throw File_Error("There are no simulations of " + To_Utf8(stem) + ".");
    Gathering gathering(session.Program, mode);
    auto& manifest = gathering.Manifest;
    const Run_Record maker = New_Record();
    manifest.Program = maker.Program;
    manifest.Program_Version = maker.Program_Version;
    manifest.Mode = mode.Name;
    manifest.Pesticide = stem;
    manifest.Crop = Without_All(crop);
    const fs::path report_place = Place_Of_Report(requests.front(), manifest.Crop.empty());
    manifest.Report = gathering.Name_Below(report_place).value_or("");

    const Report report = Archived_Report(session, requests, Part_Of(progress, 0, Share_Of_Report));
    Gather_Runs(requests, report, gathering, Part_Of(progress, Share_Of_Report, Share_Of_Digests));
    gathering.Add_Surroundings(mode, stem);
    gathering.Add_Text(manifest.Report, Report_Html(report));
    const auto items = gathering.Take_Items();

    Archived_Assessment archived{
        .Runs = manifest.Runs.size(), .Files = manifest.Files.size(), .Notes = gathering.Notes};
    for (const auto& file : manifest.Files)
        archived.Bytes += file.Size;
    constexpr double Before = Share_Of_Report + Share_Of_Digests;
    Write_Archive(target, items, archived.Bytes, Part_Of(progress, Before, 1 - Before));
    return archived;
}

Message Archive_Message(const Archived_Assessment& archived)
{
    constexpr std::size_t Most_Notes = 12; // in a box
    std::string text = std::to_string(archived.Runs) + (archived.Runs == 1 ? " simulation" : " simulations") +
                       " with " + std::to_string(archived.Files) + " files archived.";
    for (std::size_t i = 0; i < std::min(Most_Notes, archived.Notes.size()); ++i)
        text += "\n" + archived.Notes[i];
    if (archived.Notes.size() > Most_Notes)
        text += "\nand " + std::to_string(archived.Notes.size() - Most_Notes) + " more.";
    return {"Archive", text, archived.Notes.empty() ? Icon::Information : Icon::Warning};
}

std::string Archive_File_Name(std::string_view stem, std::string_view crop)
{
    const std::string chosen = Without_All(crop);
    return std::string(stem) + (chosen.empty() ? "" : " " + chosen) + ".zip";
}

} // namespace orvel
