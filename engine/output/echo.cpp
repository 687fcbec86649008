#include "engine/output/echo.h"

#include "core/text.h"
#include "engine/output/figures.h"
#include "engine/output/titles.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace orvel::engine {

namespace {

constexpr std::string_view File_Name = "echo.orv";
constexpr std::string_view At_Work =
    " *** ERROR 99: RUN NOT COMPLETED (ENGINE STILL AT WORK OR STOPPED FROM OUTSIDE) ***\r\n";
// The words that readers of the echo search for.
constexpr std::array<std::string_view, 5> Searched_Words = {"ERROR", "E R R O R", "*** PARAMETERS OF ", "WATR",
                                                            "TOTAL COMPARTMENTS IN CORE"};

[[noreturn]] void Fail(const std::string& what, const std::error_code& error)
{
    throw Engine_Failure(Fault::Disk_Failure, what + ": " + error.message(), Exit_No_File);
}

std::string Today()
{
    const auto day = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    const std::chrono::year_month_day date(day);
    std::string text;
    Put_Integer(text, static_cast<int>(date.year()), 4);
    for (const unsigned part : {static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day())}) {
        text += part < 10 ? "-0" : "-";
        Put_Integer(text, part, 1);
    }
    return text;
}

} // namespace

Echo::Echo(const std::filesystem::path& directory)
{
    const auto file = directory / File_Name;
    std::error_code error;
    File = File_Handle(file, File_Handle::Use::Update, error);
    if (error)
        Fail("CANNOT OPEN ECHO.ORV", error);
    Hold = Lock::Take(file);
    if (!Hold)
        throw Engine_Failure(Fault::Disk_Failure, "ECHO.ORV IS LOCKED: ANOTHER ENGINE IS AT WORK IN THIS DIRECTORY",
                             Exit_No_File);
    if (File.Size(error) > 0)
        error = File.Resize(0);
    if (error)
        Fail("CANNOT EMPTY ECHO.ORV", error);
    Text = " *** " + File_Title("ECHO OF INPUT DATA") + " ***\r\n DATE OF THE RUN: " + Today() + "\r\n\r\n";
    Flush();
}

void Echo::Flush()
{
    const std::string all = Text + std::string(At_Work);
    if (const auto error = File.Write_At(Written, all))
        Fail("CANNOT WRITE ECHO.ORV", error);
    Written += Text.size();
    Text.clear();
}

void Echo::Finish(std::string_view ending)
{
    Text += ending;
    const std::size_t size = Written + Text.size();
    // The ending overwrites the placeholder line and is cut to its size: on a full disk the line of error 99 or part of
    // the ending remains.
    std::error_code error = File.Write_At(Written, Text);
    if (!error)
        error = File.Resize(size);
    if (!error)
        error = File.Close(); // flushed no more than the other outputs: what lasts is the record of the run
    if (error)
        Fail("CANNOT WRITE ECHO.ORV", error);
    Written = size;
    Text.clear();
}

std::string Sanitize(std::string_view text)
{
    std::string sanitized(text);
    std::ranges::replace_if(
        sanitized, [](unsigned char c) { return c < ' '; }, ' ');
    for (const auto word : Searched_Words) {
        if (Contains(sanitized, word))
            sanitized = Replace_All(sanitized, word, Lower(word));
    }
    return sanitized;
}

std::string Error_Line(int number, std::string_view text)
{
    return " *** ERROR " + std::to_string(number) + ": " + Sanitize(text) + " ***\r\n";
}

void Put_Notes(std::string& text, const Findings& findings)
{
    for (const auto& note : findings.Notes)
        text += " NOTE " + std::to_string(note.Number) + ": " + Sanitize(note.Text) + "\r\n";
}

std::string Years_Text(const std::vector<int>& years)
{
    std::string text;
    for (const int year : years)
        text += (text.empty() ? " " : ", ") + std::to_string(year);
    return text;
}

void Put_Dry_Years(std::string& text, std::string_view where, const std::vector<int>& years)
{
    constexpr int number_column = 53, number_width = 10;
    const std::size_t start = text.size();
    text += " Years without percolate " + std::string(where) + ":";
    To_Column(text, start, number_column);
    Put_Integer(text, static_cast<long>(years.size()), number_width);
    text += years.empty() ? "" : "  " + Years_Text(years);
    text += CrLf;
}

void Put_Errors(std::string& text, const Findings& findings)
{
    for (const auto& error : findings.Errors)
        text += Error_Line(error.Number, error.Text);
}

Frequency Frequency_Of(const Variant& text)
{
    const std::string word = Upper(Trim(text.Text()));
    return word == "DAY" ? Frequency::Day : word == "MNTH" ? Frequency::Month : Frequency::Year;
}

std::string_view Frequency_Word(Frequency frequency)
{
    return frequency == Frequency::Day ? "DAY" : frequency == Frequency::Month ? "MNTH" : "YEAR";
}

} // namespace orvel::engine
