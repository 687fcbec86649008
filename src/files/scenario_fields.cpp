// The fields of a scenario file in order, to find what its layout would lose.
#include "core/numbers.h"
#include "files/broken_line.h"
#include "files/line_fields.h"
#include "files/scenario_file.h"
#include "files/scenario_lines.h"

namespace orvel {

namespace {

// Without a crop with tillage no date of senescence or tillage is read.
void Change_As_Read(Scenario_Document& document)
{
    if (Has_Tillage(document))
        return;
    for (auto& row : document.Rotation) {
        row.SZE_Sen_Day = row.SZE_Har_Day;
        row.SZE_Sen_Month = row.SZE_Har_Month;
        row.SZE_Sen_Year = row.SZE_Har_Year;
    }
}

// In the order of the file.
class Scenario_Lister {
public:
    explicit Scenario_Lister(const Scenario_Document& document) : Document(document) {}

    Line_Fields List()
    {
        Fields.Text_Field(Document.SZE_Title, "Title").End();
        Evapotranspiration_Line(Fields, Document);
        Fields.End();
        Fields.Field(Document.SZE_Erosion, "Erosion flag").End();
        if (Document.SZE_Erosion == 1)
            Erosion_Line(Fields, Document);
        Fields.End();
        List_Crops();
        List_Horizons();
        Bottom_Line(Fields, Document);
        Fields.End();
        Output_Line(Fields, Document);
        Fields.End();
        Macropore_Line(Fields, Document);
        Fields.End();
        Latitude_Line(Fields, Document);
        return Fields;
    }

private:
    void List_Crops()
    {
        Fields.Field(Document.SZE_Crop_Count, "Number of crops").End();
        for (std::size_t c = 0; c < Rows_Counted(Document.SZE_Crop_Count, Document.Crops.size()); ++c) {
            Fields.About("crop row " + std::to_string(c + 1));
            Crop_Line(Fields, Document.Crops[c]);
            Crop_Extension(Fields, Document.Crops[c]);
            Fields.End();
        }
        Fields.About("");
        Fields.Field(Document.SZE_Rot_Count, "Number of rotation rows").End();
        for (std::size_t r = 0; r < Rows_Counted(Document.SZE_Rot_Count, Document.Rotation.size()); ++r) {
            Fields.About("rotation row " + std::to_string(r + 1));
            Rotation_Line(Fields, Document.Rotation[r], Has_Tillage(Document));
            Fields.End();
        }
        Fields.About("");
    }

    void List_Horizons()
    {
        Soil_Line(Fields, Document);
        Fields.End();
        Horizon_Head_Line(Fields, Document);
        Fields.End();
        for (std::size_t h = 0; h < Rows_Counted(Document.SZE_Horizons.Number(), Document.Horizons.size()); ++h) {
            Fields.About("horizon " + std::to_string(h + 1));
            Horizon_Line_One(Fields, Document.Horizons[h], h + 1);
            Fields.End();
            Horizon_Line_Two(Fields, Document.Horizons[h], Document.SZE_Hydraulic_Flag.Number() == 0);
            Fields.End();
        }
        Fields.About("");
    }

    const Scenario_Document& Document;
    Line_Fields Fields;
};

} // namespace

std::optional<Lost_Field> Broken_By_Layout(const Scenario_Document& document)
{
    Scenario_Document written = document, read;
    bool complete = true;
    try {
        Reset_SZE(read);
        Parse_SZE(Format_SZE(written), read);
    } catch (const File_Error&) {
        complete = false;
    }
    Change_As_Read(written);
    Change_As_Read(read);
    const auto lost = Scenario_Lister(written).List().First_Not_In(Scenario_Lister(read).List());
    return lost || complete ? lost : Unreadable();
}

} // namespace orvel
