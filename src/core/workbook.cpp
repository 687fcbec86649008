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

// A file of the library: it writes files alone.
class Open_Book {
public:
    enum class Memory { Whole, A_Row };

    explicit Open_Book(Memory memory)
    {
        if (Place.empty())
            throw File_Error("The workbook cannot be made: no temporary directory can be written to.");
        lxw_workbook_options options{};
        options.constant_memory = memory == Memory::A_Row ? LXW_TRUE : LXW_FALSE;
        Book = workbook_new_opt((Place / File_Name).string().c_str(), &options);
        if (Book == nullptr)
            throw File_Error("The workbook cannot be made.");
    }
    Open_Book(const Open_Book&) = delete;
    Open_Book& operator=(const Open_Book&) = delete;
    ~Open_Book()
    {
        if (Book != nullptr)
            lxw_workbook_free(Book);
        std::error_code ignored;
        std::filesystem::remove_all(Place, ignored);
    }

    void Name(const std::string& title, const std::string& author)
    {
        lxw_doc_properties properties{};
        properties.title = const_cast<char*>(title.c_str());
        properties.author = const_cast<char*>(author.c_str());
        properties.created = Fixed_Date;
        Check(workbook_set_properties(Book, &properties));
    }

    // The file, finished.
    std::filesystem::path Close()
    {
        const lxw_error error = workbook_close(Book);
        Book = nullptr;
        Check(error);
        return Place / File_Name;
    }

    // Without its rows.
    lxw_worksheet* Begin(const Sheet& sheet)
    {
        lxw_worksheet* target = workbook_add_worksheet(Book, sheet.Name.c_str());
        if (target == nullptr)
            throw File_Error("The workbook cannot have a sheet of the name " + sheet.Name + ".");
        for (std::size_t column = 0; column < sheet.Widths.size(); ++column)
            worksheet_set_column(target, static_cast<lxw_col_t>(column), static_cast<lxw_col_t>(column),
                                 sheet.Widths[column], nullptr);
        worksheet_freeze_panes(target, static_cast<lxw_row_t>(sheet.Frozen_Rows),
                               static_cast<lxw_col_t>(sheet.Frozen_Columns));
        constexpr std::uint8_t A4 = 9;
        worksheet_set_paper(target, A4);
        if (sheet.Landscape)
            worksheet_set_landscape(target);
        worksheet_fit_to_pages(target, 1, 0);
        if (sheet.Frozen_Rows > 0)
            worksheet_repeat_rows(target, 0, static_cast<lxw_row_t>(sheet.Frozen_Rows - 1));
        return target;
    }

    void Put_Row(lxw_worksheet* sheet, std::size_t row, const std::vector<Sheet_Cell>& cells)
    {
        for (std::size_t column = 0; column < cells.size(); ++column)
            Put(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column), cells[column]);
    }

private:
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

    lxw_workbook* Book = nullptr;
    std::filesystem::path Place =
        Make_Unique_Directory(std::filesystem::temp_directory_path() / "orvel-workbook-").value_or("");
    std::map<Cell_Style, lxw_format*> Formats;
};

} // namespace

std::string Format_Xlsx(const Workbook& workbook)
{
    Open_Book book(Open_Book::Memory::Whole);
    book.Name(workbook.Title, workbook.Author);
    for (const auto& sheet : workbook.Sheets) {
        lxw_worksheet* target = book.Begin(sheet);
        for (std::size_t row = 0; row < sheet.Rows.size(); ++row)
            book.Put_Row(target, row, sheet.Rows[row]);
    }
    return Read_Whole(book.Close());
}

class Row_Book::Writer {
public:
    explicit Writer(const Sheet& sheet)
    {
        Book.Name(sheet.Name, "");
        Target = Book.Begin(sheet);
    }

    Open_Book Book{Open_Book::Memory::A_Row};
    lxw_worksheet* Target = nullptr;
    std::size_t Next = 0;
};

Row_Book::Row_Book(const Sheet& sheet) : Rows(std::make_unique<Writer>(sheet)) {}
Row_Book::~Row_Book() = default;

void Row_Book::Add(const std::vector<Sheet_Cell>& row)
{
    if (Rows->Next == LXW_ROW_MAX)
        throw File_Error("A sheet of a workbook has room for " + std::to_string(LXW_ROW_MAX) + " rows.");
    Rows->Book.Put_Row(Rows->Target, Rows->Next++, row);
}

void Row_Book::Write(const std::filesystem::path& file)
{
    Copy_Whole(Rows->Book.Close(), file);
}

} // namespace orvel
