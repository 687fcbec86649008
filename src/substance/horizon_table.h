#pragma once

#include "core/session.h"

namespace orvel {

// The depth dependent values of all substances, rows 0 to n + 1 for n horizons, in use from 1.

// The horizons of the document that have a row: N_Horizons without decimals, within the rows there are.
int Horizons_Of(const Pesticide_Document& document);

// Allocates the table for n horizons anew: Kf 0, Freundlich exponent 0.9, all factors 1. Erases what was there, also
// for the same n.
void Reset_Horizon_Table(Pesticide_Document& document, int n);

// Makes room for n horizons and keeps what is there; new rows have the values of a reset one.
void Grow_Horizon_Table(Pesticide_Document& document, int n);

} // namespace orvel
