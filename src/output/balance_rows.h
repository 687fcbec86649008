#pragma once

#include "output/line_scanner.h"
#include "output/run_records.h"

#include <functional>

namespace orvel {

// Reads the rows of a balance out of the engine's files, a row per block: yearly or monthly. `row` is called for each.
// A block cut short by the end of the file gives a row with zeros for what is missing; a marking text that is missing
// in a block is found in a later one.
void Scan_Water_Balance(Line_Scanner& wasser, Balance_View view,
                        const std::function<void(const Water_Balance_Row&)>& row);

// The volatilisation is that of the active substance; a metabolite's is part of its Diff_Storage.
void Scan_Pesticide_Balance(Line_Scanner& chem, Balance_View view, bool active_substance,
                            const std::function<void(const Pesticide_Balance_Row&)>& row);

} // namespace orvel
