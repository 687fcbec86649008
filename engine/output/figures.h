#pragma once

#include "core/system/file_handle.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace orvel::engine {

// Number printing of the engine. Values are rounded from the exact binary value to the digits shown; |value| < 1E-30
// prints as zero. A value that is not finite throws Engine_Failure (92), so that no file ever contains one. Text is
// appended; a figure that is too wide for its field loses decimals so that the following columns do not shift.

void Put_Integer(std::string& text, long value, int width);
void Put_Fixed(std::string& text, double value, int width, int decimals);    // 12.3456
void Put_Exponent(std::string& text, double value, int width, int decimals); // 1.2345E-06
void Put_Blanks(std::string& text, int count);
void Put_Left(std::string& text, std::string_view what, int width); // left-aligned, truncated to the field

// A value of plot.orv, into a field of Series_Width characters: at least one blank, then up to five digits.
constexpr int Series_Width = 10;
void Put_Series(char* field, double value);

// Pads with blanks up to the 1-based column, where the next character goes.
void To_Column(std::string& text, std::size_t line_start, int column);

// An output file of the run, written through one buffer. Throws Engine_Failure (93) when writing fails.
class Out_File {
public:
    Out_File() = default;
    explicit Out_File(const std::filesystem::path& file); // creates or empties it

    std::string Buffer; // append here, then call Flush_When_Full

    void Flush_When_Full()
    {
        if (Buffer.size() >= Full)
            Flush();
    }
    void Flush();
    void Close();
    bool Is_Open() const { return File.Is_Open(); }

private:
    static constexpr std::size_t Full = 1U << 16U;
    void Check(const std::error_code& error) const;

    File_Handle File;
    std::string Name;
};

} // namespace orvel::engine
