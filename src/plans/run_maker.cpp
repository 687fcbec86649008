#include "plans/run_maker.h"

#include "core/code_page.h"
#include "core/error.h"
#include "core/files.h"
#include "core/text.h"
#include "files/broken_line.h"
#include "files/document_values.h"
#include "files/pesticide_file.h"
#include "files/scenario_file.h"
#include "runs/output_selection.h"
#include "substance/pathway.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

using Kind = Plan_Column_Kind;

constexpr double Last_Of_December = 31, December = 12;

std::string With_Backslashes(const std::string& kept)
{
    return std::string(Up_To_Inputs) + Replace_All(kept, "/", "\\");
}

// What stands before the last part of a path, with the backslash.
std::string Place_Of(const std::string& path)
{
    return path.substr(0, path.rfind('\\') + 1);
}

std::string Sentence(const std::string& text)
{
    return To_Utf8(Replace_All(text, "\r\n", " "));
}

// Whether a document is read as it was written: the quick answer for most, since a value that breaks its line is read
// as others.
template <class Document, class Parse, class Format>
bool Survives(const std::string& bytes, Document& scratch, Parse parse, Format format)
try {
    parse(bytes, scratch, nullptr);
    return format(scratch) == bytes;
} catch (const File_Error&) {
    return false;
}

std::shared_ptr<const Pesticide_Document> Read_Base(const fs::path& file)
try {
    auto document = std::make_shared<Pesticide_Document>();
    Parse_PSM(Read_Whole(file), *document);
    return document;
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    throw File_Error(Located(file.filename().string(), error));
}

} // namespace

// The documents of one run: the base, and what of them is its own.
struct Run_Maker::Documents {
    Plan_Input Pesticide_Input, Scenario_Input;
    std::shared_ptr<const Pesticide_Document> Base_Pesticide;
    std::shared_ptr<const Base_Scenario> Base;
    std::unique_ptr<Pesticide_Document> Own_Pesticide;
    std::unique_ptr<Scenario_Document> Own_Scenario;
    Scenario_Facts Own_Facts;
    std::optional<std::string> Pesticide_Bytes, Scenario_Bytes;

    const Pesticide_Document& Pesticide() const { return Own_Pesticide ? *Own_Pesticide : *Base_Pesticide; }
    const Scenario_Facts& Facts() const { return Own_Scenario ? Own_Facts : Base->Facts; }
    std::string Pesticide_Name() const { return Name_Of(Pesticide_Input.File.filename()).value_or("pesticide.psm"); }
    std::string Scenario_Name() const { return Name_Of(Scenario_Input.File.filename()).value_or("scenario.sze"); }
    // As orvel.inp names them.
    std::string Pesticide_Path() const
    {
        return Own_Pesticide ? Pesticide_Name() : With_Backslashes(Pesticide_Input.Kept);
    }
    std::string Scenario_Path() const { return Own_Scenario ? Scenario_Name() : With_Backslashes(Scenario_Input.Kept); }
};

void Run_Maker::Refuse(const Plan_Row& row, Kind kind, const std::string& reason) const
{
    throw File_Error(reason, row.Line, Plan.Column_Of(kind));
}

// Does what may fail because of a cell; an error of the system is passed on as it is.
template <class Work> auto Run_Maker::At(const Plan_Row& row, Kind kind, Work work) const
{
    try {
        return work();
    } catch (const File_Error& error) {
        Pass_On_If_Unreadable(error);
        Refuse(row, kind, error.Reason);
    }
}

std::string Run_Maker::Cell(const Plan_Row& row, Kind kind) const
{
    const std::string& cell = Plan.Cell(row, kind);
    const auto bytes = From_Utf8(cell);
    if (!bytes)
        Refuse(row, kind, "'" + cell + "' holds a character that no file of this system can hold.");
    return *bytes;
}

int Run_Maker::Years_Of(const Plan_Row& row) const
{
    const std::string cell = Cell(row, Kind::Years);
    const bool digits = cell.size() <= 2 && std::ranges::all_of(cell, [](char c) { return c >= '0' && c <= '9'; });
    const double years = digits ? Val(cell) : 0;
    if (years < 1 || years > Most_Years)
        Refuse(row, Kind::Years, "The years must be between 1 and " + std::to_string(Most_Years) + ".");
    return static_cast<int>(years);
}

