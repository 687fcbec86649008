#include "tables/leachate_tables.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/session.h"
#include "core/text.h"
#include "output/echo_file.h"
#include "output/run_files.h"
#include "output/yearly_values.h"
#include "tables/leachate_percentile.h"
#include "tables/leachate_periods.h"
#include "tables/leachate_text.h"
#include "tables/table_cache.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr Table_Cache Cache = {Year_Cache_Name, Period_Cache_Name};
constexpr std::string_view Result_Begin = "Results for ";
constexpr std::array<std::string_view, 2> Depth_Messages = {" at 1 m soil depth.", " at the soil bottom."};

// The yearly rows of a substance, both depths.
struct Substance_Years {
    std::string Label;
    std::array<std::vector<Leachate_Row>, 2> Rows;
};

// Reads the engine's files of one run: the water balance once, in step with the first substance's file.
class Year_Reader {
public:
    Year_Reader(const fs::path& run_directory, const Echo& echo, const Progress& progress)
        : Chems(Chem_Files(run_directory)),
          Wasser(Found_Or_New(run_directory, "Wasser.orv")),
          Report_Progress(progress, Files()),
          Layers(echo.Layers().Top_Layers)
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

    // Adds the year's rows to `read`; false if neither depth has the year.
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
    std::uint64_t Done = 0; // bytes in the files already read
};

// After a failure the text ends with the last row read; the tables at 1 m come first.
Table_Text Print_Year_Tables(const Plot_Head& head, const std::vector<Substance_Years>& read, Leachate_Tables& tables)
{
    Table_Text text;
    text.Head(head.Titles);
    for (const auto depth : Depths) {
        const auto at = static_cast<std::size_t>(depth);
        for (std::size_t s = 0; s < read.size(); ++s) {
            Leachate_Table years{.Rows = read[s].Rows[at], .Label = read[s].Label};
            if (s < tables.Result_Name.size())
                years.Result_Name = tables.Result_Name[s];
            const bool whole = tables.Failure.empty() || s + 1 < read.size();
            if (whole)
                years.Result = Evaluate_Leachate(years.Rows, Warm_Up_Years);
            tables.Year[at].push_back(Print_Years(text, depth, std::move(years), whole));
        }
        if (!tables.Failure.empty())
            break;
    }
    return text;
}

Table_Text Print_Period_Tables(const Plot_Head& head, Leachate_Tables& tables)
{
    Table_Text text;
    text.Head(head.Titles);
    for (const auto depth : Depths) {
        const auto at = static_cast<std::size_t>(depth);
        for (const auto& years : tables.Year[at])
            tables.Period[at].push_back(Print_Periods(text, depth, Periods_Of(years, tables.Period_Index)));
    }
    return text;
}

// The years per period minus one, from the number of simulated years; `otherwise` for any other number.
int Period_Index_Of(std::size_t years, int otherwise)
{
    constexpr std::array<std::size_t, 3> Years = {26, 46, 66};
    const auto* const found = std::ranges::find(Years, years);
    return found == Years.end() ? otherwise : static_cast<int>(found - Years.begin());
}

// False: the bytes are not those of whole tables.
bool Load(const Table_Cache::Bytes& bytes, const fs::path& run_directory, Leachate_Tables& tables)
{
    auto years = Parse_Leachate(bytes.First);
    if (!Is_Year_File(bytes.First, years) || !Has_All_Substances(run_directory, years.Set[0].size()))
        return false;
    const auto index = Index_Of_Period_File(bytes.Second, years,
                                            Period_Index_Of(years.Set[0].back().Rows.size(), tables.Period_Index));
    if (!index)
        return false;
    tables.Period_Index = *index;
    tables.Year_Text = Window_Text(bytes.First);
    tables.Period_Text = Window_Text(bytes.Second);
    tables.Period = Parse_Leachate(bytes.Second).Set;
    tables.Titles = std::move(years.Titles);
    tables.Year = std::move(years.Set);
    return true;
}

// Nothing if the tables could not be built whole.
std::optional<Table_Cache::Bytes> Build_Tables(const fs::path& run_directory, const Echo& echo, const Plot_Head& head,
                                               const Progress& progress, Leachate_Tables& tables)
{
    tables.Titles.assign(head.Titles.begin(), head.Titles.end());
    std::vector<Substance_Years> read;
    Build_With(tables, [&] { Year_Reader(run_directory, echo, progress).Read(read); });
    const auto years = Print_Year_Tables(head, read, tables);
    tables.Year_Text = years.Screen;
    if (!tables.Failure.empty())
        return std::nullopt;
    tables.Period_Index = Period_Index_Of(tables.Year[0].back().Rows.size(), tables.Period_Index);
    const auto periods = Print_Period_Tables(head, tables);
    tables.Period_Text = periods.Screen;
    return Table_Cache::Bytes{years.File, periods.File};
}

void Build(const fs::path& run_directory, const Echo& echo, const Progress& progress, Leachate_Tables& tables)
{
    const auto head = Read_Plot_Head(run_directory);
    if (const auto bytes = Build_Tables(run_directory, echo, head, progress, tables))
        Cache.Write(run_directory, echo, head, *bytes, tables);
}

} // namespace

namespace {

void Take_Echo(const Echo& echo, Leachate_Tables& tables)
{
    tables.Run_Failed = echo.Failed();
    tables.Has_Echo = echo.Missing.empty();
    for (const auto& name : echo.Substance_Names)
        tables.Result_Name.push_back(std::string(Result_Begin) + name);
}

} // namespace

Leachate_Tables Build_Or_Load(const fs::path& run_directory, const Progress& progress, int period_index)
{
    Leachate_Tables tables;
    tables.Period_Index = period_index;
    Echo echo;
    Build_With(tables, [&] {
        echo = Read_Echo(run_directory);
        tables.Gap = Gap_Of(run_directory);
    });
    if (!tables.Failure.empty())
        return tables;
    Take_Echo(echo, tables);
    Cache.Load_Or_Build(
        run_directory, tables, [&](const Table_Cache::Bytes& bytes) { return Load(bytes, run_directory, tables); },
        [&] { Build(run_directory, echo, progress, tables); });
    return tables;
}

Built_Leachate Build_Leachate(const fs::path& run_directory)
{
    Built_Leachate built;
    Build_With(built.Tables, [&] {
        Echo echo = Read_Echo(run_directory);
        echo.At_Work = false;
        Take_Echo(echo, built.Tables);
        const auto head = Read_Plot_Head(run_directory);
        auto bytes = Build_Tables(run_directory, echo, head, {}, built.Tables);
        if (bytes && Why_Not_Kept(echo, head).empty()) {
            built.Years = std::move(bytes->First);
            built.Periods = std::move(bytes->Second);
        }
    });
    return built;
}

std::optional<Leachate_Tables> Load_Leachate(const fs::path& run_directory)
{
    Leachate_Tables tables;
    Take_Echo(Read_Echo(run_directory), tables);
    Cache.Load_Or_Build(
        run_directory, tables, [&](const Table_Cache::Bytes& bytes) { return Load(bytes, run_directory, tables); },
        [] {});
    return tables.From_Cache && !tables.Run_Failed ? std::optional(std::move(tables)) : std::nullopt;
}

std::string Substance_Of(std::string_view result_name)
{
    return std::string(result_name.substr(result_name.starts_with(Result_Begin) ? Result_Begin.size() : 0));
}

} // namespace orvel
