#pragma once

#include "core/session.h"
#include "substance/application_view.h"
#include "ui/entry_fields.h"

#include <array>
#include <string>

namespace orvel {

// The fate of the substance on the plant surface. Texts are as typed.
struct Plant_Entry {
    std::string S_plt_dk;      // decay rate, 1/d
    std::string S_plt_washoff; // 1/cm
    std::string S_plt_filtr;   // filtration parameter, 1/cm
    std::string S_plt_penet;   // 1/d
    std::string S_plt_photo;   // 1/d at reference conditions
    std::string S_RefRad;      // W/m2
    std::string S_dlam;        // thickness of the laminar layer, cm
    std::string S_Hv;          // enthalpy of volatilisation, J/mol
    bool operator==(const Plant_Entry&) const = default;
};

// The boxes in the order of the form.
extern const std::array<Entry_Field<Plant_Entry, Pesticide_Document>, 8> Plant_Fields;

Plant_Entry Load_Plant(const Pesticide_Document& document);

// "OK": stores everything and marks the document as changed.
void Accept_Plant(Pesticide_Edit edit, const Plant_Entry& entry);

// S_plt_filtr and its label are shown for exponential interception only.
bool Shows_Filtration(Application_Method method);

} // namespace orvel
