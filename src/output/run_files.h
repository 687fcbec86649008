#pragma once

#include "core/progress.h"
#include "output/plot_file.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// What the builders of tables share: the files of a run, the caches, and texts that go to a file and to a window.

// The balance file of a substance.
struct Chem_File {
    std::filesystem::path File;
    std::string Suffix; // ".orv", "_A1.orv" ...
    std::string Label;  // "Pesticide", " Metab.A1" ...
};

// The active substance's file, be it there or not, then the files that are there for the metabolites A1 B1 C1 D1 A2 B2
// C2 D2.
std::vector<Chem_File> Chem_Files(const std::filesystem::path& run_directory);

// Why no cache may be written from a run, a sentence: it is at work, has failed, or has no whole plot.orv. Empty if one
// may.
std::string Why_No_Cache(const std::filesystem::path& run_directory, const Plot_Head& head);

// The bytes of both files of a cache, if both are there and can be read.
struct Cache_Pair {
    std::string First, Second;
};
std::optional<Cache_Pair> Read_Caches(const std::filesystem::path& run_directory, std::string_view first,
                                      std::string_view second);

// Writes both files of a cache whole; gives the sentence to tell if that fails, else nothing.
std::string Write_Caches(const std::filesystem::path& run_directory, std::string_view first, std::string_view second,
                         const Cache_Pair& bytes);

// A cached text as a window shows it.
std::string Shown_Cache(std::string_view bytes);

// A text in its two forms: as written to a file and as shown.
struct Table_Text {
    std::string File, Screen;

    void Line(std::string_view line) { Line(line, line); }
    void Line(std::string_view file, std::string_view screen);
    void Head(const Plot_Head& head); // the four title lines, ten blanks before them on the screen
};

// The files of a run that a builder reads, for the share of the work done.
class Reading_Progress {
public:
    Reading_Progress(const Progress& progress, const std::vector<std::filesystem::path>& files);

    // Tells the user; `taken` is what the files in work have given. Throws Reading_Stopped if that is the user's wish.
    void Tell(const std::string& message, std::uint64_t taken) const;

private:
    const Progress& Report_Progress;
    double Total = 0;
};

struct Reading_Stopped : File_Error {
    Reading_Stopped() : File_Error("The reading was stopped.") {}
};

} // namespace orvel
