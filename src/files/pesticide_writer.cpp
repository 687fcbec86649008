// Formats a pesticide document as the bytes of its file.
#include "files/pesticide_file.h"

#include "core/locations.h"
#include "core/pesticide_constants.h"
#include "files/pesticide_lines.h"

namespace orvel {

namespace {

constexpr std::string_view Section_Rule = "###############################################";

class Pesticide_Writer {
public:
    explicit Pesticide_Writer(Pesticide_Document& document) : Document(document) {}

    std::string Write()
    {
        Write_Head();
        Write_Applications();
        Write_Flags_And_Volatilisation();
        Uptake(1);
        Write_Degradation_Of_The_Active_Substance();
        Sorption(1, "<Koc-value    Fr.exp.Koc  pH          pKa     limit for Freundl.  ann.incr.> <k_doc> <% change> "
                    "KOC2      pH2 f_neq       kdes>");
        Depth_Dependent(1);
        for (int i = 2; i <= Substances; ++i) {
            if (Document.Met_Present[static_cast<std::size_t>(i)])
                Write_Metabolite(i);
        }
        Out.Line(End_Tag);
        return Out.Printed();
    }

private:
    void Write_Head()
    {
        Out.Line("<COMMENT>")
            .Text(Document.PSM_Title)
            .Spc(5)
            .Text("<")
            .Text(Document.Substance_Name[1])
            .Text(">")
            .End();
        Out.Line("<END COMMENT>").Line("<NUMBER OF SOIL HORIZONS>");
        Horizon_Count_Line(Out, Document);
        Out.End().Line("<END NUMBER OF SOIL HORIZONS>");
    }

    void Write_Applications()
    {
        Out.Line("<APPLICATION>")
            .Field(Document.App_Loc_Count, {})
            .Spc(3)
            .Text("0")
            .Spc(3)
            .Field(Document.App_Mode, {})
            .Spc(3);
        Out.Line("<number of locations absolute app/relative app>");
        const int locations = Checked_Count(Document.App_Loc_Count, Last_Location + 1, "locations");
        for (int location = 0; location < locations; ++location)
            Write_Location(static_cast<std::size_t>(location));
        Method_Line(Out, Document);
        Out.End();
        if (Document.App_Method.Number() > Soil_Method) {
            Plant_Line(Out, Document);
            Out.End();
        }
        Out.Line("<END APPLICATION>");
    }

    void Write_Location(std::size_t location)
    {
        Out.Pattern(Document.App_Count[location], "000", {})
            .Tab(Location_Code_Tab)
            .Text(location == 0 ? "" : Bracket_Text(Document.App_Location[location]));
        Out.Spc(3).Line("<number of application location>");
        const int count = Checked_Count(Document.App_Count[location].Number(), Last_Application, "applications");
        for (std::size_t a = 1; a <= static_cast<std::size_t>(count); ++a) {
            if (Document.App_Mode == App_Mode_Relative)
                Relative(Document.Relative[a]);
            else
                Application_Line(Out, Document.Applications[location][a]);
            Application_Tail(Out, Document.Applications[location][a]);
            Out.End();
        }
    }

    // The table holds one reference point for all its entries: that of the first.
    void Relative(Relative_Application application)
    {
        application.Abs9_Month = Document.Relative[1].Abs9_Month;
        Relative_Line(Out, application);
    }

    void Write_Flags_And_Volatilisation()
    {
        if (Document.Solubility[0] * Document.Solubility[1] == 0)
            Document.Henry_Flag = 0;
        Out.Line("<FLAGS>");
        Flags_Line(Out, Document);
        Out.End().Line("<END FLAGS>").Line("<VOLATILIZATION>").Line(Volatilisation_Header);
        for (std::size_t k = 0; k < 2; ++k) {
            Volatilisation_Line(Out, Document, k);
            Volatilisation_Temperature(Out, Document, k);
            Out.End();
        }
        Out.Line("<END VOLATILIZATION>");
    }

