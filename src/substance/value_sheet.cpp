#include "substance/value_sheet.h"

#include "core/code_page.h"
#include "core/csv.h"
#include "core/error.h"
#include "core/files.h"
#include "core/text.h"
#include "files/document_differences.h"
#include "files/document_values.h"
#include "files/field_units.h"
#include "files/pesticide_file.h"
#include "substance/guidance_facts.h"
#include "substance/pathway.h"

#include <algorithm>
#include <memory>

namespace orvel {

namespace {

struct Sheet_Column {
    std::string_view Head;
    double Width;
    std::string (*Text)(const Sheet_Row& row);
};
constexpr std::array<Sheet_Column, 8> Columns_Of_Sheet = {{
    {"Parameter", 34, [](const Sheet_Row& row) { return row.Parameter; }},
    {"Substance", 18, [](const Sheet_Row& row) { return row.Substance; }},
    {"Value", 16, [](const Sheet_Row& row) { return row.Value; }},
    {"Unit", 14, [](const Sheet_Row& row) { return row.Unit; }},
    {"Source", 40, [](const Sheet_Row& row) { return row.Note.Source; }},
    {"Comment", 40, [](const Sheet_Row& row) { return row.Note.Comment; }},
    {"Checked by", 16, [](const Sheet_Row& row) { return row.Note.Checked_By; }},
    {"Date", 12, [](const Sheet_Row& row) { return row.Note.Date; }},
}};
constexpr std::size_t Value_Column = 2;

// A field of an application: "Applications[1][", 12, "].App_Rate".
struct Application_Field {
    std::string Before, Behind;
    int Number = 0;
};

std::optional<Application_Field> Split_Application(const std::string& field)
{
    const bool relative = field.starts_with("Relative[");
    if (!relative && !field.starts_with("Applications["))
        return std::nullopt;
    const auto open = relative ? field.find('[') : field.find('[', field.find(']'));
    const auto close = field.find(']', open);
    const auto number = Number_In(std::string_view(field).substr(open + 1, close - open - 1));
    return Application_Field{field.substr(0, open + 1), field.substr(close), static_cast<int>(number.value_or(0))};
}

// Applications with one value, or with a value that rises by one from each to the next, as their years do.
struct Application_Run {
    Application_Field Field;
    std::string First_Field, First, Last;
    int Last_Number = 0;
    int Step = 0;

    bool Takes(int number, const std::string& value) const
    {
        const auto last = Number_In(Last), next = Number_In(value);
        const bool is_second = Last_Number == Field.Number;
        const bool rises = last && next && *next == *last + 1 && Contains(Field.Behind, "_Year");
        return number == Last_Number + 1 &&
               (value == Last ? is_second || Step == 0 : rises && (is_second || Step == 1));
    }

    void Take(int number, const std::string& value)
    {
        Step = value == Last ? 0 : 1;
        Last = value;
        Last_Number = number;
    }

    std::string Parameter() const
    {
        const std::string last = Last_Number == Field.Number ? "" : " to " + std::to_string(Last_Number);
        return Field.Before + std::to_string(Field.Number) + last + Field.Behind;
    }
};

bool Is_Shown(const Pesticide_Document& document, const std::string& field)
{
    constexpr double Photolysis_Rows = 5;
    if (!Why_Not_A_Pesticide_Field(field).empty() || !Is_Of_Used_Substance(document, field))
        return false;
    const auto open = field.find('[');
    const double index = open == std::string::npos ? 0 : Val(std::string_view(field).substr(open + 1));
    if (field.starts_with("App_Location["))
        return index >= 1 && index < document.App_Loc_Count;
    return !field.starts_with("Photo_") || (index >= 1 && index <= Photolysis_Rows);
}

// Rows in the order of the document; those of an application's field beside each other.
class Sheet_Maker {
public:
    Sheet_Maker(const Pesticide_Document& document, const Document_Notes& notes) : Document(document), Notes(notes) {}

