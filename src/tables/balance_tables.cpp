#include "tables/balance_tables.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "output/balance_rows.h"
#include "output/run_files.h"

#include <initializer_list>
#include <span>
#include <stdexcept>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr int Number_Width = 4;
constexpr int Figure_Width = 9;
constexpr int Last_Pesticide_Width = 10;
constexpr std::size_t Rule_Length = 117;

// What differs between the views.
struct View_Labels {
    std::string_view Water_Cache, Pesticide_Cache;
    std::string_view Title;                 // begins the titles of the tables
    std::string_view Water_Head, Chem_Head; // the first column
};
constexpr View_Labels Annual_Words = {"MBalance.orv", "PBalance.orv", "\tAnnual ", "\tYear  \t", "\tYear  \t"};
constexpr View_Labels Monthly_Words = {"MBalance_M.orv", "PBalance_M.orv", "\tMonthly ", "\tMonth  \t", "\tMonth\t"};

const View_Labels& Labels_Of(Balance_View view)
{
    return view == Balance_View::Annual ? Annual_Words : Monthly_Words;
}

std::string Row_Text(std::size_t number, std::initializer_list<double> figures, int last_width)
{
    std::string line = "\t" + Number_Text('I', static_cast<double>(number), Number_Width) + "    ";
    for (const double& figure : figures)
        line += "\t" + Number_Text('F', figure, &figure + 1 == figures.end() ? last_width : Figure_Width);
    return line;
}

class Builder {
public:
    Builder(const fs::path& run_directory, Balance_View view, const Progress& progress, Balance_Tables& tables)
        : View(view),
          Labels(Labels_Of(view)),
          Wasser(Found_Or_New(run_directory, "Wasser.orv")),
          Chems(Chem_Files(run_directory)),
          Report_Progress(progress, Files()),
          Tables(tables)
    {}

    void Heads(const Plot_Head& head)
    {
        Water.Head(head);
        Pesticide.Head(head);
    }

    // Each table's head stands before its file is opened, so that it is shown where the reading fails.
    void Read()
    {
        Read_Water();
        for (const auto& chem : Chems)
            Read_Pesticide(chem);
    }

    Table_Text Water, Pesticide;

private:
    std::vector<fs::path> Files() const
    {
        std::vector<fs::path> files = {Wasser};
        for (const auto& chem : Chems)
            files.push_back(chem.File);
        return files;
    }

    void Begin(Table_Text& text, const std::string& title)
    {
        text.Line("");
        text.Line("");
        text.Line(std::string(Labels.Title) + title);
        text.Line("");
    }

    void Read_Water()
    {
        Begin(Water, "Water Balance (L/m\xB2)");
        Water.Line(std::string(Labels.Water_Head) +
                   "Precipitation\tIrrigation\t  Runoff\tEvapotransp.\t Percolate\tDiff. Storage");
        Line_Scanner wasser(Wasser);
        Scan_Water_Balance(wasser, View, [&](const Water_Balance_Row& row) {
            Tables.Water.push_back(row);
            const auto number = Tables.Water.size();
            Water.Line(Row_Text(number,
                                {row.Precipitation, row.Irrigation, row.Runoff, row.Evapotranspiration, row.Percolate,
                                 row.Diff_Storage},
                                Figure_Width));
            Report_Progress.Tell(Message("wasser", number), wasser.Bytes_Read());
        });
        Done += wasser.Bytes_Read();
    }

    void Read_Pesticide(const Chem_File& chem)
    {
        const bool active_substance = Tables.Pesticide.empty();
        auto& rows = Tables.Pesticide.emplace_back();
        Begin(Pesticide, chem.Label + " Balance (g/ha)");
        Pesticide.Line(std::string(Labels.Chem_Head) + (active_substance ? "Application" : "Formation") +
                       "\tVolatilisation\t  Runoff\tPlant uptake\tDegradation\t Percolate\tDiff. Storage");
        Pesticide.Line("\t" + std::string(Rule_Length, '-'));
        Line_Scanner file(chem.File);
        Scan_Pesticide_Balance(file, View, active_substance, [&](const Pesticide_Balance_Row& row) {
            rows.push_back(row);
            Pesticide.Line(Row_Text(rows.size(),
                                    {row.Application, row.Volatilisation, row.Runoff, row.Plant_Uptake, row.Degradation,
                                     row.Percolate, row.Diff_Storage},
                                    Last_Pesticide_Width));
            Report_Progress.Tell(Message("chem" + chem.Suffix, rows.size()), Done + file.Bytes_Read());
        });
        Done += file.Bytes_Read();
    }

    static std::string Message(const std::string& file, std::size_t number)
    {
        return "Please wait! Reading file " + file + ", year " + std::to_string(number) + ".";
    }

    Balance_View View;
    const View_Labels& Labels;
    fs::path Wasser;
    std::vector<Chem_File> Chems;
    Reading_Progress Report_Progress;
    Balance_Tables& Tables;
    std::uint64_t Done = 0; // bytes of the files that are done with
};

void Build(const fs::path& run_directory, Balance_View view, const Progress& progress, Balance_Tables& tables)
{
    const auto head = Read_Plot_Head(run_directory);
    tables.Not_Cached = Why_No_Cache(run_directory, head);
    Builder builder(run_directory, view, progress, tables);
    builder.Heads(head);
    try {
        builder.Read();
    } catch (const File_Error& error) {
        tables.Failure = To_Code_Page(error.what());
    }
    tables.Water_Text = builder.Water.Screen;
    tables.Pesticide_Text = builder.Pesticide.Screen;
    if (!tables.Failure.empty())
        return;
    // A run that was started while its files were read is at work now.
    if (tables.Not_Cached.empty())
        tables.Not_Cached = Why_No_Cache(run_directory, head);
    const auto& words = Labels_Of(view);
    if (tables.Not_Cached.empty())
        tables.Not_Cached = Write_Caches(run_directory, words.Water_Cache, words.Pesticide_Cache,
                                         {builder.Water.File, builder.Pesticide.File});
    tables.Cached = tables.Not_Cached.empty();
}

} // namespace

Balance_Tables Build_Or_Load_Balance(const fs::path& run_directory, Balance_View view, const Progress& progress)
{
    Balance_Tables tables;
    const auto& words = Labels_Of(view);
    if (const auto caches = Read_Caches(run_directory, words.Water_Cache, words.Pesticide_Cache)) {
        tables.From_Cache = tables.Cached = true;
        tables.Water_Text = Shown_Cache(caches->First);
        tables.Pesticide_Text = Shown_Cache(caches->Second);
        return tables;
    }
    try {
        Build(run_directory, view, progress, tables);
    } catch (const File_Error& error) {
        tables.Failure = To_Code_Page(error.what());
    } catch (const std::domain_error& error) {
        tables.Failure = error.what(); // figures whose sum no double holds
    }
    return tables;
}

} // namespace orvel
