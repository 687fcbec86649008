// Parses the bytes of a scenario file.
#include "files/scenario_file.h"
#include "files/scenario_lines.h"

#include <cmath>

namespace orvel {

namespace {

constexpr std::size_t Rotation_Date_Width = 6;

struct Rotation_Day {
    std::int16_t Day = 0, Month = 0, Year = 0;
};

// A date of a rotation row is a word DDMMYY.
Rotation_Day Next_Date(Line_In& line)
{
    const auto word = line.Word();
    if (!word.empty() && (word.size() != Rotation_Date_Width || !Is_Digits(word)))
        line.Complain(word);
    return {To_I16(Val(Columns(word, 1, 2))), To_I16(Val(Columns(word, 3, 2))), To_I16(Val(Columns(word, 5, 2)))};
}

// Tillage where the file has none: the day before emergence, or the 15th of the month before; the month before January
// is 0.
Rotation_Day Derived_Tillage(const Rotation_Row& row)
{
    Rotation_Day date{static_cast<std::int16_t>(row.SZE_Eme_Day - 1), row.SZE_Eme_Month, row.SZE_Eme_Year};
    if (date.Day <= 0) {
        date.Day = 15;
        --date.Month;
    }
    return date;
}

// Fills the document line by line; what was read before an error stays in it.
class Scenario_Reader {
public:
    Scenario_Reader(std::string_view bytes, Scenario_Document& document, File_Notes* notes)
        : Lines(bytes),
          Document(document),
          Notes(notes),
          Misread_Words(notes ? &notes->Misread : nullptr)
    {}

    void Read()
    {
        Document.SZE_Title = Lines.Next();
        const auto line = Lines.Next();
        Line_In second(line, Lines.Line_Number(), Misread_Words);
        Evapotranspiration_Line(second, Document);
        Marker = Trim(second.Remainder());
        Document.SZE_Legacy_Crops = !Contains(line, Marker_Of_Extended_Rows);
        Drops_Senescence = Contains(line, Marker_Extended);
        Document.SZE_Erosion = Next().Integer();
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
    Line_In Next()
    {
        const auto line = Lines.Next();
        return Line_In(line, Lines.Line_Number(), Misread_Words);
    }

    void Read_Crops()
    {
        auto head = Next();
        Document.SZE_Crop_Count = head.Integer();
        const int count = Checked_Count(Document.SZE_Crop_Count, std::numeric_limits<std::int16_t>::max(), "crop rows",
                                        head.Place_Of_Last());
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
        auto head = Next();
        Document.SZE_Rot_Count = head.Integer();
        const int count = Checked_Count(Document.SZE_Rot_Count, std::numeric_limits<std::int16_t>::max(),
                                        "rotation rows", head.Place_Of_Last());
        Document.Rotation.clear();
        for (int r = 0; r < count; ++r)
            Read_Rotation_Row(Document.Rotation.emplace_back());
    }

    void Read_Rotation_Row(Rotation_Row& row)
    {
        auto line = Next();
        const Rotation_Day emergence = Next_Date(line), maturation = Next_Date(line), harvest = Next_Date(line);
        row.SZE_Eme_Day = emergence.Day, row.SZE_Eme_Month = emergence.Month, row.SZE_Eme_Year = emergence.Year;
        row.SZE_Mat_Day = maturation.Day, row.SZE_Mat_Month = maturation.Month, row.SZE_Mat_Year = maturation.Year;
        row.SZE_Har_Day = harvest.Day, row.SZE_Har_Month = harvest.Month, row.SZE_Har_Year = harvest.Year;
        row.SZE_Rot_Crop_Index = line.Integer();

        // The dates behind count only under a marker with "ORVEL400". A senescence under "ORVEL401" is kept for the
        // engine; editors take the harvest in its place.
        Line_In behind = line;
        const auto date = behind.Word();
        if (Drops_Senescence && !date.empty() && !Is_Digits(date))
            behind.Complain(date);
        if (Drops_Senescence && date.size() >= Rotation_Date_Width) {
            row.SZE_Sen_In_File =
                Rotation_Date{static_cast<int>(Val(Columns(date, 1, 2))), static_cast<int>(Val(Columns(date, 3, 2))),
                              To_I16(Val(Columns(date, 5, 2)))};
        }
        const bool has_dates = Contains(Marker, Marker_Derived_Tillage);
        const Rotation_Day senescence = has_dates ? Next_Date(line) : harvest;
        row.SZE_Sen_Day = senescence.Day, row.SZE_Sen_Month = senescence.Month, row.SZE_Sen_Year = senescence.Year;
        const bool has_tillage = has_dates && Marker != Marker_Derived_Tillage;
        const Rotation_Day tillage = has_tillage ? Next_Date(line) : Derived_Tillage(row);
        row.SZE_Til_Day = tillage.Day, row.SZE_Til_Month = tillage.Month, row.SZE_Til_Year = tillage.Year;
    }

    void Read_Soil()
    {
        auto soil = Next();
        Soil_Line(soil, Document);
        Document.SZE_Runoff = Document.SZE_Water_Flag.Number() >= 2 ? 1 : 0;
        const auto line = Lines.Next();
        Line_In horizons(line, Lines.Line_Number(), Misread_Words);
        Horizon_Head_Line(horizons, Document);
        const int count = Checked_Count(Document.SZE_Horizons.Number(), Most_Horizons, "soil horizons",
                                        {Lines.Line_Number(), Column_Of(Trim(line), line)});
        Document.Horizons.clear();
        for (int h = 0; h < count; ++h)
            Read_Horizon(Document.Horizons.emplace_back());
    }

    void Read_Horizon(Scenario_Horizon& horizon)
    {
        horizon = {.SZE_Hor_FC = 0, .SZE_Hor_WP = 0, .SZE_Hor_Sand = 0};
        auto one = Next();
        auto number = one;
        const std::string word(number.Word());
        const auto expected = Document.Horizons.size();
        if (Notes && (!Is_One_Number(word) || Val(word) != static_cast<double>(expected)))
            Notes->Unused.push_back({number.Place_Of_Last(), word, "Horizon number", std::to_string(expected)});
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
    File_Notes* Notes;
    Misreads* Misread_Words;
    std::string_view Marker;
    bool Drops_Senescence = false;
};

} // namespace

void Parse_SZE(std::string_view bytes, Scenario_Document& document, File_Notes* notes)
{
    Scenario_Reader(bytes, document, notes).Read();
}

} // namespace orvel
