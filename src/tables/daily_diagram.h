#pragma once

#include "charts/chart.h"
#include "tables/daily_series.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Years, months or days, in the order of Option1.
enum class X_Unit { Years, Months, Days };

// The diagram's title: the quantity, its place and unit. `item` as below.
std::string Daily_Title(const Daily_Request& request, std::string_view item);

// What orvelctl needs to print the same series, in UTF-8.
std::vector<std::string> Series_Words(const std::filesystem::path& run_directory, int column,
                                      const Daily_Request& request);

double Days_Of(X_Unit unit);

// The diagram of a series, `item` being the text of the list from which it was chosen. `unit` affects only the X axis.
Chart Daily_Diagram(const Daily_Series& series, const Daily_Request& request, std::string_view item, X_Unit unit);

// The diagram's points as lines of two columns for the clipboard, positions with three decimals, below a line with both
// titles.
std::string Data_Text(const Chart& chart);

} // namespace orvel
