#include "scenario/crop_data.h"

#include "files/lines.h"

namespace orvel {

namespace {

constexpr std::size_t Name_Width = 14;

// The columns are emergence, maturation, harvest, senescence, tillage.
Rotation_Row Parse_Dates(Line_In& words)
{
    Rotation_Row dates;
    for (const auto date : {&Rotation_Row::SZE_Eme_Day, &Rotation_Row::SZE_Eme_Month, &Rotation_Row::SZE_Eme_Year,
                            &Rotation_Row::SZE_Mat_Day, &Rotation_Row::SZE_Mat_Month, &Rotation_Row::SZE_Mat_Year,
                            &Rotation_Row::SZE_Har_Day, &Rotation_Row::SZE_Har_Month, &Rotation_Row::SZE_Har_Year})
        dates.*date = words.Integer();
    dates.SZE_Sen_Day = words.Integer();
    dates.SZE_Sen_Month = words.Integer();
    for (const auto date : {&Rotation_Row::SZE_Sen_Year, &Rotation_Row::SZE_Til_Day, &Rotation_Row::SZE_Til_Month,
                            &Rotation_Row::SZE_Til_Year})
        dates.*date = words.Integer();
    return dates;
}

Crop_Data Parse_Crop(std::string_view line, int number)
{
    Crop_Data crop;
    crop.DB_Crop_Name = Trim(Columns(line, 1, Name_Width));
    Line_In words(line, number);
    words.Skip_To(Name_Width + 1);
    auto& defaults = crop.Defaults;
    defaults.SZE_Rot_Text1 = words.Number();
    defaults.SZE_Rot_Text2 = words.Number();
    defaults.SZE_Rot_Interception = words.Number();
    defaults.SZE_Rot_Residue = words.Integer();
    defaults.SZE_Rot_Dry_Mass = words.Number();
    crop.Default_Dates = Parse_Dates(words);
    for (const auto rate : {&Crop_Row::SZE_Rot_RR_Photo, &Crop_Row::SZE_Rot_RR_Pen, &Crop_Row::SZE_Rot_RR_Vol,
                            &Crop_Row::SZE_Rot_RR_Wash})
        defaults.*rate = words.Number();
    defaults.SZE_Rot_Irrigated = words.Integer();
    defaults.SZE_Rot_Perennial = words.Integer();
    crop.DB_Tillage = defaults.SZE_Rot_Tillage = words.Integer();
    defaults.SZE_Rot_Kc_Mid = words.Number();
    defaults.SZE_Rot_Kc_Late = words.Number();
    return crop;
}

} // namespace

std::vector<Crop_Data> Parse_Crop_Data(std::string_view bytes)
{
    Line_Reader lines(bytes);
    Line_In head(lines.Next(), 1);
    const double count = head.Number();
    if (count < 0 || count > Most_Crops)
        throw File_Error("The crop data base cannot hold " + General_Text(count) + " crops.", 1,
                         head.Place_Of_Last().Column);
    lines.Skip(1);
    std::vector<Crop_Data> crops;
    for (int i = 1; i <= To_I16(count); ++i) {
        const auto line = lines.Next();
        auto& crop = crops.emplace_back(Parse_Crop(line, lines.Line_Number()));
        crop.Defaults.SZE_Rot_Crop_No = crop.Default_Dates.SZE_Rot_Crop_Index = static_cast<std::int16_t>(i);
    }
    return crops;
}

Crop_Row Crop_Defaults(const Crop_Data& crop)
{
    Crop_Row row = crop.Defaults;
    row.SZE_Rot_CN1 = 78;
    row.SZE_Rot_CN2 = 70;
    row.SZE_Rot_CN3 = 74;
    row.SZE_Rot_USLE1 = row.SZE_Rot_USLE2 = row.SZE_Rot_USLE3 = 1;
    return row;
}

} // namespace orvel