    void Add(const std::string& field, const std::string& value)
    {
        const auto application = Split_Application(field);
        if (!application) {
            Finish();
            return Add_Row(field, field, value);
        }
        const auto same = [&](const Application_Run& run) {
            return run.Field.Before == application->Before && run.Field.Behind == application->Behind;
        };
        const auto last = std::find_if(Runs.rbegin(), Runs.rend(), same);
        if (last != Runs.rend() && last->Takes(application->Number, value))
            return last->Take(application->Number, value);
        Runs.push_back({*application, field, value, value, application->Number});
    }

    std::vector<Sheet_Row> Taken()
    {
        Finish();
        return std::move(Rows);
    }

private:
    void Finish()
    {
        std::ranges::stable_sort(Runs, {}, [](const Application_Run& run) { return run.Field.Before; });
        for (const auto& run : Runs)
            Add_Row(run.Parameter(), run.First_Field, run.First + (run.Last == run.First ? "" : " to " + run.Last));
        Runs.clear();
    }

    void Add_Row(const std::string& parameter, const std::string& field, const std::string& value)
    {
        const int substance = Substance_Of_Field(field);
        const Field_Note* note = Note_Of(Notes, field);
        Rows.push_back(
            {parameter, field, substance == 0 ? "" : Document.Substance_Name[static_cast<std::size_t>(substance)],
             std::string(Trim(value)), std::string(Unit_Of_Field(field)), note == nullptr ? Field_Note() : *note});
    }

    const Pesticide_Document& Document;
    const Document_Notes& Notes;
    std::vector<Application_Run> Runs;
    std::vector<Sheet_Row> Rows;
};

} // namespace

std::vector<Sheet_Row> Sheet_Of(const Pesticide_Document& document, const Document_Notes& notes)
{
    Sheet_Maker maker(document, notes);
    for (const auto& [field, value] : Values_In_Use(document)) {
        if (Is_Shown(document, field))
            maker.Add(field, value);
    }
    return maker.Taken();
}

std::vector<Sheet_Row> Read_Sheet(const std::filesystem::path& file)
{
    const auto document = Read_Whole_Pesticide(file);
    return Sheet_Of(*document, Read_Notes(file));
}

std::string Sheet_Csv(const std::vector<Sheet_Row>& rows)
{
    std::string csv;
    const auto add = [&](auto text) {
        for (const auto& column : Columns_Of_Sheet)
            csv += (&column == Columns_Of_Sheet.data() ? "" : ",") + Csv_Field(text(column));
        csv += CrLf;
    };
    add([](const Sheet_Column& column) { return std::string(column.Head); });
    for (const auto& row : rows)
        add([&](const Sheet_Column& column) { return column.Text(row); });
    return std::string(Byte_Order_Mark) + To_Utf8(csv);
}

Workbook Sheet_Book(const std::vector<Sheet_Row>& rows, const std::string& name)
{
    Sheet sheet{.Name = "Values", .Frozen_Rows = 1};
    auto& heads = sheet.Rows.emplace_back();
    for (const auto& column : Columns_Of_Sheet) {
        heads.push_back({.Text = std::string(column.Head), .Number = std::nullopt, .Style = {.Head = true}});
        sheet.Widths.push_back(column.Width);
    }
    for (const auto& row : rows) {
        auto& cells = sheet.Rows.emplace_back();
        for (std::size_t i = 0; i < Columns_Of_Sheet.size(); ++i) {
            const std::string text = Columns_Of_Sheet[i].Text(row);
            const auto number = i == Value_Column ? Number_In(text) : std::nullopt;
            cells.push_back({.Text = number ? std::string() : To_Utf8(text), .Number = number});
        }
    }
    return {.Title = To_Utf8(name), .Author = "ORVELSUITE", .Sheets = {std::move(sheet)}};
}

} // namespace orvel
