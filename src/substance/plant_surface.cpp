#include "substance/plant_surface.h"

namespace orvel {

using Document = Pesticide_Document;

const std::array<Entry_Field<Plant_Entry, Document>, 8> Plant_Fields = {{
    {"S_plt_dk", "&Decay rate on the plant (1/d)", &Plant_Entry::S_plt_dk, &Document::Plant_Decay},
    {"S_plt_washoff", "&Washoff-coefficient (1/cm)", &Plant_Entry::S_plt_washoff, &Document::Plant_Washoff},
    {"S_plt_filtr", "&Filtration Parameter (1/cm)", &Plant_Entry::S_plt_filtr, &Document::Plant_Filtration, "",
     "Label_plt_filtr"},
    {"S_plt_penet", "Rate for &penetration (1/d)", &Plant_Entry::S_plt_penet, &Document::Plant_Penetration},
    {"S_plt_photo", "Rate for P&hotodegrad. at ref. conditions", &Plant_Entry::S_plt_photo, &Document::Plant_Photodeg,
     "1/d"},
    {"S_RefRad", "&Reference radiation (W/m\u00B2)", &Plant_Entry::S_RefRad, &Document::Plant_Ref_Rad},
    {"S_dlam", "&Laminar layer for volatilisation (cm)", &Plant_Entry::S_dlam, &Document::Plant_Laminar},
    {"S_Hv", "Volatilisation &Enthalpy (J/mol)", &Plant_Entry::S_Hv, &Document::Hv},
}};

Plant_Entry Load_Plant(const Pesticide_Document& document)
{
    Plant_Entry entry;
    Load_Fields<Plant_Entry, Document>(Plant_Fields, document, 0, entry);
    return entry;
}

void Accept_Plant(Pesticide_Edit edit, const Plant_Entry& entry)
{
    Store_Fields<Plant_Entry, Document>(Plant_Fields, entry, 0, edit.Document);
    edit.Changed = true;
}

bool Shows_Filtration(Application_Method method)
{
    return method == Application_Method::Exponential;
}

} // namespace orvel
