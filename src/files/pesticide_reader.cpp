// Parses the bytes of a pesticide file.
#include "core/locations.h"
#include "core/pesticide_constants.h"
#include "files/pesticide_file.h"
#include "files/pesticide_lines.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

constexpr int Most_Sections = Substances - 1;
constexpr std::size_t Code_Width = 3;

// Fills the document line by line; what was read before an error stays in it.
class Pesticide_Reader {
public:
    Pesticide_Reader(std::string_view bytes, Pesticide_Document& document, Pesticide_Notes* notes)
        : Lines(bytes),
          Document(document),
          Notes(notes),
          Misread_Words(notes ? &notes->Misread : nullptr)
    {}

    void Read()
    {
        Read_Head();
        Read_Applications();
        Read_Flags_And_Volatilisation();
        Lines.Skip(2);
        Uptake(1);
        Lines.Skip(3);
        Degradation(1);
        if (Depth_Mode(1) && Lines.Next() == Photodegradation_Tag)
            Read_Photodegradation();
        Sorption(1);
        Size_Horizons();
        Horizons(1);
        for (int section = 0; !Is_End(); ++section) {
            if (section == Most_Sections)
                throw File_Error("More than eight metabolites.", Lines.Line_Number());
            Read_Metabolite();
        }
    }

private:
    Line_In Next()
    {
        const auto line = Lines.Next();
        return Line_In(line, Lines.Line_Number(), Misread_Words);
    }

    void Read_Head()
    {
        Lines.Skip(1);
        const auto comment = Lines.Next();
        const auto bracket = std::min(comment.find('<'), comment.size());
        Document.PSM_Title = Trim(comment.substr(0, bracket));
        if (bracket + 1 < comment.size()) {
            const auto name = Trim(comment.substr(bracket + 1));
            Document.Substance_Name[1] = name.substr(0, name.empty() ? 0 : name.size() - 1);
        }
        Lines.Skip(2);
        auto line = Next();
        Horizon_Count_Line(line, Document);
        Horizon_Count = line.Place_Of_Last();
        Lines.Skip(2);
    }

    void Read_Applications()
    {
        auto count = Next();
        Document.App_Loc_Count = count.Integer();
        const Place place = count.Place_Of_Last();
        Document.App_Rel_Flag = count.Integer();
        Document.App_Mode = count.Integer();
        const int locations = Checked_Count(Document.App_Loc_Count, Last_Location + 1, "locations", place);
        for (int location = 0; location < locations; ++location)
            Read_Location(static_cast<std::size_t>(location));
        auto method = Next();
        Method_Line(method, Document);
        if (Document.App_Method.Number() > Soil_Method) {
            auto plant = Next();
            Plant_Line(plant, Document);
        }
        Lines.Skip(2);
    }

    void Read_Location(std::size_t location)
    {
        auto line = Next();
        Document.App_Count[location] = line.Integer();
        const Place place = line.Place_Of_Last();
        if (location > 0)
            Document.App_Location[location] = Location_Name(Trim(Trim(line.Remainder()).substr(0, Code_Width)));
        const int count = Checked_Count(Document.App_Count[location].Number(), Last_Application, "applications", place);
        for (std::size_t a = 1; a <= static_cast<std::size_t>(count); ++a) {
            auto application = Next();
            if (Document.App_Mode == App_Mode_Relative)
                Relative_Line(application, Document.Relative[a]);
            else
                Application_Line(application, Document.Applications[location][a]);
            Application_Tail(application, Document.Applications[location][a]);
        }
    }

    void Read_Flags_And_Volatilisation()
    {
        auto flags = Next();
        Flags_Line(flags, Document);
        Lines.Skip(2);
        const bool has_second_point = Contains(Lines.Next(), Second_Point_Mark);
        auto first = Next();
        const Line_In once = first;
        Volatilisation_Line(first, Document, 0);
        Document.PSM_Legacy_Volat = !has_second_point;
        if (!has_second_point) {
            Derive_Second_Point();
            return;
        }
        Volatilisation_Temperature(first, Document, 0);
        auto second = Next();
        if (Notes)
            Note_Unused(once, second);
        Volatilisation_Line(second, Document, 1);
        Volatilisation_Temperature(second, Document, 1);
    }

    // Molar mass, diffusion, depth and enthalpy stand in both lines, and the second one's are kept.
    void Note_Unused(Line_In first, Line_In second)
    {
        constexpr std::string_view names[] = {"",
                                              "",
                                              "Molar mass",
                                              "",
                                              "Diffusion coefficient in air",
                                              "Volatilisation depth",
                                              "Enthalpy of vaporisation",
                                              ""};
        for (const std::string_view name : names) {
            const std::string one(first.Word()), other(second.Word());
            if (!name.empty() && Val(one) != Val(other))
                Notes->Unused.push_back({first.Place_Of_Last(), one, std::string(name), other});
        }
    }

