#include "records/archive_manifest.h"

#include "core/json.h"
#include "output/record_members.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int Manifest_Schema = 1;

Archived_Run Run_Of(const Json_Value& value)
{
    return {.Directory = Text_In(value, "directory"),
            .Pesticide = Text_In(value, "pesticide"),
            .Crop = Text_In(value, "crop"),
            .Location = Text_In(value, "location"),
            .Check = Text_In(value, "check"),
            .Detail = Text_In(value, "detail"),
            .Missing = List_In(value, "missing", Text_Of)};
}

void Put_Run(Json_Writer& json, const Archived_Run& run)
{
    json.Member("directory", run.Directory);
    json.Member("pesticide", run.Pesticide);
    json.Member("crop", run.Crop);
    json.Member("location", run.Location);
    json.Member("check", run.Check);
    json.Member("detail", run.Detail);
    json.Key("missing");
    json.Array([&] {
        for (const auto& name : run.Missing)
            json.Value(name);
    });
}

bool Is_Safe_Part(std::string_view part)
{
    constexpr std::size_t Longest = 255;
    const auto is_ordinary = [](char letter) {
        const auto code = static_cast<unsigned char>(letter);
        return code >= ' ' && code != 0x7F && letter != '\\' && letter != ':';
    };
    return !part.empty() && part != "." && part != ".." && part.size() <= Longest &&
           std::ranges::all_of(part, is_ordinary);
}

} // namespace

Archive_Manifest Parse_Manifest(std::string_view text)
{
    const Json_Value json = Parse_Json(text);
    if (Member(json, "schema", Small) != Manifest_Schema)
        throw File_Error("The archive has a schema that this program does not know.");
    Archive_Manifest manifest;
    const Json_Value& program = json.At("program");
    manifest.Program = Text_In(program, "name");
    manifest.Program_Version = Text_In(program, "version");
    manifest.Mode = Text_In(json, "mode");
    manifest.Pesticide = Text_In(json, "pesticide");
    manifest.Crop = Text_In(json, "crop");
    manifest.Report = Text_In(json, "report");
    manifest.Runs = List_In(json, "runs", Run_Of);
    manifest.Files = List_In(json, "files", File_Of);
    return manifest;
}

std::string Format_Manifest(const Archive_Manifest& manifest)
{
    Json_Writer json;
    json.Object([&] {
        json.Member("schema", Manifest_Schema);
        json.Key("program");
        json.Object([&] {
            json.Member("name", manifest.Program);
            json.Member("version", manifest.Program_Version);
        });
        json.Member("mode", manifest.Mode);
        json.Member("pesticide", manifest.Pesticide);
        json.Member("crop", manifest.Crop);
        json.Member("report", manifest.Report);
        json.Key("runs");
        json.Array([&] {
            for (const auto& run : manifest.Runs)
                json.Object([&] { Put_Run(json, run); });
        });
        json.Key("files");
        json.Array([&] {
            for (const auto& file : manifest.Files)
                json.Object([&] { Put_File(json, file); });
        });
    });
    return json.Written();
}

bool Is_Safe_Name(std::string_view name)
{
    for (;;) {
        const auto slash = name.find('/');
        if (!Is_Safe_Part(name.substr(0, slash)))
            return false;
        if (slash == std::string_view::npos)
            return true;
        name.remove_prefix(slash + 1);
    }
}

} // namespace orvel
