#pragma once

#include "core/progress.h"

#include <filesystem>
#include <string_view>

namespace orvel {

// The results of a plan as a file.

constexpr std::string_view Results_Filters = "Table (*.csv);;Workbook (*.xlsx)";

// Ends in .xlsx; throws File_Error for another ending than that and .csv.
bool Is_Results_Book(const std::filesystem::path& file);

// Both write the file whole, and throw File_Error if that fails or the directory holds no plan. Neither keeps more of
// the results in memory than a row.
void Write_Results_Csv(const std::filesystem::path& directory, bool with_seconds, const std::filesystem::path& file);
void Write_Results_Book(const std::filesystem::path& directory, bool with_seconds, const std::filesystem::path& file,
                        const Progress& progress = {}); // a cell that is a number stays one; may be stopped

} // namespace orvel
