#include "scenario/saving.h"

#include "core/numbers.h"
#include "files/scenario_lines.h"
#include "scenario/macropores.h"
#include "scenario/rotation_dates.h"
#include "ui/number_field.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr const char* Horizons_Box = "Text_nhor";
constexpr const char* Rotation_Button = "Command3";

double Thickness_Of(const Scenario_Document& document)
{
    const auto count = Rows_Counted(document.SZE_Horizons.Number(), document.Horizons.size());
    double sum = 0;
    for (std::size_t h = 0; h < count; ++h)
        sum += document.Horizons[h].SZE_Hor_Thickness.Number();
    return sum;
}

// The first date of a row that does not fit two digits, as shown to the user; empty if all fit.
std::string Date_Without_Room(const Rotation_Row& row, bool with_tillage)
{
    for (const auto& stage : Crop_Stages) {
        const auto date = Date_Of(row, stage.Stage);
        if (Fits_Two_Digits(date) || (stage.Stage == Crop_Stage::Tillage && !with_tillage))
            continue;
        return std::string(stage.Label) + " " + std::to_string(date.Day) + "." + std::to_string(date.Month) + "." +
               std::to_string(date.Year);
    }
    return {};
}

bool Crop_Is_Tilled(const Rotation_Row& row, const std::vector<Crop_Row>& crops)
{
    const auto index = static_cast<std::size_t>(std::max<int>(row.SZE_Rot_Crop_Index, 1)) - 1;
    return index < crops.size() && crops[index].SZE_Rot_Tillage != 0;
}

bool Uses_Tillage(const Scenario_Document& document)
{
    return std::ranges::any_of(document.Rotation,
                               [&](const Rotation_Row& row) { return Crop_Is_Tilled(row, document.Crops); });
}

// The layout looks for tillage only among as many crops as there are rotation rows: a tilled crop after them leaves its
// dates unwritten.
void Tell_Unwritten_Tillage(const Session& session)
{
    const auto& document = session.Scenario;
    if (!Uses_Tillage(document) || Has_Tillage(document))
        return;
    const int rows = document.SZE_Rot_Count;
    session.Ask(
        {"Data Check", "A rotation of " + std::to_string(rows) + (rows == 1 ? " row" : " rows") +
                           " is saved with its dates of tillage and senescence only if " +
                           (rows == 1 ? "the first crop" : "one of the first " + std::to_string(rows) + " crops") +
                           " of the data base is tilled. They will not be in the file."});
}

} // namespace

std::optional<Refusal> Prepare_Save(Session& session, std::string_view horizons)
{
    auto& document = session.Scenario;
    document.SZE_Horizons = Typed_Number(horizons);
    if (document.SZE_Horizons.Number() <= 0)
        return Refusal{{"Data Check", "Insert soil horizon parameters"}, Horizons_Box};
    if (document.SZE_Horizons.Number() > static_cast<double>(document.Horizons.size()) ||
        Thickness_Of(document) != document.SZE_Core_Depth)
        return Refusal{{"Data Check", "Core depth and horizon thickness are not consistent"}, "Text_cor"};
    if (auto refusal = Check_Rotation_Digits(document.Rotation, document.Crops))
        return refusal;
    Limit_Macropore_Depth(document);
    Tell_Unwritten_Tillage(session);
    return std::nullopt;
}

std::optional<Refusal> Check_Open_Horizons(std::string_view horizons)
{
    if (Val(horizons) > 0)
        return std::nullopt;
    return Refusal{{"Data check", "Insert number of horizons"}, Horizons_Box};
}

std::optional<Refusal> Check_Rotation_Digits(const std::vector<Rotation_Row>& rows, const std::vector<Crop_Row>& crops)
{
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const auto date = Date_Without_Room(rows[r], Crop_Is_Tilled(rows[r], crops));
        if (!date.empty())
            return Refusal{
                {"Data Check", "Row " + std::to_string(r + 1) +
                                   " of the crop rotation: the scenario file has no room for \"" + date +
                                   "\". Its days, months and years have two digits, so year 99 is the last one."},
                Rotation_Button};
    }
    return std::nullopt;
}

bool May_Close(const Session& session, bool changed)
{
    if (!changed)
        return true;
    return session.Ask({"Saving Input File",
                        "Parameters were changed. Do you want to exit without saving ?",
                        Icon::Question,
                        {Button::Yes, Button::No},
                        Button::No}) == Button::Yes;
}

} // namespace orvel
