#include "substance/application_state.h"

#include "substance/application_list.h"
#include "substance/application_pattern.h"
#include "substance/application_year.h"

#include <algorithm>

namespace orvel {

Date_Kind Date_Kind_Of(const Pesticide_Document& document)
{
    return document.App_Mode == App_Mode_Relative ? Date_Kind::Relative : Date_Kind::Absolute;
}

void Load_Applications(Pesticide_Edit edit)
{
    auto& editor = edit.Editor;
    for (int l = 0; l <= Last_Location; ++l) {
        Check_Pattern(edit.Document, edit.Editor, l);
        if (editor.App_Pattern == 0)
            continue;
        editor.App_Cycles = static_cast<std::uint8_t>(Cycles_Of_Pattern(editor.App_Pattern));
        editor.App_Per_Year[l] = static_cast<std::int16_t>(Applications_Of(edit.Document, l) / editor.App_Cycles);
    }
    if (Date_Kind_Of(edit.Document) == Date_Kind::Relative)
        editor.App_Current_Location = 0;
    editor.App_Current = 1;
    Find_Pattern(edit);
}

void Choose_Location(Pesticide_Edit edit, int list_index)
{
    edit.Editor.App_Current_Location = static_cast<std::int16_t>(std::clamp(list_index, 0, Last_Location));
    edit.Editor.App_Current = 1;
    Find_Pattern(edit);
}

void Activate_Applications(Pesticide_Edit edit, int entries)
{
    if (Date_Kind_Of(edit.Document) == Date_Kind::Absolute)
        Choose_Location(edit, std::min<int>(edit.Editor.App_Current_Location, entries - 1));
    Previous_In_Year(edit);
}

void Choose_Date_Kind(Pesticide_Edit edit, Date_Kind kind)
{
    auto& editor = edit.Editor;
    auto& document = edit.Document;
    editor.App_Current_Location = 0;
    if (kind == Date_Kind::Absolute) {
        document.App_Mode = 0;
        for (int shown = Per_Year_Now(edit.Document, edit.Editor); shown > 0; --shown)
            Remove_In_Year(edit);
        editor.App_Current = 1;
        return;
    }
    document.App_Mode = App_Mode_Relative;
    const int pattern = editor.App_Pattern;
    if (pattern > 0) {
        editor.App_Cycles = static_cast<std::uint8_t>(Cycles_Of_Pattern(pattern));
        editor.App_Per_Year[0] =
            static_cast<std::int16_t>(std::clamp<int>(editor.App_Per_Year[0], 0, Last_Application / editor.App_Cycles));
        document.App_Count[0] = editor.App_Per_Year[0] * editor.App_Cycles;
        Choose_Pattern(edit, pattern);
    } else {
        Find_Pattern(edit);
    }
    editor.App_Current = 1;
}

void Return_From_Grid(Pesticide_Edit edit)
{
    edit.Editor.App_Current = 1;
    Find_Pattern(edit);
}

Editor_Copy Keep_Copy(const Pesticide_Document& document, const Editor_State& editor)
{
    return {std::make_unique<Pesticide_Document>(document), editor.App_Per_Year, editor.App_Pattern, editor.App_Cycles};
}

void Restore_Copy(Pesticide_Edit edit, const Editor_Copy& copy)
{
    edit.Document = *copy.Document;
    edit.Editor.App_Per_Year = copy.App_Per_Year;
    edit.Editor.App_Pattern = copy.App_Pattern;
    edit.Editor.App_Cycles = copy.App_Cycles;
    edit.Changed = false;
}

} // namespace orvel
