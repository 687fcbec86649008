#include "tables/soil_concentrations.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "output/echo_file.h"
#include "output/run_files.h"
#include "output/soil_averages.h"
#include "output/table_lines.h"
#include "tables/table_cache.h"
#include "tables/table_text.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Maximum_Width = 12;
constexpr std::size_t Name_Width = 15;
constexpr std::string_view Substance_Begin = "        Substance: \t";

void Print_Substance(Table_Text& text, std::string_view name, bool pore_water,
                     const std::array<TWA_Maximum, TWA_Window.size()>& maxima)
{
    text.Line(std::string(Substance_Begin) + std::string(Columns(name, 1, Name_Width)));
    text.Line("");
    text.Line(std::string("\t        TWA(d)\t") + "PEC(" + std::string(Soil_Unit(pore_water)) + ")" + "\tBegin TWA(d)");
    for (std::size_t w = 0; w < TWA_Window.size(); ++w) {
        const std::string row = Number_Text('I', TWA_Window[w], Maximum_Width) + "\t" +
                                Number_Text('F', maxima[w].Value, Maximum_Width) + "\t";
        text.Line(row + Number_Text('I', maxima[w].Begin, Maximum_Width), row + Simulation_Date(maxima[w].Begin));
    }
}

template <class Titles> bool Is_Of_Pore_Water(const Titles& titles)
{
    return Contains(titles[3], "Pore");
}

// Fills the record, prints it into `text` and returns the head of plot.orv.
Plot_Head Read(const fs::path& file, int depth, const Progress& progress, Soil_Concentrations& soil, Table_Text& text)
{
    Line_Scanner plot(file);
    auto head = Scan_Plot_Head(plot);
    text.Head(head.Titles);
    text.Line("");
    text.Line("");
    soil.Pore_Water = Is_Of_Pore_Water(head.Titles);
    const Reading_Progress reading(progress, {file});
    const auto averages = Scan_Soil_Profile(plot, head, depth, [&](int days) {
        reading.Tell("Please wait! Reading file plot, day " + std::to_string(First_Evaluated_Day - 1 + days) + ".",
                     plot.Bytes_Read());
    });
    for (std::size_t s = 0; s < averages.size(); ++s) {
        soil.Maximum.push_back(averages[s].Maxima());
        const std::string_view name =
            s < soil.Substance_Name.size() ? std::string_view(soil.Substance_Name[s]) : std::string_view();
        Print_Substance(text, name, soil.Pore_Water, soil.Maximum.back());
    }
    return head;
}

fs::path Stored_Table(const fs::path& run_directory, int depth)
{
    return Found_Or_New(run_directory, "PECsoil_" + std::to_string(depth) + ".orv");
}

// The maxima that stand in a stored table, and the same table printed anew.
Table_Text Parse(const std::vector<std::string_view>& lines, Soil_Concentrations& soil)
{
    constexpr std::size_t Heads = 3; // of a substance
    Table_Text text;
    if (lines.size() < Title_Count)
        return text;
    const std::vector<std::string> titles(lines.begin(), lines.begin() + Title_Count);
    soil.Pore_Water = Is_Of_Pore_Water(titles);
    text.Head(titles);
    text.Line("");
    text.Line("");
    for (std::size_t first = Title_Count + 2; first + Heads + TWA_Window.size() <= lines.size();
         first += Heads + TWA_Window.size()) {
        auto& maxima = soil.Maximum.emplace_back();
        for (std::size_t w = 0; w < TWA_Window.size(); ++w) {
            const auto cells = Line_Cells(lines[first + Heads + w]);
            if (cells.size() == 3)
                maxima[w] = {Val(cells[1]), To_I16(Val(cells[2]))};
        }
        const auto name = lines[first].substr(std::min(lines[first].size(), Substance_Begin.size()));
        Print_Substance(text, name, soil.Pore_Water, maxima);
    }
    return text;
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
        Write_Whole(Stored_Table(run_directory, depth), text.File);
        soil.Kept = true;
    } catch (const File_Error& error) {
        soil.Not_Kept = To_Code_Page(error.what());
    }
    return soil;
}

std::string_view Soil_Unit(bool pore_water)
{
    return pore_water ? "mg/L" : "mg/kg";
}

std::optional<Soil_Concentrations> Load_Soil_Concentrations(const fs::path& run_directory, int depth)
{
    const Echo echo = Read_Echo(run_directory);
    const fs::path file = Stored_Table(run_directory, depth);
    const std::string bytes = Read_If_There(run_directory, file.filename());
    Soil_Concentrations soil;
    soil.Run_Changed = Output_Changed(run_directory);
    std::error_code missing;
    const auto written = fs::last_write_time(file, missing);
    if (bytes.empty() || missing || written < soil.Run_Changed || echo.At_Work || echo.Holds_Error)
        return std::nullopt;
    soil.Substance_Name = echo.Substance_Names;
    const Table_Text text = Parse(Split_Lines(bytes), soil);
    if (soil.Maximum.empty() || !Holds_Text(bytes, text.File))
        return std::nullopt;
    soil.Text = text.Screen;
    soil.Found = Stored::Good;
    soil.From_Cache = soil.Kept = true;
    return soil;
}

} // namespace orvel
