#include "files/document_kind.h"

#include "core/files.h"
#include "core/text.h"
#include "files/broken_line.h"
#include "files/climate_file.h"
#include "files/file_messages.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"

namespace orvel {

std::optional<Document_Kind> Kind_Of(const std::filesystem::path& file)
{
    const std::string ending = Lower(file.extension().string());
    if (ending == ".psm")
        return Document_Kind::Pesticide;
    if (ending == ".sze")
        return Document_Kind::Scenario;
    if (ending == ".cli")
        return Document_Kind::Climate;
    return std::nullopt;
}

std::string Shown_Name(const std::filesystem::path& file)
{
    return Name_Of(file.filename()).value_or(file.filename().string());
}

std::string No_Document(const std::filesystem::path& file)
{
    return Shown_Name(file) + " does not end in .psm, .sze or .cli.";
}

bool Save_Document(Session& session, const std::filesystem::path& file)
{
    const auto kind = Kind_Of(file);
    if (kind == Document_Kind::Pesticide)
        return Write_PSM(session, file);
    if (kind == Document_Kind::Scenario)
        return Write_SZE(session, file);
    if (kind == Document_Kind::Climate)
        return Write_CLI(session, file);
    session.Ask({std::string(Saving_Input_File), No_Document(file)});
    return false;
}

std::optional<std::string> Broken_Field(const Session& session, Document_Kind kind)
{
    switch (kind) {
    case Document_Kind::Pesticide:
        return Broken_By_Layout(session.Pesticide);
    case Document_Kind::Scenario:
        return Broken_By_Layout(session.Scenario);
    case Document_Kind::Climate:
        return Broken_By_Layout(session.Climate);
    }
    return std::nullopt;
}

} // namespace orvel
