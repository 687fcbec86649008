#include "files/document_kind.h"

#include "core/files.h"
#include "core/text.h"
#include "files/broken_line.h"
#include "files/climate_file.h"
#include "files/document_json.h"
#include "files/file_messages.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"

#include <algorithm>
#include <memory>

namespace orvel {

const std::array<Document_Type, 3> Document_Types = {{
    {Document_Kind::Pesticide, ".psm", "*.psm", &Program_State::PSM_Changed, Read_PSM, Write_PSM,
     [](const Session& session) { return Broken_By_Layout(session.Pesticide); },
     [](const Session& session) { return Json_Of(session.Pesticide); },
     [](const Session& session) { return Format_PSM(*std::make_unique<Pesticide_Document>(session.Pesticide)); },
     [](const Session& first, const Session& second) { return Differences(first.Pesticide, second.Pesticide); }},
    {Document_Kind::Scenario, ".sze", "*.sze", &Program_State::SZE_Changed, Read_SZE, Write_SZE,
     [](const Session& session) { return Broken_By_Layout(session.Scenario); },
     [](const Session& session) { return Json_Of(session.Scenario); },
     [](const Session& session) { return Format_SZE(*std::make_unique<Scenario_Document>(session.Scenario)); },
     [](const Session& first, const Session& second) { return Differences(first.Scenario, second.Scenario); }},
    {Document_Kind::Climate, ".cli", "*.cli", &Program_State::CLI_Changed, Read_CLI, Write_CLI,
     [](const Session& session) { return Broken_By_Layout(session.Climate); },
     [](const Session& session) { return Json_Of(session.Climate); },
     [](const Session& session) { return Format_CLI(session.Climate); },
     [](const Session& first, const Session& second) { return Differences(first.Climate, second.Climate); }},
}};

const Document_Type& Type_Of(Document_Kind kind)
{
    return Document_Types[static_cast<std::size_t>(kind)];
}

std::optional<Document_Kind> Kind_Of(const std::filesystem::path& file)
{
    const auto type = std::ranges::find(Document_Types, Lower(file.extension().string()), &Document_Type::Ending);
    return type == Document_Types.end() ? std::nullopt : std::optional(type->Kind);
}

std::string Shown_Name(const std::filesystem::path& file)
{
    return Name_Of(file.filename()).value_or(file.filename().string());
}

std::string Unknown_Ending(const std::filesystem::path& file)
{
    std::string text = Shown_Name(file) + " does not end in ";
    for (const auto& type : Document_Types) {
        if (&type != &Document_Types.front())
            text += &type == &Document_Types.back() ? " or " : ", ";
        text += type.Ending;
    }
    return text + ".";
}

bool Save_Document(Session& session, const std::filesystem::path& file)
{
    if (const auto kind = Kind_Of(file))
        return Type_Of(*kind).Write(session, file);
    session.Ask({std::string(Saving_Input_File), Unknown_Ending(file)});
    return false;
}

} // namespace orvel
