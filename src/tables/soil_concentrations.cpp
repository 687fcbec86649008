#include "tables/soil_concentrations.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "output/echo_file.h"
#include "output/run_files.h"
#include "output/soil_averages.h"
#include "tables/table_cache.h"
#include "tables/table_text.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Figure_Width = 12;
constexpr std::size_t Name_Width = 15;

void Print_Substance(Table_Text& text, std::string_view name, bool pore_water,
                     const std::array<TWA_Maximum, TWA_Window.size()>& maxima)
{
    text.Line("        Substance: \t" + std::string(Columns(name, 1, Name_Width)));
    text.Line("");
    text.Line(std::string("\t        TWA(d)\t") + (pore_water ? "PEC(mg/L)" : "PEC(mg/kg)") + "\tBegin TWA(d)");
    for (std::size_t w = 0; w < TWA_Window.size(); ++w) {
        const std::string row = Number_Text('I', TWA_Window[w], Figure_Width) + "\t" +
                                Number_Text('F', maxima[w].Value, Figure_Width) + "\t";
        text.Line(row + Number_Text('I', maxima[w].Begin, Figure_Width), row + Simulation_Date(maxima[w].Begin));
    }
}

// Fills the record, prints it into `text` and returns the head of plot.orv.
Plot_Head Read(const fs::path& file, int depth, const Progress& progress, Soil_Concentrations& soil, Table_Text& text)
{
    Line_Scanner plot(file);
    auto head = Scan_Plot_Head(plot);
    text.Head(head.Titles);
    text.Line("");
    text.Line("");
    const Reading_Progress reading(progress, {file});
    const auto averages = Scan_Soil_Profile(plot, head, depth, [&](int days) {
        reading.Tell("Please wait! Reading file plot, day " + std::to_string(First_Evaluated_Day - 1 + days) + ".",
                     plot.Bytes_Read());
    });
    for (std::size_t s = 0; s < averages.size(); ++s) {
        soil.Maximum.push_back(averages[s].Maxima());
        const std::string_view name =
            s < soil.Substance_Name.size() ? std::string_view(soil.Substance_Name[s]) : std::string_view();
        Print_Substance(text, name, Contains(head.Titles[3], "Pore"), soil.Maximum.back());
    }
    return head;
}

// A sentence that says why the table is not written; empty if it may be. `echo` was read before the series.
std::string Why_Not_Written(const fs::path& run_directory, const Soil_Concentrations& soil, const Plot_Head& head,
                            const Echo& echo)
{
    if (soil.Maximum.empty())
        return "The output of the run has no profile of the soil: there is nothing to evaluate.";
    Echo now = echo;
    Look_Again(now, run_directory);
    if (auto why = Why_Not_Kept(now, head); !why.empty())
        return why;
    return echo.At_Work || echo.Failed() ? "The simulation was still at work." : "";
}

} // namespace

Soil_Concentrations Build_Soil_Concentrations(const fs::path& run_directory, int depth, const Progress& progress)
{
    Soil_Concentrations soil;
    Echo echo;
    Build_With(soil, [&] {
        echo = Read_Echo(run_directory);
        soil.Gap = Gap_Of(run_directory);
    });
    if (!soil.Failure.empty())
        return soil;
    soil.Run_Failed = echo.Failed();
    soil.Run_Changed = Output_Changed(run_directory);
    Table_Text text;
    Build_With(soil, [&] {
        if (depth < 1)
            throw File_Error("The depth must be at least one layer.");
        if (!echo.Missing.empty())
            throw File_Error(echo.Missing);
        soil.Substance_Name = echo.Substance_Names;
        const auto head = Read(Found_Or_New(run_directory, "plot.orv"), depth, progress, soil, text);
        soil.Not_Kept = soil.Gap.empty() ? Why_Not_Written(run_directory, soil, head, echo) : soil.Gap;
    });
    soil.Text = text.Screen;
    if (!soil.Note().empty())
        return soil;
    try {
        Write_Whole(Found_Or_New(run_directory, "PECsoil_" + std::to_string(depth) + ".orv"), text.File);
        soil.Kept = true;
    } catch (const File_Error& error) {
        soil.Not_Kept = To_Code_Page(error.what());
    }
    return soil;
}

} // namespace orvel
