#include "output/line_scanner.h"

#include <algorithm>
#include <cstring>

namespace orvel {

namespace {

[[noreturn]] void Fail(const std::filesystem::path& file, const std::string& what, const std::error_code& error)
{
    File_Error failure("The file " + file.string() + " cannot be " + what + ": " + error.message() + ".");
    failure.Code = error;
    throw failure;
}

} // namespace

const char* Anchor::In(const char* first, const char* last) const
{
    if (static_cast<std::size_t>(last - first) < Text.size())
        return nullptr;
    const char* const stop = last - (Text.size() - 1 - Rare);
    for (const char* at = first + Rare; at < stop; ++at) {
        at = static_cast<const char*>(std::memchr(at, Text[Rare], static_cast<std::size_t>(stop - at)));
        if (!at)
            return nullptr;
        if (std::memcmp(at - Rare, Text.data(), Text.size()) == 0)
            return at - Rare;
    }
    return nullptr;
}

Line_Scanner::Line_Scanner(std::size_t window)
    : Buffer(std::make_unique_for_overwrite<char[]>(std::max<std::size_t>(window, 1))),
      Capacity(std::max<std::size_t>(window, 1))
{}

namespace {

File_Handle Opened_To_Scan(const std::filesystem::path& file)
{
    std::error_code error;
    File_Handle opened(file, File_Handle::Use::Read, error);
    if (error)
        Fail(file, "opened", error);
    return opened;
}

// No larger than the file, which may still grow.
std::size_t Fitting(std::size_t window, const File_Handle& file)
{
    constexpr std::size_t Least = 16U << 10U;
    std::error_code unknown;
    const auto size = file.Size(unknown);
    return unknown
               ? window
               : static_cast<std::size_t>(std::min<std::uint64_t>(window, std::max<std::uint64_t>(size + 1, Least)));
}

} // namespace

Line_Scanner::Line_Scanner(const std::filesystem::path& file, std::size_t window)
    : Line_Scanner(file, Opened_To_Scan(file), window)
{}

Line_Scanner::Line_Scanner(const std::filesystem::path& file, File_Handle opened, std::size_t window)
    : Line_Scanner(Fitting(window, opened))
{
    Name = file;
    File = std::move(opened);
    Fill(Line_First);
}

Line_Scanner Line_Scanner::Of_Bytes(std::string_view bytes, std::size_t window)
{
    Line_Scanner scanner(std::min(window, bytes.size() + 1));
    scanner.Source = bytes;
    scanner.Fill(scanner.Line_First);
    return scanner;
}

std::size_t Line_Scanner::Read_Some(char* to, std::size_t most)
{
    if (!File.Is_Open()) {
        const auto count = std::min(most, Source.size());
        std::copy_n(Source.data(), count, to);
        Source.remove_prefix(count);
        return count;
    }
    std::error_code error;
    const std::size_t got = File.Read(to, most, error);
    if (error)
        Fail(Name, "read", error);
    return got;
}

bool Line_Scanner::Fill(std::size_t& keep)
{
    if (Ended)
        return false;
    const auto kept = End - keep;
    if (kept == Capacity) {
        auto larger = std::make_unique_for_overwrite<char[]>(2 * Capacity);
        std::memcpy(larger.get(), Buffer.get() + keep, kept);
        Buffer = std::move(larger);
        Capacity *= 2;
    } else if (keep > 0) {
        std::memmove(Buffer.get(), Buffer.get() + keep, kept);
    }
    Rest -= keep;
    keep = 0;
    End = kept;
    const auto got = Read_Some(Buffer.get() + End, Capacity - End);
    End += got;
    Total_Bytes += got;
    Ended = got == 0;
    return !Ended;
}

// Skips the rest of a line that is longer than Largest_Line.
void Line_Scanner::Drop_Cut_Line()
{
    if (Cut)
        Line_Size = 0;
    while (Cut) {
        const auto* end = static_cast<const char*>(std::memchr(Buffer.get() + Rest, '\n', End - Rest));
        Rest = end ? static_cast<std::size_t>(end - Buffer.get()) + 1 : End;
        auto keep = Rest;
        Cut = Rest == End && Fill(keep) && !end;
    }
}

bool Line_Scanner::Next()
{
    Drop_Cut_Line();
    if (At_End())
        return false;
    Line_First = Rest;
    const char* end = nullptr;
    for (std::size_t searched = 0;;) {
        const auto from = Line_First + searched;
        end = static_cast<const char*>(std::memchr(Buffer.get() + from, '\n', End - from));
        searched = End - Line_First;
        if (end || searched >= Largest_Line || !Fill(Line_First))
            break;
    }
    Cut = !end && End - Line_First >= Largest_Line;
    const auto stop = end ? static_cast<std::size_t>(end - Buffer.get()) : End;
    Line_Size = std::min(stop - Line_First, Largest_Line);
    Rest = end ? stop + 1 : Line_First + Line_Size;
    if (Line_Size > 0 && Buffer[Line_First + Line_Size - 1] == '\r')
        --Line_Size;
    // Reads one byte ahead, so that At_End is right on the last line.
    if (!Cut && Rest == End)
        Fill(Line_First);
    return true;
}

bool Line_Scanner::Find(const Anchor& anchor)
{
    Drop_Cut_Line();
    for (;;) {
        const char* const from = Buffer.get() + Rest;
        const char* const hit = anchor.In(from, Buffer.get() + End);
        const std::string_view passed(from, static_cast<std::size_t>((hit ? hit : Buffer.get() + End) - from));
        Rest += passed.rfind('\n') + 1; // to the start of the line; nothing if this is still the same line
        if (hit)
            return Next();
        Line_First = Rest;
        Line_Size = 0;
        if (End - Rest >= Largest_Line) {
            Cut = true;
            Drop_Cut_Line();
        } else {
            Fill(Line_First);
        }
        if (Ended && !anchor.In(Buffer.get() + Rest, Buffer.get() + End)) {
            Rest = End;
            return false;
        }
    }
}

bool Line_Scanner::Skip(int lines)
{
    for (int i = 0; i < lines; ++i) {
        if (!Next())
            return false;
    }
    return true;
}

} // namespace orvel
