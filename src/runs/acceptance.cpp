#include "runs/acceptance.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/json.h"
#include "core/json_reader.h"
#include "core/sha256.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Acceptance_Schema = 1;

// A text and its digest below a name.
void Write_File(Json_Writer& json, std::string_view key, const std::string& name, const std::string& sha256)
{
    json.Key(key);
    json.Object([&] {
        json.Member("name", name);
        json.Member("sha256", sha256);
    });
}

std::string Format(const std::vector<Acceptance>& acceptances)
{
    Json_Writer json;
    json.Object([&] {
        json.Member("schema", Acceptance_Schema);
        json.Key("acceptances");
        json.Array([&] {
            for (const auto& acceptance : acceptances) {
                json.Object([&] {
                    json.Member("date", acceptance.Date);
                    Write_File(json, "engine", acceptance.Engine, acceptance.Engine_Sha256);
                    Write_File(json, "expected", acceptance.Expected, acceptance.Expected_Sha256);
                });
            }
        });
    });
    return json.Written();
}

std::vector<Acceptance> Parse(const std::string& text)
{
    const Json_Value json = Parse_Json(text);
    if (json.At("schema").Whole_Number() != Acceptance_Schema)
        throw File_Error("It is of another version of this program.");
    std::vector<Acceptance> acceptances;
    for (const auto& entry : json.At("acceptances").Elements()) {
        const auto& engine = entry.At("engine");
        const auto& expected = entry.At("expected");
        acceptances.push_back({.Engine = To_Code_Page(engine.At("name").Text()),
                               .Engine_Sha256 = engine.At("sha256").Text(),
                               .Expected = To_Code_Page(expected.At("name").Text()),
                               .Expected_Sha256 = expected.At("sha256").Text(),
                               .Date = entry.At("date").Text()});
    }
    return acceptances;
}

std::vector<Acceptance> Without(std::vector<Acceptance> acceptances, std::string_view engine_sha256)
{
    std::erase_if(acceptances, [&](const Acceptance& kept) { return kept.Engine_Sha256 == engine_sha256; });
    return acceptances;
}

void Write(const fs::path& app_path, const std::vector<Acceptance>& acceptances)
{
    Write_Whole(Found_Or_New(app_path, Acceptance_Name), Format(acceptances));
}

} // namespace

std::vector<Acceptance> Read_Acceptances(const fs::path& app_path)
try {
    const std::string text = Read_If_There(app_path, Acceptance_Name);
    return text.empty() ? std::vector<Acceptance>() : Parse(text);
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    throw File_Error(Located((app_path / Acceptance_Name).string(), error));
}

std::optional<Acceptance> Acceptance_Of(const fs::path& app_path, std::string_view engine_sha256)
{
    const auto acceptances = Read_Acceptances(app_path);
    const auto found = std::ranges::find(acceptances, engine_sha256, &Acceptance::Engine_Sha256);
    return found == acceptances.end() ? std::nullopt : std::optional(*found);
}

void Keep_Acceptance(const fs::path& app_path, const Acceptance& acceptance)
{
    auto acceptances = Without(Read_Acceptances(app_path), acceptance.Engine_Sha256);
    acceptances.push_back(acceptance);
    Write(app_path, acceptances);
}

void Withdraw_Acceptance(const fs::path& app_path, std::string_view engine_sha256)
{
    const auto before = Read_Acceptances(app_path);
    const auto after = Without(before, engine_sha256);
    if (after.size() != before.size())
        Write(app_path, after);
}

std::string Acceptance_Text(const std::optional<Acceptance>& acceptance)
{
    return acceptance ? "accepted on " + acceptance->Date + " against " + acceptance->Expected : "not accepted here";
}

std::string Acceptance_Text(const fs::path& app_path, std::string_view engine_sha256)
try {
    return Acceptance_Text(Acceptance_Of(app_path, engine_sha256));
} catch (const File_Error& error) {
    return "not known to be accepted here: " + To_Code_Page(error.what());
}

std::string Acceptance_Of_Installed(const Program_State& program)
try {
    if (program.Engine_Exe.empty())
        return {};
    const fs::path engine = Found_Or_New(program.App_Path, Path_Of(program.Engine_Exe));
    return Acceptance_Text(program.App_Path, Sha256_Of_File(engine));
} catch (const File_Error& error) {
    return "not known to be accepted here: " + To_Code_Page(error.what());
}

} // namespace orvel
