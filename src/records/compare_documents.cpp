#include "records/compare_documents.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/sha256.h"
#include "core/text.h"
#include "files/climate_file.h"
#include "files/document_differences.h"
#include "files/document_notes.h"
#include "files/field_units.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "output/run_outputs.h"

#include <algorithm>
#include <memory>

namespace orvel {

namespace fs = std::filesystem;

namespace {

template <class Document, class Parse> std::unique_ptr<Document> Read(const fs::path& file, Parse parse)
{
    const std::string bytes = Read_Whole(file);
    auto document = std::make_unique<Document>();
    try {
        parse(bytes, *document);
        return document;
    } catch (const File_Error& error) {
        throw File_Error(Located(file.string(), error));
    }
}

template <class Document, class Parse>
std::vector<Difference> Differences_Of(const fs::path& first, const fs::path& second, Parse parse)
{
    return Differences(*Read<Document>(first, parse), *Read<Document>(second, parse));
}

std::vector<Difference> Differences_Of(Document_Kind kind, const fs::path& first, const fs::path& second)
{
    switch (kind) {
    case Document_Kind::Pesticide:
        return Differences_Of<Pesticide_Document>(
            first, second, [](const std::string& bytes, Pesticide_Document& document) { Parse_PSM(bytes, document); });
    case Document_Kind::Scenario:
        return Differences_Of<Scenario_Document>(first, second,
                                                 [](const std::string& bytes, Scenario_Document& document) {
                                                     Reset_SZE(document);
                                                     Parse_SZE(bytes, document);
                                                 });
    default:
        return Differences_Of<Climate_Table>(
            first, second, [](const std::string& bytes, Climate_Table& table) { table = Parse_CLI(bytes); });
    }
}

// The notes of two documents, a field's source beside the field.
void Compare_Notes(const fs::path& first, const fs::path& second, const std::string& document, Comparison& comparison)
{
    for (const auto& [field, one, other] : Differences(Read_Notes(first), Read_Notes(second)))
        comparison.Fields.push_back({document, field, "", one, other});
}

// The number that a value is from end to end.
std::optional<double> Number_In(const std::string& value)
{
    const double number = Val(value);
    return General_Text(number) == value ? std::optional(number) : std::nullopt;
}

bool Are_Same(const std::string& first, const std::string& second, double tolerance)
{
    if (first == second)
        return true;
    const auto one = Number_In(first), other = Number_In(second);
    return one && other && Is_Within(*one, *other, tolerance);
}

// The lines of a run control file that name no file: the first, and those behind the climates.
struct Control_Line {
    std::size_t Number = 0; // in its file
    std::string Text;
};

std::vector<Control_Line> Lines_Of(const fs::path& control)
{
    constexpr std::size_t Names_Before_Climates = 2;
    const std::string bytes = Read_Whole(control);
    const std::size_t names = Names_Before_Climates + static_cast<std::size_t>(Parse_Run_Request(bytes).Years);
    std::vector<Control_Line> lines;
    std::size_t number = 0;
    for (const auto line : Split_Lines(bytes)) {
        ++number;
        if (number == 1 || number > 1 + names)
            lines.push_back({number, std::string(Trim(line))});
    }
    return lines;
}

} // namespace

bool Have_Same_Bytes(const fs::path& first, const fs::path& second)
{
    std::error_code one, other;
    const auto sizes_differ = fs::file_size(first, one) != fs::file_size(second, other);
    return (one || other || !sizes_differ) && Sha256_Of_File(first) == Sha256_Of_File(second);
}

void Compare_Values(const std::string& document, const std::string& field, const std::string& first,
                    const std::string& second, Comparison& comparison)
{
    if (!Are_Same(first, second, comparison.Tolerance))
        comparison.Fields.push_back({document, field, std::string(Unit_Of_Field(field)), first, second});
}

void Compare_Documents(Document_Kind kind, const fs::path& first, const fs::path& second, const std::string& document,
                       Comparison& comparison)
{
    if (kind == Document_Kind::Pesticide)
        Compare_Notes(first, second, document, comparison);
    if (Have_Same_Bytes(first, second))
        return;
    for (const auto& [field, one, other] : Differences_Of(kind, first, second))
        Compare_Values(document, field, one, other, comparison);
}

void Compare_Controls(const fs::path& first, const fs::path& second, const std::string& document,
                      Comparison& comparison)
{
    const auto lines = Lines_Of(first), others = Lines_Of(second);
    for (std::size_t i = 0; i < std::max(lines.size(), others.size()); ++i) {
        const Control_Line one = i < lines.size() ? lines[i] : Control_Line{others[i].Number, ""};
        const std::string other = i < others.size() ? others[i].Text : "";
        Compare_Values(document, "line " + std::to_string(one.Number), one.Text, other, comparison);
    }
}

} // namespace orvel
