#include "tables/balance_tables.h"

#include "core/code_page.h"
#include "core/files.h"
#include "core/text.h"
#include "output/balance_rows.h"
#include "output/echo_file.h"
#include "output/run_files.h"
#include "tables/balance_text.h"
#include "tables/table_cache.h"

#include <algorithm>

namespace orvel {

namespace fs = std::filesystem;

namespace {

const Table_Cache& Cache_Of(Balance_View view)
{
    static constexpr Table_Cache Annual = {"MBalance.orv", "PBalance.orv"};
    static constexpr Table_Cache Monthly = {"MBalance_M.orv", "PBalance_M.orv"};
    return view == Balance_View::Annual ? Annual : Monthly;
}

class Builder {
public:
    Builder(const fs::path& run_directory, Balance_View view, const Progress& progress, Balance_Tables& tables)
        : View(view),
          Wasser(Found_Or_New(run_directory, "Wasser.orv")),
          Chems(Chem_Files(run_directory)),
          Report_Progress(progress, Files()),
          Tables(tables)
    {}

    void Heads(const Plot_Head& head)
    {
        Water.Head(head.Titles);
        Pesticide.Head(head.Titles);
    }

    // Each table's head is printed before its file is opened, so that it appears even if reading fails.
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

    void Read_Water()
    {
        Print_Water_Head(Water, View);
        Line_Scanner wasser(Wasser);
        Scan_Water_Balance(wasser, View, [&](const Water_Balance_Row& row) {
            const auto number = Tables.Water.size() + 1;
            Tables.Water.push_back(Print_Row(Water, number, row));
            Report_Progress.Tell(Message("wasser", number), wasser.Bytes_Read());
        });
        Done += wasser.Bytes_Read();
    }

    void Read_Pesticide(const Chem_File& chem)
    {
        const bool active_substance = Tables.Pesticide.empty();
        auto& rows = Tables.Pesticide.emplace_back();
        Tables.Substance_Name.emplace_back(Trim(chem.Label));
        Print_Pesticide_Head(Pesticide, View, chem.Label, active_substance);
        Line_Scanner file(chem.File);
        Scan_Pesticide_Balance(file, View, active_substance, [&](const Pesticide_Balance_Row& row) {
            rows.push_back(Print_Row(Pesticide, rows.size() + 1, row));
            Report_Progress.Tell(Message("chem" + chem.Suffix, rows.size()), Done + file.Bytes_Read());
        });
        Done += file.Bytes_Read();
    }

    static std::string Message(const std::string& file, std::size_t number)
    {
        return "Please wait! Reading file " + file + ", year " + std::to_string(number) + ".";
    }

    Balance_View View;
    fs::path Wasser;
    std::vector<Chem_File> Chems;
    Reading_Progress Report_Progress;
    Balance_Tables& Tables;
    std::uint64_t Done = 0; // bytes in the files already read
};

// False: the bytes are not those of whole tables.
bool Load(const Table_Cache::Bytes& bytes, const fs::path& run_directory, Balance_View view, Balance_Tables& tables)
{
    Balance_Tables stored;
    Parse_Water(bytes.First, view, stored);
    Parse_Pesticides(bytes.Second, view, stored);
    if (!Are_Balance_Files(bytes.First, bytes.Second, view, stored) ||
        !Has_All_Substances(run_directory, stored.Pesticide.size()))
        return false;
    tables.Water_Text = Window_Text(bytes.First);
    tables.Pesticide_Text = Window_Text(bytes.Second);
    tables.Titles = std::move(stored.Titles);
    tables.Water = std::move(stored.Water);
    tables.Pesticide = std::move(stored.Pesticide);
    tables.Substance_Name = std::move(stored.Substance_Name);
    return true;
}

void Build(const fs::path& run_directory, Balance_View view, const Echo& echo, const Progress& progress,
           Balance_Tables& tables)
{
    const auto head = Read_Plot_Head(run_directory);
    tables.Titles.assign(head.Titles.begin(), head.Titles.end());
    Builder builder(run_directory, view, progress, tables);
    builder.Heads(head);
    Build_With(tables, [&] { builder.Read(); });
    tables.Water_Text = builder.Water.Screen;
    tables.Pesticide_Text = builder.Pesticide.Screen;
    if (!tables.Failure.empty())
        return;
    if (tables.Not_Kept.empty())
        tables.Not_Kept = Why_Not_Whole(tables, view);
    Cache_Of(view).Write(run_directory, echo, head, {builder.Water.File, builder.Pesticide.File}, tables);
}

} // namespace

Balance_Tables Build_Or_Load_Balance(const fs::path& run_directory, Balance_View view, const Progress& progress)
{
    Balance_Tables tables;
    Echo echo;
    Build_With(tables, [&] {
        echo = Read_Echo(run_directory);
        tables.Gap = Gap_Of(run_directory);
    });
    if (!tables.Failure.empty())
        return tables;
    tables.Run_Failed = echo.Failed();
    Cache_Of(view).Load_Or_Build(
        run_directory, tables,
        [&](const Table_Cache::Bytes& bytes) { return Load(bytes, run_directory, view, tables); },
        [&] { Build(run_directory, view, echo, progress, tables); });
    for (std::size_t s = 0; s < std::min(tables.Substance_Name.size(), echo.Substance_Names.size()); ++s)
        tables.Substance_Name[s] = echo.Substance_Names[s];
    return tables;
}

} // namespace orvel
