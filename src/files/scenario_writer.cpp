// Formats a scenario document as the bytes of its file.
#include "files/scenario_file.h"
#include "files/scenario_lines.h"

namespace orvel {

namespace {

class Scenario_Writer {
public:
    explicit Scenario_Writer(Scenario_Document& document) : Document(document) {}

    std::string Write()
    {
        const auto crops = static_cast<std::size_t>(
            Checked_Count(Document.SZE_Crop_Count, static_cast<int>(Document.Crops.size()), "crop rows"));
        const bool tillage = Has_Tillage(Document);
        Document.SZE_First_Crop = crops > 0 ? Document.Crops[0].SZE_Rot_Crop_No : 0;
        Out.Line(Document.SZE_Title);
        Evapotranspiration_Line(Out, Document);
        Out.Line(tillage ? Marker_Tillage : Marker_Extended);
        Out.Field(Document.SZE_Erosion, {}).End();
        if (Document.SZE_Erosion == 1) {
            Erosion_Line(Out, Document);
            Out.End();
        }
        Out.Field(Document.SZE_Crop_Count, {}).End();
        for (std::size_t c = 0; c < crops; ++c) {
            Crop_Line(Out, Document.Crops[c]);
            Crop_Extension(Out, Document.Crops[c]);
            Out.End();
        }
        Write_Rotation(tillage);
        Write_Soil();
        Write_Output();
        return Out.Printed();
    }

private:
    void Write_Rotation(bool tillage)
    {
        const int count =
            Checked_Count(Document.SZE_Rot_Count, static_cast<int>(Document.Rotation.size()), "rotation rows");
        Out.Tab(4).Field(Document.SZE_Rot_Count, {}).End();
        for (int r = 0; r < count; ++r) {
            const auto& row = Document.Rotation[static_cast<std::size_t>(r)];
            Rotation_Line(Out, row, tillage);
            Out.End();
        }
    }

    void Write_Soil()
    {
        Soil_Line(Out, Document);
        Out.End();
        Horizon_Head_Line(Out, Document);
        Out.End();
        const auto count = static_cast<std::size_t>(
            Checked_Count(Document.SZE_Horizons.Number(), static_cast<int>(Document.Horizons.size()), "soil horizons"));
        for (std::size_t h = 0; h < count; ++h) {
            const auto& horizon = Document.Horizons[h];
            Horizon_Line_One(Out, horizon, h + 1);
            Out.End();
            Horizon_Line_Two(Out, horizon, Document.SZE_Hydraulic_Flag.Number() == 0);
            Out.End();
        }
    }

    void Write_Output()
    {
        for (auto* frequency : {&Document.SZE_Freq_Water, &Document.SZE_Freq_Solute, &Document.SZE_Freq_Conc}) {
            if (Trim(frequency->Text()).empty())
                *frequency = Variant::Verbatim(Daily_Output);
        }
        Bottom_Line(Out, Document);
        Out.End();
        Output_Line(Out, Document);
        Out.End();
        Macropore_Line(Out, Document);
        Out.End();
        Latitude_Line(Out, Document);
        Out.End();
    }

    Scenario_Document& Document;
    Line_Out Out;
};

} // namespace

std::string Format_SZE(Scenario_Document& document)
{
    return Scenario_Writer(document).Write();
}

} // namespace orvel
