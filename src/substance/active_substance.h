#pragma once

#include "substance/application_view.h"
#include "substance/location_lists.h"
#include "substance/substance_entry.h"
#include "substance/volatilisation.h"

#include <optional>
#include <string>

namespace orvel {

// The form of the active substance without its applications, which are stored as they are edited.
struct Active_Entry {
    Substance_Entry Substance;
    std::string Text_comment;
    Application_Method App_Flag = Application_Method::Soil;
    bool Henry_Direct = true; // Option_hen1; else Option_hen2
    Volatilisation Pairs;
    std::string Text_vol3; // diffusion coefficient in air, cm2/s
    std::string Text_vol4; // thickness of the boundary layer, cm
    bool operator==(const Active_Entry&) const = default;
};

// What the form shows on opening, including a calculated Henry constant.
Active_Entry Load_Active(const Pesticide_Document& document);

// Stores the entry and the names of the visible list; and how many they are.
void Store_Active(Pesticide_Document& document, const Active_Entry& entry, const Location_Lists& lists);
void Store_Location_Count(Pesticide_Document& document, const Location_Lists& lists);

// "Done": fills in the second volatilisation point of the entry, checks the molar mass and the number of horizons,
// stores the entry and the names of the visible list, checks the sequence of the applications, and stores the number of
// names. On a refusal the form stays open; the document is marked as changed in any case.
std::optional<Refusal> Accept_Active(Pesticide_Edit edit, Active_Entry& entry, const Location_Lists& lists);

} // namespace orvel
