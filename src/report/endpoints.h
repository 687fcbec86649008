#pragma once

#include "core/session.h"
#include "files/document_notes.h"

#include <string>
#include <vector>

namespace orvel {

// What a dossier lists of a substance's properties; texts with their units.
struct Endpoint {
    std::string Substance;
    std::string DT50;      // "12.3 d at 20 degrees C, moisture 100 %"
    std::string Koc;       // "120 L/kg", "by horizon", "120 to 15 L/kg by pH"
    std::string Exponent;  // 1/n
    std::string Formation; // "0.7 from Demo substance C"
    std::string Vapour_Pressure, Solubility;
    std::string Source; // "Koc: study 12; DT50: report 3"
    bool operator==(const Endpoint&) const = default;
};

// Those of the active substance and of every metabolite that the scheme forms, with the sources in the
// document's notes.
std::vector<Endpoint> Endpoints_Of(const Pesticide_Document& document, const Document_Notes& notes = {});

} // namespace orvel
