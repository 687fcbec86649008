#include "output/parameter_list.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/output_variables.h"
#include "core/text.h"
#include "files/pesticide_file.h"

#include <memory>

namespace orvel {

namespace {

constexpr std::size_t Years_Width = 3;
constexpr std::size_t Substance_First = 33, Substance_Width = 8;
constexpr std::size_t Shown_Name = 15; // characters of a substance's name

// The gaps in "( cm)" are required: no layer depth is printed there.
constexpr std::string_view Fixed_Texts[] = {"Actual evapotranspiration",
                                            "Percolate (1 m depth)",
                                            "Percolate (soil bottom)",
                                            "Precipitation",
                                            "Runoff depth",
                                            "Soil loss",
                                            "Soil moisture (surface)",
                                            "Soil moisture (1 m depth)",
                                            "Soil moisture (soil bottom)",
                                            "Soil temperatures (surface)",
                                            "Soil temperatures (1 m depth)",
                                            "Soil temperatures (soil bottom)",
                                            "Total pesticide application",
                                            "Pesticide conc. in soil (top cm)",
                                            "Pesticide conc. in soil ( cm)",
                                            "Pesticide conc. in soil ( cm)",
                                            "Pesticide conc. in soil ( cm)",
                                            "Total pesticide degradation in soil",
                                            "Pesticide below 1 m",
                                            "Pesticide below the soil core",
                                            "Pesticide runoff flux",
                                            "Pesticide erosion flux",
                                            "Total pesticide uptake by plants",
                                            "Pesticide volatilisation",
                                            "Pesticide concentration in leachate (1 m depth)",
                                            "Pesticide concentration in leachate (soil bottom)"};

std::string Item_Text(const Plot_Column& column, int variable, std::string_view substance)
{
    const auto& output = Output_Variable_Of(variable);
    std::string text(output.Out_Label);
    if (output.Has_Depth)
        text += " at " + General_Text(column.Plot_Depth) + " cm ";
    if (output.Has_Substance)
        text += " for " + std::string(Columns(substance, 1, Shown_Name));
    return text;
}

// The names in the run's copy of its pesticide file, the third line of its run control file; those of a new document
// where it cannot be read.
Per_Substance<std::string> Names_In_Run(const std::filesystem::path& run, std::string_view run_control)
{
    const auto document = std::make_unique<Pesticide_Document>();
    Reset_PSM(*document);
    try {
        Line_Reader lines(run_control);
        lines.Skip(2);
        Parse_PSM(Read_Whole(Found_Or_New(run, Path_Of(Trim(lines.Next())))), *document);
    } catch (const File_Error& error) {
        Pass_On_If_Unreadable(error);
        Reset_PSM(*document);
    }
    return document->Substance_Name;
}

} // namespace

std::vector<Parameter_Item> Fixed_Parameters()
{
    std::vector<Parameter_Item> items;
    for (const auto text : Fixed_Texts)
        items.push_back({std::string(text), static_cast<int>(items.size()) + 1, 1});
    return items;
}

std::vector<int> Substances_Of_Rows(std::string_view run_control)
{
    Line_Reader lines(run_control);
    lines.Skip(Whole_Part(Columns(lines.Next(), 1, Years_Width), 0, 999) + 2);
    lines.Next(); // the counts: the first of them leaves out the rows of the profile
    std::vector<int> substances;
    while (!lines.At_End())
        substances.push_back(Whole_Part(Columns(lines.Next(), Substance_First, Substance_Width), 0, 9));
    return substances;
}

std::vector<Parameter_Item> Parameters_Of(const Plot_Head& head, const std::vector<int>& substances,
                                          const Per_Substance<std::string>& names)
{
    std::vector<Parameter_Item> items;
    for (std::size_t i = 0; i < head.Columns.size(); ++i) {
        const int variable = Output_Variable_Number(head.Columns[i].Plot_Code);
        if (variable == 0)
            continue;
        const int substance = i < substances.size() ? substances[i] : 0;
        items.push_back({Item_Text(head.Columns[i], variable, names[static_cast<std::size_t>(substance)]),
                         static_cast<int>(i) + 1, variable});
    }
    return items;
}

std::vector<Parameter_Item> Parameters_Of_Head(const Plot_Head& head, const std::filesystem::path& directory)
try {
    const std::string run_control = Read_Whole(Found_Or_New(directory, "orvel.inp"));
    return Parameters_Of(head, Substances_Of_Rows(run_control), Names_In_Run(directory, run_control));
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    Per_Substance<std::string> names;
    names.fill("unknown");
    return Parameters_Of(head, {}, names);
}

std::vector<Parameter_Item> Parameters_Of_Run(const std::filesystem::path& run_directory)
try {
    if (!Find_File(run_directory, "plot.orv"))
        return Fixed_Parameters();
    const Plot_Head head = Read_Plot_Head(run_directory);
    const std::string run_control = Read_Whole(Found_Or_New(run_directory, "orvel.inp"));
    return Parameters_Of(head, Substances_Of_Rows(run_control), Names_In_Run(run_directory, run_control));
} catch (const File_Error& error) {
    Pass_On_If_Unreadable(error);
    return Fixed_Parameters();
}

} // namespace orvel
