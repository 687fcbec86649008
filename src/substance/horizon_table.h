#pragma once

#include "core/session.h"

namespace orvel {

// The depth-dependent values of all substances: rows 0 to n + 1 for n horizons, used from 1.

// The number of horizons that have a row: N_Horizons truncated and limited to the existing rows.
int Horizons_Of(const Pesticide_Document& document);

// Creates the table for n horizons anew: Kf 0, Freundlich exponent 0.9, all factors 1. Erases existing values, even for
// the same n.
void Reset_Horizon_Table(Pesticide_Document& document, int n);

// Grows the table to n horizons and keeps existing values; new rows have the defaults of Reset_Horizon_Table.
void Grow_Horizon_Table(Pesticide_Document& document, int n);

} // namespace orvel
