#include "substance/plant_surface.h"

#include "ui/number_field.h"

namespace orvel {

Plant_Entry Load_Plant(const Pesticide_Document& document)
{
    return {.S_plt_dk = document.Plant_Decay.Text(),
            .S_plt_washoff = document.Plant_Washoff.Text(),
            .S_plt_filtr = General_Text(document.Plant_Filtration),
            .S_plt_penet = General_Text(document.Plant_Penetration),
            .S_plt_photo = General_Text(document.Plant_Photodeg),
            .S_RefRad = General_Text(document.Plant_Ref_Rad),
            .S_dlam = General_Text(document.Plant_Laminar),
            .S_Hv = General_Text(document.Hv)};
}

void Accept_Plant(Session& session, const Plant_Entry& entry)
{
    auto& document = session.Pesticide;
    document.Plant_Decay = Typed_Number(entry.S_plt_dk);
    document.Plant_Washoff = Typed_Number(entry.S_plt_washoff);
    document.Plant_Filtration = Val(entry.S_plt_filtr);
    document.Plant_Penetration = Val(entry.S_plt_penet);
    document.Plant_Photodeg = Val(entry.S_plt_photo);
    document.Plant_Ref_Rad = Val(entry.S_RefRad);
    document.Plant_Laminar = Val(entry.S_dlam);
    document.Hv = Val(entry.S_Hv);
    session.Program.PSM_Changed = true;
}

bool Shows_Filtration(Application_Method method)
{
    return method == Application_Method::Exponential;
}

} // namespace orvel
