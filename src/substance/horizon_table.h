#pragma once

#include "core/session.h"

namespace orvel {

// The depth-dependent values of all substances: rows 0 to n + 1 for n horizons, used from 1.

constexpr double Default_Kd = 0, Default_Exponent = 0.9, Default_Factor = 1; // of a new row

// The number of rows that the table has, whatever the document says of their number: one that was typed is stored only
// when the form of its substance is accepted.
int Rows_Of_Table(const Pesticide_Document& document);

// Creates the table for n horizons anew: Kf 0, Freundlich exponent 0.9, all factors 1. Erases existing values, even for
// the same n.
void Reset_Horizon_Table(Pesticide_Document& document, int n);

// Grows the table to n horizons and keeps existing values; new rows have the defaults of Reset_Horizon_Table.
void Grow_Horizon_Table(Pesticide_Document& document, int n);

} // namespace orvel