std::vector<std::string> Run_Maker::Climates_Of(const Plan_Row& row) const
{
    const std::string cell = Cell(row, Kind::Climate);
    std::vector<std::string> climates;
    for (std::size_t at = 0; at <= cell.size();) {
        const auto end = std::min(cell.find('|', at), cell.size());
        climates.emplace_back(Trim(std::string_view(cell).substr(at, end - at)));
        if (climates.back().empty())
            Refuse(row, Kind::Climate, "The name of a climate file is empty.");
        at = end + 1;
    }
    return climates;
}

// The choice of a row by the lists of its run form.
Selection Run_Maker::Select(const Plan_Row& row) const
{
    const Mode* mode = Mode_Named(Cell(row, Kind::Mode));
    if (mode == nullptr)
        Refuse(row, Kind::Mode, "There is no mode '" + Plan.Cell(row, Kind::Mode) + "': focus, efsa or efsa_t4.");
    const Crop* crop = Crop_Named(Cell(row, Kind::Crop));
    if (crop == nullptr)
        Refuse(row, Kind::Crop, "There is no crop '" + Plan.Cell(row, Kind::Crop) + "'.");
    return {.Choice = Choose_Run(*mode, Cell(row, Kind::Pesticide), crop, Cell(row, Kind::Location))};
}

void Run_Maker::Check_Location(const Plan_Row& row, const Selection& selected)
{
    const Mode& mode = *Mode_Named(Cell(row, Kind::Mode));
    const auto [known, is_new] = Locations.try_emplace({&mode, selected.Choice.Crop});
    if (is_new)
        known->second = Locations_Of_Crop(Program, mode, selected.Choice.Crop);
    if (std::ranges::find(known->second, selected.Choice.Location) == known->second.end())
        Refuse(row, Kind::Location,
               To_Utf8(No_Location_Text(mode, Cell(row, Kind::Crop), Cell(row, Kind::Location), known->second)));
}

Plan_Input Run_Maker::Pesticide_Of(const Plan_Row& row)
{
    const std::string name = Cell(row, Kind::Pesticide);
    return At(row, Kind::Pesticide, [&] {
        if (!Fits_A_Line(fs::path(name).filename().string()))
            throw File_Error("A simulation cannot take the name of this pesticide file.");
        return Plan.Columns().Kind == Plan_Kind::Modes ? Inputs.Pesticide(name) : Inputs.Named_File(name);
    });
}

Plan_Input Run_Maker::Scenario_Of(const Plan_Row& row)
{
    if (Plan.Columns().Kind == Plan_Kind::Files)
        return At(row, Kind::Scenario, [&] { return Inputs.Named_File(Cell(row, Kind::Scenario)); });
    const Selection selected = Select(row);
    return At(row, Kind::Location,
              [&] { return Inputs.Of_Mode(*Mode_Named(Cell(row, Kind::Mode)), selected.Choice.Scenario); });
}

Run_Maker::Documents Run_Maker::Documents_Of(const Plan_Row& row)
{
    Documents documents{.Pesticide_Input = Pesticide_Of(row), .Scenario_Input = Scenario_Of(row)};
    documents.Base_Pesticide =
        At(row, Kind::Pesticide, [&] { return Pesticides.Of(documents.Pesticide_Input.File, Read_Base); });
    const Kind scenario = Plan.Columns().Kind == Plan_Kind::Files ? Kind::Scenario : Kind::Location;
    documents.Base = At(row, scenario, [&] {
        return Scenarios.Of(documents.Scenario_Input.File, [](const fs::path& file) {
            auto base = std::make_shared<Base_Scenario>();
            try {
                base->Bytes = Read_Whole(file);
                Reset_SZE(base->Document);
                Parse_SZE(base->Bytes, base->Document);
                base->Facts = Facts_Of_Scenario(base->Bytes);
            } catch (const File_Error& error) {
                Pass_On_If_Unreadable(error);
                throw File_Error(Located(file.filename().string(), error));
            }
            return std::shared_ptr<const Base_Scenario>(std::move(base));
        });
    });
    Replace(row, documents);
    return documents;
}

