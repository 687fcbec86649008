// The fields of a pesticide file in order, to find what its layout would lose.
#include "core/pesticide_constants.h"
#include "files/broken_line.h"
#include "files/line_fields.h"
#include "files/pesticide_file.h"
#include "files/pesticide_lines.h"

#include <algorithm>
#include <memory>

namespace orvel {

namespace {

// Applies what any reading changes, and the one reference point that all relative applications share.
void Change_As_Read(Pesticide_Document& document)
{
    for (std::size_t i = 1; i <= Substances; ++i) {
        if (document.Koc_Change[i] == 0)
            document.Koc_Change[i] = 1;
        if (document.Sorp_pH2[i].Number() == 0)
            document.Sorp_pH2[i] = No_Value;
    }
    for (auto& application : document.Relative)
        application.Abs9_Month = document.Relative[1].Abs9_Month;
}

class Pesticide_Lister {
public:
    explicit Pesticide_Lister(const Pesticide_Document& document) : Document(document) {}

    Line_Fields List()
    {
        Fields.Text_Field(Document.PSM_Title, "Title")
            .Text_Field(Document.Substance_Name[1], "Name of the active substance")
            .End();
        Horizon_Count_Line(Fields, Document);
        Fields.End();
        List_Applications();
        Flags_Line(Fields, Document);
        Fields.End();
        for (std::size_t k = 0; k < 2; ++k) {
            Fields.About("volatilisation point " + std::to_string(k + 1));
            Volatilisation_Line(Fields, Document, k);
            Volatilisation_Temperature(Fields, Document, k);
            Fields.End();
        }
        for (int i = 1; i <= Substances; ++i)
            List_Substance(i);
        return Fields;
    }

private:
    void List_Applications()
    {
        Fields.Field(Document.App_Loc_Count, "Number of locations").Field(Document.App_Mode, "Application mode").End();
        const int locations = std::clamp<int>(Document.App_Loc_Count, 0, Last_Location + 1);
        for (int location = 0; location < locations; ++location)
            List_Location(static_cast<std::size_t>(location));
        Fields.About("");
        Method_Line(Fields, Document);
        Fields.End();
        if (Document.App_Method.Number() > Soil_Method)
            Plant_Line(Fields, Document);
        Fields.End();
    }

    void List_Location(std::size_t location)
    {
        const std::string place = "location " + std::to_string(location);
        Fields.About(place);
        Fields.Pattern(Document.App_Count[location], "000", "Number of applications").Tab(Location_Code_Tab);
        if (location > 0)
            Fields.Text_Field(Document.App_Location[location], "Name");
        Fields.End();
        const double count = std::clamp<double>(Document.App_Count[location].Number(), 0, Last_Application);
        for (std::size_t a = 1; a <= static_cast<std::size_t>(count); ++a) {
            const auto& application = Document.Applications[location][a];
            Fields.About("application " + std::to_string(a) + ", " + place);
            if (Document.App_Mode == App_Mode_Relative)
                Relative_Line(Fields, Document.Relative[a]);
            else
                Application_Line(Fields, application);
            Application_Tail(Fields, application);
            Fields.End();
        }
    }

    void List_Substance(int i)
    {
        const auto s = static_cast<std::size_t>(i);
        const std::string substance(Default_Substance_Name[s]);
        Fields.About(substance);
        if (i > 1 && !List_Head_Of_Metabolite(s))
            return;
        Uptake_Line(Fields, Document, s);
        Fields.End();
        for (std::size_t j = 1; j <= static_cast<std::size_t>(Rows_Of_Substance(i)); ++j) {
            Fields.About(substance + " to " + std::string(Target_Label[s][j]));
            Degradation_Line(Fields, Document.Degradation[s][j], Target_Label[s][j]);
            Fields.End();
        }
        Fields.About(substance);
        Fields
            .Field(Individual_Depth_Modes * Document.Deg_Liquid_Only[s] + Document.Deg_Depth_Mode[s],
                   "Depth mode of degradation")
            .End();
        if (i == 1)
            Photodegradation_Line(Fields, Document);
        Fields.End();
        Sorption_Line(Fields, Document, s);
        Fields.End();
        for (std::size_t h = 1; h < Document.Horizons.size() && static_cast<double>(h) <= Document.N_Horizons.Number();
             ++h) {
            Fields.About(substance + " in horizon " + std::to_string(h));
            Horizon_Line(Fields, Document.Horizons[h], i);
            Fields.End();
        }
    }

    // False for a metabolite without a section.
    bool List_Head_Of_Metabolite(std::size_t i)
    {
        Fields.Field(Document.Met_Present[i], "Section").End();
        if (!Document.Met_Present[i])
            return false;
        Fields.Text_Field(Document.Substance_Name[i], "Name").End();
        Metabolite_Flags_Line(Fields, Document, i);
        Fields.End();
        Molmass_Line(Fields, Document, i);
        Fields.End();
        return true;
    }

    const Pesticide_Document& Document;
    Line_Fields Fields;
};

} // namespace

std::optional<Lost_Field> Broken_By_Layout(const Pesticide_Document& document)
{
    const auto written = std::make_unique<Pesticide_Document>(document);
    const auto read = std::make_unique<Pesticide_Document>();
    bool complete = true;
    try {
        Parse_PSM(Format_PSM(*written), *read);
    } catch (const File_Error&) {
        complete = false;
    }
    Change_As_Read(*written);
    Change_As_Read(*read);
    const auto lost = Pesticide_Lister(*written).List().First_Not_In(Pesticide_Lister(*read).List());
    return lost || complete ? lost : Unreadable();
}

} // namespace orvel
