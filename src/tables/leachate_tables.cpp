#include "tables/leachate_tables.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/session.h"
#include "core/text.h"
#include "output/echo_file.h"
#include "output/yearly_values.h"
#include "tables/leachate_percentile.h"
#include "tables/leachate_periods.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Year_Cache = "year.orv";
constexpr std::string_view Period_Cache = "period.orv";
constexpr std::array<std::string_view, 2> Depth_Messages = {" at 1 m soil depth.", " at the soil bottom."};

// The yearly rows of a substance, both depths.
struct Substance_Years {
    std::string Label;
    std::array<std::vector<Leachate_Row>, 2> Rows;
};

// Reads the engine's files of one run: the water balance once, in step with the first substance's file.
class Year_Reader {
public:
    Year_Reader(const fs::path& run_directory, const Progress& progress)
        : Chems(Chem_Files(run_directory)),
          Wasser(Found_Or_New(run_directory, "Wasser.orv")),
          Report_Progress(progress, Files()),
          Layers(Read_Echo_Layers(run_directory).Top_Layers)
    {}

    // Fills `read` file after file, so that what was read so far stays when it throws.
    void Read(std::vector<Substance_Years>& read)
    {
        read.push_back({Chems.front().Label, {}});
        Yearly_Values water(Line_Scanner(Wasser), Water_Layout, Layers);
        for (const auto& chem : Chems) {
            if (&chem != &Chems.front())
                read.push_back({chem.Label, {}});
            Read_Substance(chem, water, read.back());
        }
    }

private:
    std::vector<fs::path> Files() const
    {
        std::vector<fs::path> files = {Wasser};
        std::ranges::transform(Chems, std::back_inserter(files), &Chem_File::File);
        return files;
    }

    void Read_Substance(const Chem_File& chem, Yearly_Values& water, Substance_Years& read)
    {
        Yearly_Values leached(Line_Scanner(chem.File), Chem_Layout, Layers);
        for (std::size_t y = 1; Read_Year(y, water, leached, read); ++y) {
            if (y > Most_Years)
                throw File_Error("A simulation of more than " + std::to_string(Most_Years) +
                                 " years cannot be evaluated.");
            Report_Progress.Tell(Message(chem, y, Depth::One_Metre), Done + water.Bytes_Read() + leached.Bytes_Read());
        }
        Done += leached.Bytes_Read();
        Report_Progress.Tell(Message(chem, read.Rows[1].size() + 1, Depth::Core_Bottom), Done + water.Bytes_Read());
    }

    // Whether either depth has the year.
    static bool Read_Year(std::size_t y, Yearly_Values& water, Yearly_Values& leached, Substance_Years& read)
    {
        water.Read_To(y);
        leached.Read_To(y);
        bool any = false;
        for (const auto depth : Depths) {
            const auto& percolate = water.At(depth);
            const auto& flux = leached.At(depth);
            if (y > percolate.size() || y > flux.size())
                continue;
            any = true;
            if (y <= Most_Years)
                read.Rows[static_cast<std::size_t>(depth)].push_back(
                    {flux[y - 1], percolate[y - 1], Leachate_Conc(flux[y - 1], percolate[y - 1])});
        }
        return any;
    }

    static std::string Message(const Chem_File& chem, std::size_t y, Depth depth)
    {
        return "Please wait! Reading file chem" + Lower(chem.Suffix) + ", year " + std::to_string(y - 1) +
               std::string(Depth_Messages[static_cast<std::size_t>(depth)]);
    }

    std::vector<Chem_File> Chems;
    fs::path Wasser;
    Reading_Progress Report_Progress;
    int Layers;
    std::uint64_t Done = 0; // bytes of the files that are done with
};

// Prints a table; one whose reading failed ends with its last row.
Leachate_Table Print_Year_Table(Table_Text& text, Depth depth, std::string_view result_name,
                                const Substance_Years& years, bool whole)
{
    Leachate_Table table{years.Rows[static_cast<std::size_t>(depth)], {}};
    Print_Year_Head(text, depth, result_name, years.Label);
    for (std::size_t y = 1; y <= table.Rows.size(); ++y)
        Print_Year_Row(text, y, table.Rows[y - 1]);
    if (!whole)
        return table;
    table.Result = Evaluate_Leachate(table.Rows, Warm_Up_Years);
    Print_Leachate_Result(text, table.Result, depth == Depth::One_Metre ? Short_Percentile_Label : Percentile_Label);
    return table;
}