void Run_Maker::Replace(const Plan_Row& row, Documents& documents)
{
    const auto& columns = Plan.Columns();
    if (columns.Replaces(Kind::Pesticide_Field))
        documents.Own_Pesticide = std::make_unique<Pesticide_Document>(*documents.Base_Pesticide);
    if (columns.Replaces(Kind::Scenario_Field))
        documents.Own_Scenario = std::make_unique<Scenario_Document>(documents.Base->Document);
    for (std::size_t i = 0; i < columns.All.size(); ++i) {
        const auto& column = columns.All[i];
        if (column.Kind != Kind::Pesticide_Field && column.Kind != Kind::Scenario_Field)
            continue;
        const auto value = From_Utf8(row.Cells[i]);
        const std::string reason =
            !value ? "'" + row.Cells[i] + "' holds a character that no file of this system can hold."
            : column.Kind == Kind::Pesticide_Field
                ? To_Utf8(Replace_Value(*documents.Own_Pesticide, column.Field, *value))
                : To_Utf8(Replace_Value(*documents.Own_Scenario, column.Field, *value));
        if (!reason.empty())
            throw File_Error(column.Name + ": " + reason, row.Line, static_cast<int>(i) + 1);
    }
    if (documents.Own_Pesticide) {
        Update_Pathway(*documents.Own_Pesticide);
        documents.Pesticide_Bytes = Format_PSM(*documents.Own_Pesticide);
    }
    if (documents.Own_Scenario) {
        documents.Scenario_Bytes = Format_SZE(*documents.Own_Scenario);
        documents.Own_Facts = Facts_Of_Scenario(*documents.Scenario_Bytes);
    }
}

// What a replaced value breaks is told at the first column of which it is true alone, else at the first column.
void Run_Maker::Check_Layout(const Plan_Row& row, const Documents& documents)
{
    const auto& columns = Plan.Columns().All;
    std::string replaced = documents.Pesticide_Input.Kept + "\n" + documents.Scenario_Input.Kept;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].Kind == Kind::Pesticide_Field || columns[i].Kind == Kind::Scenario_Field)
            replaced += "\n" + row.Cells[i];
    }
    if (replaced == Checked_Layout)
        return;
    const auto broken = [&](Kind kind, const auto& own, const auto& base) {
        const auto lost = Broken_By_Layout(own);
        if (!lost)
            return;
        auto first = columns.size();
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].Kind != kind)
                continue;
            const auto alone = std::make_unique<std::remove_cvref_t<decltype(base)>>(base);
            const bool culprit =
                Replace_Value(*alone, columns[i].Field, From_Utf8(row.Cells[i]).value_or("")).empty() &&
                Broken_By_Layout(*alone).has_value();
            if (culprit || first == columns.size())
                first = i;
            if (culprit)
                break;
        }
        throw File_Error(columns[first].Name + ": '" + row.Cells[first] +
                             "' does not fit into the file: " + To_Utf8(lost->Name) + " " + To_Utf8(lost->Cause) + ".",
                         row.Line, static_cast<int>(first) + 1);
    };
    if (documents.Own_Pesticide && !Survives(documents.Pesticide_Bytes.value_or(""), *Scratch, Parse_PSM, Format_PSM))
        broken(Kind::Pesticide_Field, *documents.Own_Pesticide, *documents.Base_Pesticide);
    Scenario_Document scratch;
    Reset_SZE(scratch);
    if (documents.Own_Scenario && !Survives(documents.Scenario_Bytes.value_or(""), scratch, Parse_SZE, Format_SZE))
        broken(Kind::Scenario_Field, *documents.Own_Scenario, documents.Base->Document);
    Checked_Layout = std::move(replaced);
}

Selection Run_Maker::Judged(const Plan_Row& row, const Documents& documents)
{
    Selection selected = Select(row);
    Judge_Selection(selected, *Mode_Named(Cell(row, Kind::Mode)), documents.Pesticide(), documents.Facts());
    if (!selected.Buttons_Enabled())
        Refuse(row, selected.Fault == Selection_Fault::Other_Crop ? Kind::Crop : Kind::Location,
               Sentence(selected.Warnung));
    return selected;
}

