#include "core/workbook.h"

#include "core/error.h"
#include "core/files.h"

#include <ctime>
#include <filesystem>
#include <map>
#include <xlsxwriter.h>

namespace orvel {

namespace {

constexpr std::time_t Fixed_Date = 946'684'800; // 2000-01-01: the same content gives the same bytes
constexpr const char* File_Name = "book.xlsx";
constexpr std::uint32_t Head_Fill = 0xE7ECF2, Rule = 0xC9CED6;

void Check(lxw_error error)
{
    if (error != LXW_NO_ERROR)
        throw File_Error(std::string("The workbook cannot be made: ") + lxw_strerror(error));
}

class Book_Writer {
public:
    explicit Book_Writer(const Workbook& workbook) : Source(workbook)
    {
        if (Place.empty())
            throw File_Error("The workbook cannot be made: no temporary directory can be written to.");
        Book = workbook_new((Place / File_Name).c_str());
        if (Book == nullptr)
            throw File_Error("The workbook cannot be made.");
    }
    Book_Writer(const Book_Writer&) = delete;
    Book_Writer& operator=(const Book_Writer&) = delete;
    ~Book_Writer()
    {
        if (Book != nullptr)
            lxw_workbook_free(Book);
        std::error_code ignored;
        std::filesystem::remove_all(Place, ignored);
    }

    std::string Write()
    {
        lxw_doc_properties properties{};
        properties.title = const_cast<char*>(Source.Title.c_str());
        properties.author = const_cast<char*>(Source.Author.c_str());
        properties.created = Fixed_Date;
        Check(workbook_set_properties(Book, &properties));
        for (const auto& sheet : Source.Sheets)
            Add(sheet);
        const lxw_error error = workbook_close(Book);
        Book = nullptr;
        Check(error);
        return Read_Whole(Place / File_Name);
    }

private:
    void Add(const Sheet& sheet)
    {
        lxw_worksheet* target = workbook_add_worksheet(Book, sheet.Name.c_str());
        if (target == nullptr)
            throw File_Error("The workbook cannot have a sheet of the name " + sheet.Name + ".");
        for (std::size_t column = 0; column < sheet.Widths.size(); ++column)
            worksheet_set_column(target, static_cast<lxw_col_t>(column), static_cast<lxw_col_t>(column),
                                 sheet.Widths[column], nullptr);
        for (std::size_t row = 0; row < sheet.Rows.size(); ++row) {
            for (std::size_t column = 0; column < sheet.Rows[row].size(); ++column)
                Put(target, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column), sheet.Rows[row][column]);
        }
        worksheet_freeze_panes(target, static_cast<lxw_row_t>(sheet.Frozen_Rows),
                               static_cast<lxw_col_t>(sheet.Frozen_Columns));
        constexpr std::uint8_t A4 = 9;
        worksheet_set_paper(target, A4);
        if (sheet.Landscape)
            worksheet_set_landscape(target);
        worksheet_fit_to_pages(target, 1, 0);
        if (sheet.Frozen_Rows > 0)
            worksheet_repeat_rows(target, 0, static_cast<lxw_row_t>(sheet.Frozen_Rows - 1));
    }

    void Put(lxw_worksheet* sheet, lxw_row_t row, lxw_col_t column, const Sheet_Cell& cell)
    {
        lxw_format* format = Format_Of(cell.Style);
        if (cell.Number)
            Check(worksheet_write_number(sheet, row, column, *cell.Number, format));
        else if (cell.Text.empty())
            Check(worksheet_write_blank(sheet, row, column, format));
        else
            Check(worksheet_write_string(sheet, row, column, cell.Text.c_str(), format));
    }

    lxw_format* Format_Of(const Cell_Style& style)
    {
        auto& format = Formats[style];
        if (format != nullptr)
            return format;
        format = workbook_add_format(Book);
        format_set_align(format, LXW_ALIGN_VERTICAL_TOP);
        if (style.Fill || style.Head)
            format_set_bg_color(format, style.Fill.value_or(Head_Fill));
        if (style.Ink)
            format_set_font_color(format, *style.Ink);
        if (style.Bold || style.Head)
            format_set_bold(format);
        if (style.Italic)
            format_set_italic(format);
        if (style.Wrapped || style.Head)
            format_set_text_wrap(format);
        if (!style.Number_Format.empty())
            format_set_num_format(format, style.Number_Format.c_str());
        format_set_border(format, LXW_BORDER_THIN);
        format_set_border_color(format, Rule);
        return format;
    }

    const Workbook& Source;
    lxw_workbook* Book = nullptr;
    // The library writes files alone.
    std::filesystem::path Place =
        Make_Unique_Directory(std::filesystem::temp_directory_path() / "orvel-workbook-").value_or("");
    std::map<Cell_Style, lxw_format*> Formats;
};

} // namespace

std::string Format_Xlsx(const Workbook& workbook)
{
    return Book_Writer(workbook).Write();
}

} // namespace orvel