    // The older form gives values at one temperature; those ten degrees higher follow from it.
    void Derive_Second_Point()
    {
        Document.Henry[1] = 2 * Document.Henry[0];
        Document.Solubility[1] = 2 * Document.Solubility[0];
        Document.Vap_Press[1] = 4 * Document.Vap_Press[0];
        Document.Hv = Default_Enthalpy;
        if (!std::isfinite(Document.Henry[1]) || !std::isfinite(Document.Solubility[1]) ||
            !std::isfinite(Document.Vap_Press[1]))
            throw File_Error("A volatilisation value is too large.", Lines.Line_Number());
    }

    void Uptake(std::size_t i)
    {
        auto line = Next();
        Uptake_Line(line, Document, i);
    }

    void Degradation(std::size_t i)
    {
        for (std::size_t j = 1; j <= static_cast<std::size_t>(Rows_Of_Substance(static_cast<int>(i))); ++j) {
            auto line = Next();
            if (Notes)
                Notes->Rates[i][j] = Place_Of_Next(line);
            Degradation_Line(line, Document.Degradation[i][j], {});
        }
    }

    static Place Place_Of_Next(Line_In line)
    {
        line.Word();
        return line.Place_Of_Last();
    }

    // False for the older form, which lacks this line: the line read instead is the end of the section.
    bool Depth_Mode(std::size_t i)
    {
        const auto text = Lines.Next();
        if (!Contains(text, Depth_Mode_Mark)) {
            Document.Deg_Depth_Mode[i] = 0;
            return false;
        }
        Line_In line(text, Lines.Line_Number(), Misread_Words);
        const int mode = line.Integer();
        const bool liquid_only = mode >= Individual_Depth_Modes;
        const int depth_mode = liquid_only ? mode - Individual_Depth_Modes : mode;
        Document.Deg_Depth_Mode[i] = static_cast<std::uint8_t>(Checked_Count(
            depth_mode, std::numeric_limits<std::uint8_t>::max(), "the depth mode", line.Place_Of_Last()));
        Document.Deg_Liquid_Only[i] = liquid_only ? 1 : 0;
        return true;
    }

    void Read_Photodegradation()
    {
        Lines.Skip(1);
        auto line = Next();
        Photodegradation_Line(line, Document);
        Lines.Skip(1);
    }

    void Sorption(std::size_t i)
    {
        Lines.Skip(2);
        auto line = Next();
        Sorption_Line(line, Document, i);
        if (Document.Koc_Change[i] == 0)
            Document.Koc_Change[i] = 1;
        if (Document.Sorp_pH2[i].Number() == 0)
            Document.Sorp_pH2[i] = No_Value;
        Lines.Skip(3);
    }

    void Size_Horizons()
    {
        const int count = Checked_Count(Document.N_Horizons.Number(), Most_Horizons, "soil horizons", Horizon_Count);
        Pesticide_Horizon horizon;
        horizon.Hor_Kd.fill(0);
        horizon.Hor_FrExp.fill(0.9);
        for (auto& factors : horizon.Hor_Deg)
            std::fill(factors.begin() + 1, factors.end(), 1);
        Document.Horizons.assign(static_cast<std::size_t>(count) + 2, horizon);
    }

    void Horizons(int i)
    {
        for (std::size_t h = 1; h + 1 < Document.Horizons.size(); ++h) {
            auto line = Next();
            Horizon_Line(line, Document.Horizons[h], i);
        }
        Lines.Skip(1);
    }

    bool Is_End() { return Trim(Lines.Next()) == End_Tag; }

    void Read_Metabolite()
    {
        Lines.Skip(1);
        const auto line = Lines.Next();
        const auto comment = Trim(line);
        const auto found =
            std::find(Section_Name.begin() + 2, Section_Name.end(), comment.substr(0, Section_Name_Width));
        if (found == Section_Name.end())
            throw File_Error("There is no such metabolite.", Lines.Line_Number(), Column_Of(comment, line));
        const auto i = static_cast<std::size_t>(found - Section_Name.begin());
        Document.Met_Present[i] = true;
        Document.Substance_Name[i] = Trim(comment.substr(Section_Name_Width));
        Lines.Skip(2);
        auto flags = Next();
        Metabolite_Flags_Line(flags, Document, i);
        Lines.Skip(2);
        auto molmass = Next();
        Molmass_Line(molmass, Document, i);
        Lines.Skip(2);
        Uptake(i);
        Lines.Skip(3);
        Degradation(i);
        if (Depth_Mode(i))
            Lines.Skip(1);
        Sorption(i);
        Horizons(static_cast<int>(i));
    }

    Line_Reader Lines;
    Pesticide_Document& Document;
    Pesticide_Notes* Notes;
    Misreads* Misread_Words;
    Place Horizon_Count;
};

} // namespace

void Parse_PSM(std::string_view bytes, Pesticide_Document& document, Pesticide_Notes* notes)
{
    // Nothing of a document read before may stay, not even fields that Reset_PSM leaves alone.
    document = Pesticide_Document();
    Reset_PSM(document);
    Pesticide_Reader(bytes, document, notes).Read();
}

} // namespace orvel