std::string Run_Maker::Control_Of_Mode(const Plan_Row& row, const Documents& documents)
{
    const Mode& mode = *Mode_Named(Cell(row, Kind::Mode));
    Run_Choice choice = Judged(row, documents).Choice;
    choice.Scenario = documents.Scenario_Name();
    choice.Pesticide = documents.Pesticide_Name();
    choice.Options.Output = Minimum_Output();
    choice.Options.Tillage = Tillage_List(mode)[static_cast<std::size_t>(mode.Tillage_Index)];
    return Format_Run(Program, mode, choice,
                      {.Scenario = Place_Of(documents.Scenario_Path()),
                       .Climate = Place_Of(With_Backslashes(documents.Scenario_Input.Kept)),
                       .Pesticide = Place_Of(documents.Pesticide_Path())});
}

std::string Run_Maker::Control_Of_Files(const Plan_Row& row, const Documents& documents) const
{
    Single_Run_Settings run{.Run_Scenario_File = documents.Scenario_Path(),
                            .Run_PSM_File = documents.Pesticide_Path(),
                            .Run_Cli_Files = {},
                            .Sim_Years = Years_Of(row),
                            .Start_Day = 1,
                            .Start_Month = 1,
                            .End_Day = Last_Of_December,
                            .End_Month = static_cast<std::int16_t>(December)};
    for (const auto& climate : Climates_Of(row))
        run.Run_Cli_Files.push_back(
            With_Backslashes(At(row, Kind::Climate, [&] { return Inputs.Named_File(climate); }).Kept));
    const double horizons = documents.Pesticide().N_Horizons.Number();
    if (horizons > 0 && documents.Facts().Horizons.value_or(horizons) != horizons)
        Refuse(row, Kind::Scenario, "Number of horizons in PSM file and scenariofile should be the same");
    return Format_Single_Run(run, Minimum_Output());
}

std::string Run_Maker::Control_Of(const Plan_Row& row, const Documents& documents)
{
    return Plan.Columns().Kind == Plan_Kind::Modes ? Control_Of_Mode(row, documents) : Control_Of_Files(row, documents);
}

Made_Run Run_Maker::Make(const Plan_Row& row)
{
    Documents documents = Documents_Of(row);
    return {.Control = Control_Of(row, documents),
            .Pesticide_Name = documents.Pesticide_Name(),
            .Scenario_Name = documents.Scenario_Name(),
            .Pesticide = std::move(documents.Pesticide_Bytes),
            .Scenario = std::move(documents.Scenario_Bytes)};
}

void Run_Maker::Check(const Plan_Row& row, const std::function<void(const Plan_Input&)>& input)
{
    if (Plan.Columns().Kind == Plan_Kind::Modes)
        Check_Location(row, Select(row));
    const Documents documents = Documents_Of(row);
    Check_Layout(row, documents);
    Control_Of(row, documents);
    input(documents.Pesticide_Input);
    input(documents.Scenario_Input);
    Check_Climates(row, documents, input);
}

// The climates of a location, or of a cell, are looked for once.
void Run_Maker::Check_Climates(const Plan_Row& row, const Documents& documents,
                               const std::function<void(const Plan_Input&)>& input)
{
    constexpr std::size_t Most_Kept = 10000;
    if (Known_Climates.size() > Most_Kept)
        Known_Climates.clear();
    if (Plan.Columns().Kind == Plan_Kind::Files) {
        if (!Known_Climates.insert(Plan.Cell(row, Kind::Climate)).second)
            return;
        for (const auto& climate : Climates_Of(row))
            input(At(row, Kind::Climate, [&] { return Inputs.Named_File(climate); }));
        return;
    }
    const Mode& mode = *Mode_Named(Cell(row, Kind::Mode));
    const Selection selected = Judged(row, documents);
    const int years = Years_To_Run(mode, selected.Choice);
    for (int year = 1; year <= years; ++year) {
        const std::string name = Climate_Name(selected.Choice, year);
        if (!Known_Climates.contains(std::string(mode.Name) + "/" + name))
            input(At(row, Kind::Location, [&] { return Inputs.Of_Mode(mode, name); }));
        Known_Climates.insert(std::string(mode.Name) + "/" + name);
    }
}

} // namespace orvel