    void Uptake(std::size_t i)
    {
        Out.Line("<PLANT UPTAKE>");
        Uptake_Line(Out, Document, i);
        Out.End().Line("<END PLANT UPTAKE>");
    }

    void Write_Degradation_Of_The_Active_Substance()
    {
        Out.Line("<DEGRADATION>")
            .Line("<degrate    degtemp     q10         moist-abs   moist-rel   moist-exp   rel deg neq sites");
        Degradation(1);
        Out.Line(Photodegradation_Tag).Line("<rate 1/n>  <I_Ref W/m\xB2>");
        Photodegradation_Line(Out, Document);
        Out.End().Line("<END DEGRADATION>");
    }

    void Degradation(int i)
    {
        const auto s = static_cast<std::size_t>(i);
        for (std::size_t j = 1; j <= static_cast<std::size_t>(Rows_Of_Substance(i)); ++j) {
            Degradation_Line(Out, Document.Degradation[s][j], Target_Label[s][j]);
            Out.End();
        }
        Out.Field(Individual_Depth_Modes * Document.Deg_Liquid_Only[s] + Document.Deg_Depth_Mode[s], {})
            .Zone()
            .Text("     <0 = ");
        Out.Text(Depth_Mode_Mark).Text(", 1 = constant with depth,2 individual,3 = ").Text(Depth_Mode_Mark);
        Out.Line(", 4 = constant with depth,5 individual, >2 deg in liquid phase only)");
    }

    void Sorption(std::size_t i, std::string_view header)
    {
        if (Document.Sorp_pKa[i].Number() == No_Dissociation)
            Document.Koc2[i] = Document.Sorp_pH[i] = Document.Sorp_pH2[i] = No_Value;
        Out.Line("<ADSORPTION>").Line(header);
        Sorption_Line(Out, Document, i);
        Out.End().Line("<END ADSORPTION>");
    }

    void Depth_Dependent(int i)
    {
        const auto& labels = Target_Label[static_cast<std::size_t>(i)];
        Out.Line("<DEPTH DEPENDENT SORPTION AND TRANSFORMATION VALUES>")
            .Text("<Kd          Fr.exp.     ")
            .Text(labels[1]);
        for (std::size_t k = 2; k <= static_cast<std::size_t>(Rows_Of_Substance(i)); ++k)
            Out.Spc(3).Text(labels[k]);
        Out.Line(" >");
        const int count = Checked_Count(Document.N_Horizons.Number(), static_cast<int>(Document.Horizons.size()) - 1,
                                        "soil horizons");
        for (int h = 1; h <= count; ++h) {
            Horizon_Line(Out, Document.Horizons[static_cast<std::size_t>(h)], i);
            Out.Text("<horizon").Field(h, {}).Line(">");
        }
        Out.Line("<END DEPTH DEPENDENT>");
    }

    void Write_Metabolite(int i)
    {
        const auto s = static_cast<std::size_t>(i);
        Out.Line(Section_Rule)
            .Line("<COMMENT>")
            .Text(Section_Name[s])
            .Spc(5)
            .Line(Document.Substance_Name[s])
            .Line("<END COMMENT>")
            .Line("<FLAGS>");
        Metabolite_Flags_Line(Out, Document, s);
        Out.End().Line("<END FLAGS>").Line("<MOLMASS>");
        Molmass_Line(Out, Document, s);
        Out.End().Line("<END MOLMASS>");
        Uptake(s);
        Out.Line("<DEGRADATION>")
            .Line("<degrate    degtemp     q10         moist-abs   moist-rel   moist-exp  <rel deg in neq sites>");
        Degradation(i);
        Out.Line("<END DEGRADATION>");
        Sorption(s, "<Koc-value    Fr.exp.Koc  pH          pKa     limit for Freundl.  ann.incr.> <k_doc> <% change> "
                    "KOC2      pH2    f_neq       kdes>");
        Depth_Dependent(i);
    }

    Pesticide_Document& Document;
    Line_Out Out;
};

} // namespace

std::string Format_PSM(Pesticide_Document& document)
{
    return Pesticide_Writer(document).Write();
}

} // namespace orvel
