#include "substance/active_substance.h"

#include "substance/application_sequence.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr int Active = 1;

std::optional<Refusal> Check_Substance(const Substance_Entry& entry)
{
    if (Val(entry.Text_mol) <= 0)
        return Refusal{{"Data check", "Molmass must be greater than 0"}, "Text_mol"};
    if (Val(entry.Text_nhor) < 0)
        return Refusal{{"Data check", "Number of horizons must be greater than 0"}, "Text_nhor"}; // 0 is accepted
    return std::nullopt;
}

} // namespace

Active_Entry Load_Active(const Pesticide_Document& document)
{
    Active_Entry entry{.Substance = Load_Substance(document, Active),
                       .Text_comment = document.PSM_Title,
                       .App_Flag = static_cast<Application_Method>(
                           std::clamp(static_cast<int>(std::clamp(document.App_Method.Number(), 1.0, 4.0)), 1, 4)),
                       .Henry_Direct = document.Henry_Flag.Number() == 0,
                       .Pairs = Load_Volatilisation(document),
                       .Text_vol3 = General_Text(document.Diff_Air),
                       .Text_vol4 = General_Text(document.Depth_Volat)};
    Calculate_Henry(entry.Pairs, Val(entry.Substance.Text_mol), entry.Henry_Direct);
    entry.Henry_Direct = entry.Henry_Direct || Needs_Direct_Henry(entry.Pairs);
    return entry;
}

void Store_Active(Pesticide_Document& document, const Active_Entry& entry, const Location_Lists& lists)
{
    Store_Substance(document, Active, entry.Substance);
    document.PSM_Title = entry.Text_comment;
    document.App_Method = static_cast<int>(entry.App_Flag);
    document.Henry_Flag = entry.Henry_Direct ? 0 : 1;
    Store_Volatilisation(document, entry.Pairs);
    document.Diff_Air = Val(entry.Text_vol3);
    document.Depth_Volat = Val(entry.Text_vol4);
    Store_Location_Names(document, lists);
}

void Store_Location_Count(Pesticide_Document& document, const Location_Lists& lists)
{
    document.App_Loc_Count = static_cast<std::int16_t>(lists.Visible().size());
}

std::optional<Refusal> Accept_Active(Pesticide_Edit edit, Active_Entry& entry, const Location_Lists& lists)
{
    Fill_Second_Point(entry.Pairs, entry.Henry_Direct);
    edit.Changed = true;
    if (auto refusal = Check_Substance(entry.Substance))
        return refusal;
    Store_Active(edit.Document, entry, lists);
    if (auto refusal = Check_Sequence(edit, lists))
        return refusal;
    Store_Location_Count(edit.Document, lists);
    return std::nullopt;
}

} // namespace orvel
