#pragma once

#include "output/plot_file.h"
#include "output/run_records.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orvel {

// The days of plot.orv one by one, each with its date and its values. Nothing is guessed: a line that is damaged, a day
// that is missing or a file that ends within a day is an error. Every function throws File_Error with a sentence.
class Series_Days {
public:
    Series_Days(const std::filesystem::path& file, std::span<const Run_Day> calendar);

    const Plot_Head& Head() const { return Titles; }

    // To the next day; false behind the last one. A file without a day is an error.
    bool Next();

    const Run_Day& Date() const { return *At; }
    // Of all columns, the average over the day's lines: of a rate the amount of the day, of a state its mean.
    std::span<const double> Values() const { return Means; }

    // To be called behind the last day: refuses one that is not the last day of the run. That is in the last year of
    // the head, on the day and month of `end` if these are known; a day that its month lacks is the month's last one.
    void Expect_Last_Day(const std::optional<Run_Day>& end) const;

private:
    void Take_Line();
    void Find_Date(int number);
    [[noreturn]] void Refuse(const std::string& what) const;

    std::string Name;
    std::span<const Run_Day> Calendar;
    Line_Scanner Plot;
    Plot_Head Titles;
    std::vector<double> Means;
    const Run_Day* At = nullptr;
    Plot_Moment Moment; // of the line read last
    int Line_Number = 0;
};

} // namespace orvel
