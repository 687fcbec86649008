#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

constexpr double Digest_Width = 66; // in characters, of a column of SHA-256

// A workbook of a spreadsheet program. Texts are UTF-8 and stay texts, whatever they begin with.

struct Cell_Style {
    std::optional<std::uint32_t> Fill, Ink; // 0xRRGGBB
    bool Bold = false, Italic = false, Wrapped = false, Head = false;
    std::string Number_Format; // of a number; empty: as it is
    auto operator<=>(const Cell_Style&) const = default;
};

struct Sheet_Cell {
    std::string Text;
    std::optional<double> Number; // in place of the text
    Cell_Style Style;
};

struct Sheet {
    std::string Name; // at most 31 characters, none of [ ] : * ? / and backslash
    std::vector<std::vector<Sheet_Cell>> Rows;
    int Frozen_Rows = 0, Frozen_Columns = 0; // stay in view
    std::vector<double> Widths;              // of the columns, in characters
    bool Landscape = true;
};

struct Workbook {
    std::string Title, Author;
    std::vector<Sheet> Sheets;
};

// The bytes of an .xlsx file, the same for the same workbook. Throws File_Error if it cannot be made. (orvelctl has it
// made by orvelpaint: loading the library would take longer than a short command.)
std::string Format_Xlsx(const Workbook& workbook);

// A workbook of one sheet that is written row by row: no more of it than a row is held in memory.
class Row_Book {
public:
    explicit Row_Book(const Sheet& sheet); // without rows. Throws File_Error if it cannot be made, as Format_Xlsx does
    Row_Book(const Row_Book&) = delete;
    Row_Book& operator=(const Row_Book&) = delete;
    ~Row_Book();

    void Add(const std::vector<Sheet_Cell>& row);  // throws File_Error for more rows than a sheet can have
    void Write(const std::filesystem::path& file); // the whole file; the last call

private:
    class Writer;
    std::unique_ptr<Writer> Rows;
};

} // namespace orvel
