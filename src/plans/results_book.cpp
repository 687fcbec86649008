// The results of a plan as a workbook.
#include "core/error.h"
#include "core/numbers.h"
#include "core/workbook.h"
#include "output/run_files.h"
#include "plans/plan_directory.h"
#include "plans/plan_results.h"
#include "plans/results_file.h"

#include <memory>

namespace orvel {

namespace fs = std::filesystem;

namespace {

constexpr double Column_Width = 16;

// A text that is printed as the number that it is, is one: "60", but not "007".
Sheet_Cell Cell_Of(const std::string& text, bool is_id)
{
    constexpr std::string_view Begin = "-.0123456789";
    if (is_id || text.empty() || Begin.find(text.front()) == std::string_view::npos)
        return {.Text = text};
    const double number = Val(text);
    return General_Text(number) == text ? Sheet_Cell{.Text = {}, .Number = number} : Sheet_Cell{.Text = text};
}

} // namespace

void Write_Results_Book(const fs::path& directory, bool with_seconds, const fs::path& file, const Progress& progress)
{
    const auto record = Read_Plan_Record(directory);
    const auto runs = static_cast<double>(record ? std::max<std::size_t>(1, record->Rows) : 1);
    std::unique_ptr<Row_Book> book;
    std::size_t lines = 0;
    Visit_Results(directory, with_seconds, [&](const std::vector<std::string>& cells) {
        const bool is_head = !book;
        if (is_head)
            book = std::make_unique<Row_Book>(Sheet{.Name = "Results",
                                                    .Rows = {},
                                                    .Frozen_Rows = 1,
                                                    .Frozen_Columns = 1,
                                                    .Widths = std::vector<double>(cells.size(), Column_Width)});
        std::vector<Sheet_Cell> row;
        for (const auto& cell : cells)
            row.push_back(is_head ? Sheet_Cell{.Text = cell, .Number = std::nullopt, .Style = {.Head = true}}
                                  : Cell_Of(cell, row.empty()));
        book->Add(row);
        constexpr std::size_t Between = 500;
        const double share = std::min(1.0, static_cast<double>(lines) / runs);
        if (progress && ++lines % Between == 0 && !progress("Row " + std::to_string(lines), share))
            throw Reading_Stopped();
    });
    book->Write(file);
}

} // namespace orvel
