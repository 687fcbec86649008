#include "substance/application_year.h"

#include "substance/application_list.h"
#include "substance/application_pattern.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace orvel {

namespace {

constexpr int Most_At_First_Choice = 10; // for an irregular list without a known year
constexpr int Last_Common_Day = 28;      // every month has it

bool Is_Relative(const Pesticide_Document& document)
{
    return document.App_Mode == App_Mode_Relative;
}

// Copies an application except its hour and poorly exposed fraction, which keep their values.
void Copy_Absolute(Application& to, const Application& from)
{
    to.App_Day = from.App_Day;
    to.App_Month = from.App_Month;
    to.App_Depth = from.App_Depth;
    to.App_Frpex = from.App_Frpex;
    to.App_Rate = from.App_Rate;
}

template <class List, class Copy> void Repeat(List& list, int per_year, int pattern, Copy copy)
{
    const std::vector master(list.begin() + 1, list.begin() + 1 + per_year);
    int m = 0;
    for (int year = 0; year < Cycles_Of_Pattern(pattern); ++year) {
        for (const auto& application : master)
            copy(list[++m], application, static_cast<std::int16_t>(year * pattern + 1));
    }
}

// One application on 1 January, and the crop stage itself. Only the reference point of slot 0 is reset.
void Begin_List(Pesticide_Edit edit, int location)
{
    auto& document = edit.Document;
    edit.Editor.App_Per_Year[location] = 1;
    auto& first = document.Applications[location][1];
    first.App_Day = first.App_Month = 1;
    first.App_Depth = first.App_Rate = 0;
    document.Relative[1].Abs9_Day = 0;
    document.Relative[1].Abs9_Year = 1;
    document.Relative[0].Abs9_Month = 0;
}

// The number of applications of the first year as far as it is known: at most 10 for a list that was never regular, 0
// for an empty one.
int Known_Year(const Pesticide_Edit& edit, int location)
{
    const int count = Applications_Of(edit.Document, location);
    const int per_year = edit.Editor.App_Per_Year[location];
    return std::min(count, per_year > 0 ? per_year : Most_At_First_Choice);
}

void Append_Day_Later(Application& next, const Application& last)
{
    next.App_Frpex = last.App_Frpex;
    next.App_Depth = last.App_Depth;
    next.App_Rate = last.App_Rate;
    next.App_Year = last.App_Year;
    const bool month_ends = last.App_Day >= Last_Common_Day;
    next.App_Day = static_cast<std::int16_t>(month_ends ? 1 : last.App_Day + 1);
    next.App_Month = static_cast<std::int16_t>(last.App_Month + (month_ends ? 1 : 0));
}

} // namespace

void Find_Pattern(Pesticide_Edit edit)
{
    Check_Pattern(edit.Document, edit.Editor, Location_Of(edit.Editor));
    if (edit.Editor.App_Pattern > 0)
        edit.Editor.App_Cycles = static_cast<std::uint8_t>(Cycles_Of_Pattern(edit.Editor.App_Pattern));
}

int Per_Year_Now(const Pesticide_Document& document, const Editor_State& editor)
{
    const int location = Location_Of(editor);
    if (editor.App_Pattern == 0)
        return editor.App_Per_Year[location];
    return Applications_Of(document, location) / Cycles_Of_Pattern(editor.App_Pattern);
}

void Expand_Year(Pesticide_Edit edit, int location, int pattern, Dates dates)
{
    auto& document = edit.Document;
    const int cycles = Cycles_Of_Pattern(pattern);
    const int per_year = std::clamp<int>(edit.Editor.App_Per_Year[location], 0, Last_Application / cycles);
    edit.Editor.App_Per_Year[location] = static_cast<std::int16_t>(per_year);
    document.App_Count[location] = cycles * per_year;
    if (dates != Dates::Relative) {
        Repeat(document.Applications[location], per_year, pattern,
               [](Application& to, const Application& from, std::int16_t year) {
                   Copy_Absolute(to, from);
                   to.App_Year = year;
               });
    }
    if (dates != Dates::Absolute) {
        Repeat(document.Relative, per_year, pattern,
               [](Relative_Application& to, const Relative_Application& from, std::int16_t year) {
                   to = from;
                   to.Abs9_Year = year;
               });
    }
}

std::optional<Refusal> Choose_Pattern(Pesticide_Edit edit, int list_index)
{
    if (list_index < 1 || list_index > 3) {
        Find_Pattern(edit);
        return std::nullopt;
    }
    const int location = Location_Of(edit.Editor);
    const int known = Known_Year(edit, location);
    if (known * Cycles_Of_Pattern(list_index) > Last_Application)
        return Refusal{
            {"Data check", "More than " + std::to_string(Last_Application) + " applications are not possible"},
            "App_Modus"};
    if (known == 0)
        Begin_List(edit, location);
    edit.Editor.App_Per_Year[location] = static_cast<std::int16_t>(std::max(known, 1));
    Expand_Year(edit, location, list_index, Dates::Both);
    Find_Pattern(edit);
    return std::nullopt;
}

void Add_In_Year(Pesticide_Edit edit)
{
    auto& editor = edit.Editor;
    auto& document = edit.Document;
    if (Is_Relative(edit.Document))
        editor.App_Current_Location = 0;
    const int location = Location_Of(edit.Editor);
    const int last = editor.App_Per_Year[location];
    if (editor.App_Pattern == 0 || last < 1 || last >= Most_Per_Year)
        return;
    ++editor.App_Per_Year[location];
    if (Is_Relative(edit.Document)) {
        document.Relative[last + 1] = document.Relative[last];
        ++document.Relative[last + 1].Abs9_Day;
    } else {
        Append_Day_Later(document.Applications[location][last + 1], document.Applications[location][last]);
    }
    Expand_Year(edit, location, editor.App_Pattern, Is_Relative(edit.Document) ? Dates::Relative : Dates::Absolute);
    Find_Pattern(edit);
}

void Remove_In_Year(Pesticide_Edit edit)
{
    auto& editor = edit.Editor;
    if (Is_Relative(edit.Document))
        editor.App_Current_Location = 0;
    const int location = Location_Of(edit.Editor);
    if (editor.App_Pattern == 0 || editor.App_Per_Year[location] <= 1)
        return;
    --editor.App_Per_Year[location];
    Expand_Year(edit, location, editor.App_Pattern, Is_Relative(edit.Document) ? Dates::Relative : Dates::Absolute);
    if (editor.App_Current > editor.App_Per_Year[location])
        Previous_In_Year(edit);
    Find_Pattern(edit);
}

void Next_In_Year(Pesticide_Edit edit)
{
    if (edit.Editor.App_Current < Per_Year_Now(edit.Document, edit.Editor))
        ++edit.Editor.App_Current;
}

void Previous_In_Year(Pesticide_Edit edit)
{
    if (edit.Editor.App_Current > 1)
        --edit.Editor.App_Current;
}

} // namespace orvel