// A failure ends the text behind the last row read: the tables at 1 m come first.
void Print_Years(Table_Text& text, const std::vector<Substance_Years>& read, Leachate_Tables& tables)
{
    for (const auto depth : Depths) {
        for (std::size_t s = 0; s < read.size(); ++s) {
            const bool whole = tables.Failure.empty() || s + 1 < read.size();
            const std::string_view name =
                s < tables.Result_Name.size() ? std::string_view(tables.Result_Name[s]) : std::string_view();
            tables.Year[static_cast<std::size_t>(depth)].push_back(Print_Year_Table(text, depth, name, read[s], whole));
        }
        if (!tables.Failure.empty())
            return;
    }
}

// The years of a period less one, by the number of simulated years.
int Period_Index_Of(std::size_t years, int otherwise)
{
    constexpr std::array<std::size_t, 3> Years = {26, 46, 66};
    const auto* const found = std::ranges::find(Years, years);
    return found == Years.end() ? otherwise : static_cast<int>(found - Years.begin());
}

void Load(Leachate_Tables& tables, const Cache_Pair& caches)
{
    tables.From_Cache = tables.Cached = true;
    tables.Year_Text = Shown_Cache(caches.First);
    tables.Period_Text = Shown_Cache(caches.Second);
    tables.Period_Bytes = caches.Second;
    tables.Year = Set_Of(Parse_Leachate(caches.First));
    tables.Period = Set_Of(Parse_Leachate(caches.Second));
    if (!tables.Year[0].empty())
        tables.Period_Index = Period_Index_Of(tables.Year[0].back().Rows.size(), tables.Period_Index);
}

// Reads and prints the year tables; gives the bytes of their cache.
Table_Text Build_Years(const fs::path& run_directory, const Plot_Head& head, const Progress& progress,
                       Leachate_Tables& tables)
{
    std::vector<Substance_Years> read;
    try {
        Year_Reader(run_directory, progress).Read(read);
    } catch (const File_Error& error) {
        tables.Failure = To_Code_Page(error.what());
    }
    Table_Text text;
    text.Head(head);
    Print_Years(text, read, tables);
    return text;
}

void Build(const fs::path& run_directory, const Progress& progress, Leachate_Tables& tables)
{
    const auto head = Read_Plot_Head(run_directory);
    tables.Not_Cached = Why_No_Cache(run_directory, head);
    const auto text = Build_Years(run_directory, head, progress, tables);
    tables.Year_Text = text.Screen;
    if (!tables.Failure.empty())
        return;
    tables.Period_Index = Period_Index_Of(tables.Year[0].back().Rows.size(), tables.Period_Index);
    auto periods = Build_Periods(text.File, tables.Period_Index);
    tables.Period_Text = std::move(periods.Text.Screen);
    tables.Period = std::move(periods.Set);
    tables.Period_Bytes = periods.Text.File;
    // A run that was started while its files were read is at work now.
    if (tables.Not_Cached.empty())
        tables.Not_Cached = Why_No_Cache(run_directory, head);
    if (tables.Not_Cached.empty())
        tables.Not_Cached = Write_Caches(run_directory, Year_Cache, Period_Cache, {text.File, periods.Text.File});
    tables.Cached = tables.Not_Cached.empty();
}

} // namespace

Leachate_Tables Build_Or_Load(const fs::path& run_directory, const Progress& progress, int period_index)
{
    Leachate_Tables tables;
    tables.Period_Index = period_index;
    try {
        for (const auto& name : Read_Substance_Names(run_directory))
            tables.Result_Name.push_back("Results for " + name);
    } catch (const File_Error&) {
        tables.Result_Name.clear(); // the tables then have no names, or the builder tells what is missing
    }
    if (const auto caches = Read_Caches(run_directory, Year_Cache, Period_Cache)) {
        Load(tables, *caches);
        return tables;
    }
    try {
        Build(run_directory, progress, tables);
    } catch (const File_Error& error) {
        tables.Failure = To_Code_Page(error.what());
    } catch (const std::domain_error& error) {
        tables.Failure = error.what(); // figures whose sum no double holds
    }
    return tables;
}

} // namespace orvel
