#pragma once

#include "core/error.h"
#include "core/system/file_handle.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

namespace orvel {

// Engine files run to hundreds of megabytes: they are read once, through one window, and searched for marking texts.

constexpr std::size_t Scan_Window = 512U << 10U;
constexpr std::size_t Largest_Line = 512U << 10U; // a longer line is cut

// A text anywhere in a line that marks it, case-sensitive. It is searched by its rarest letter.
class Anchor {
public:
    constexpr explicit Anchor(std::string_view text) : Text(text), Rare(Rarest(text)) {}

    // Where the text begins in a stretch of bytes, or nullptr.
    const char* In(const char* first, const char* last) const;
    bool In(std::string_view line) const { return In(line.data(), line.data() + line.size()) != nullptr; }

private:
    // Numbers, blanks and the E of exponents fill the files; letters early in this order hardly occur in them.
    static constexpr std::size_t Rarest(std::string_view text)
    {
        constexpr std::string_view Order = "*ZXQJKWYVGHFUBDMLPCSRONTIAE";
        std::size_t best = 0;
        for (std::size_t i = 1; i < text.size(); ++i) {
            if (Order.find(text[i]) < Order.find(text[best]))
                best = i;
        }
        return best;
    }

    std::string_view Text;
    std::size_t Rare;
};

// Walks forward over the lines of a file, which end in CR LF or LF.
class Line_Scanner {
public:
    // Throws File_Error if the file cannot be opened; so do the functions below if it cannot be read.
    explicit Line_Scanner(const std::filesystem::path& file, std::size_t window = Scan_Window);
    static Line_Scanner Of_Bytes(std::string_view bytes,
                                 std::size_t window = Scan_Window); // the bytes outlive the scanner

    // To the next line. False at the end of the file: the line at hand stays.
    bool Next();
    // To the next line that holds the anchor. False at the end of the file: there is no line at hand then.
    bool Find(const Anchor& anchor);
    // To the n-th line from here; false if the file ends before.
    bool Skip(int lines);

    // The line at hand without its end, valid until the scanner moves on.
    std::string_view Line() const { return {Buffer.get() + Line_First, Line_Size}; }
    // Whether the file ends with the line at hand.
    bool At_End() const { return Rest == End && Ended && !Cut; }
    std::uint64_t Bytes_Read() const { return Total_Bytes; }

private:
    explicit Line_Scanner(std::size_t window);
    Line_Scanner(const std::filesystem::path& file, File_Handle opened, std::size_t window);
    bool Fill(std::size_t& keep); // reads more bytes, keeping those from `keep` on
    std::size_t Read_Some(char* to, std::size_t most);
    void Drop_Cut_Line();

    std::filesystem::path Name;
    File_Handle File;        // not open in a scanner of bytes
    std::string_view Source; // what is left of a scanner's bytes
    std::unique_ptr<char[]> Buffer;
    std::size_t Capacity, Rest = 0, End = 0, Line_First = 0, Line_Size = 0;
    std::uint64_t Total_Bytes = 0;
    bool Ended = false, Cut = false;
};

} // namespace orvel
