// Parses the bytes of a scenario file.
#include "files/scenario_file.h"
#include "files/scenario_lines.h"

#include <cmath>

namespace orvel {

namespace {

struct Date {
    std::int16_t Day = 0, Month = 0, Year = 0;
};

// A date of a rotation row is a word DDMMYY.
Date Next_Date(Line_In& line)
{
    const auto word = line.Word();
    return {To_I16(Val(Columns(word, 1, 2))), To_I16(Val(Columns(word, 3, 2))), To_I16(Val(Columns(word, 5, 2)))};
}

// Tillage of files that hold none: the day before emergence, or the 15th of the month before, which for January is
// month 0.
Date Derived_Tillage(const Rotation_Row& row)
{
    Date date{static_cast<std::int16_t>(row.SZE_Eme_Day - 1), row.SZE_Eme_Month, row.SZE_Eme_Year};
    if (date.Day <= 0) {
        date.Day = 15;
        --date.Month;
    }
    return date;
}

// Reads a document line by line, as the file stands: what was read before an error stays.
class Reader {
public:
    Reader(std::string_view bytes, Scenario_Document& document) : Lines(bytes), Document(document) {}

    void Read()
    {
        Document.SZE_Title = Lines.Next();
        auto second = Next();
        Evapotranspiration_Line(second, Document);
        Marker = Trim(second.Remainder());
        Document.SZE_Erosion = To_I16(Next().Number());
        if (Document.SZE_Erosion == 1) {
            auto erosion = Next();
            Erosion_Line(erosion, Document);
        }
        Read_Crops();
        Read_Rotation();
        Read_Soil();
        Read_Output();
    }

private:
    Line_In Next() { return Line_In(Lines.Next()); }

    void Read_Crops()
    {
        Document.SZE_Crop_Count = To_I16(Next().Number());
        const int count = Checked_Count(Document.SZE_Crop_Count, std::numeric_limits<std::int16_t>::max(), "crop rows");
        const bool extended = Contains(Marker, Marker_Derived_Tillage) || Contains(Marker, Marker_Extended);
        Document.Crops.clear();
        for (int c = 0; c < count; ++c) {
            auto line = Next();
            auto& crop = Document.Crops.emplace_back();
            Crop_Line(line, crop);
            if (extended)
                Crop_Extension(line, crop);
        }
    }

    void Read_Rotation()
    {
        Document.SZE_Rot_Count = To_I16(Next().Number());
        const int count =
            Checked_Count(Document.SZE_Rot_Count, std::numeric_limits<std::int16_t>::max(), "rotation rows");
        Document.Rotation.clear();
        for (int r = 0; r < count; ++r)
            Read_Rotation_Row(Document.Rotation.emplace_back());
    }

    void Read_Rotation_Row(Rotation_Row& row)
    {
        auto line = Next();
        const Date emergence = Next_Date(line), maturation = Next_Date(line), harvest = Next_Date(line);
        row.SZE_Eme_Day = emergence.Day, row.SZE_Eme_Month = emergence.Month, row.SZE_Eme_Year = emergence.Year;
        row.SZE_Mat_Day = maturation.Day, row.SZE_Mat_Month = maturation.Month, row.SZE_Mat_Year = maturation.Year;
        row.SZE_Har_Day = harvest.Day, row.SZE_Har_Month = harvest.Month, row.SZE_Har_Year = harvest.Year;
        row.SZE_Rot_Crop_Index = To_I16(line.Number());

        // Only a marker with "ORVEL400" makes the dates behind count; a senescence written under "ORVEL401" is dropped.
        const bool has_dates = Contains(Marker, Marker_Derived_Tillage);
        const Date senescence = has_dates ? Next_Date(line) : harvest;
        row.SZE_Sen_Day = senescence.Day, row.SZE_Sen_Month = senescence.Month, row.SZE_Sen_Year = senescence.Year;
        const bool has_tillage = has_dates && Marker != Marker_Derived_Tillage;
        const Date tillage = has_tillage ? Next_Date(line) : Derived_Tillage(row);
        row.SZE_Til_Day = tillage.Day, row.SZE_Til_Month = tillage.Month, row.SZE_Til_Year = tillage.Year;
    }

    void Read_Soil()
    {
        auto soil = Next();
        Soil_Line(soil, Document);
        Document.SZE_Runoff = Document.SZE_Water_Flag.Number() >= 2 ? 1 : 0;
        auto horizons = Next();
        Horizon_Head_Line(horizons, Document);
        const int count = Checked_Count(Document.SZE_Horizons.Number(), Most_Horizons, "soil horizons");
        Document.Horizons.clear();
        for (int h = 0; h < count; ++h)
            Read_Horizon(Document.Horizons.emplace_back());
    }

    void Read_Horizon(Scenario_Horizon& horizon)
    {
        horizon = {.SZE_Hor_FC = 0, .SZE_Hor_WP = 0, .SZE_Hor_Sand = 0};
        auto one = Next();
        Horizon_Line_One(one, horizon, 0);
        auto two = Next();
        Horizon_Line_Two(two, horizon, Document.SZE_Hydraulic_Flag.Number() == 0);
    }

    void Read_Output()
    {
        auto bottom = Next();
        Bottom_Line(bottom, Document);
        auto output = Next();
        Output_Line(output, Document);
        auto macropore = Next();
        Macropore_Line(macropore, Document);
        auto latitude = Next();
        Latitude_Line(latitude, Document);
    }

    Line_Reader Lines;
    Scenario_Document& Document;
    std::string_view Marker;
};

} // namespace

void Parse_SZE(std::string_view bytes, Scenario_Document& document)
{
    Reader(bytes, document).Read();
}

} // namespace orvel
