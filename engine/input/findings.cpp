#include "engine/input/findings.h"

#include "core/text.h"

namespace orvel::engine {

void Findings::Error(Fault fault, std::string text)
{
    if (Errors.size() < Most_Errors)
        Errors.push_back({static_cast<int>(fault), std::move(text)});
}

void Findings::Tell_Misreads(Fault fault, std::string_view file, const Misreads& words)
{
    for (const Misread& word : words) {
        if (Errors.size() >= Most_Errors)
            return; // a file of another kind has thousands
        std::string text = std::string(file) + ", LINE " + std::to_string(word.At.Line) + ", COLUMN " +
                           std::to_string(word.At.Column) + ": \"" + word.Word + "\" IS NO NUMBER";
        if (!word.Field.empty())
            text += " (" + Upper(word.Field) + ")";
        if (Is_One_Number(Comma_To_Point(word.Word)))
            text += ", THE DECIMAL SIGN IS A POINT";
        Error(fault, text);
    }
}

void Findings::Tell(Note note, std::string text)
{
    const Entry entry{static_cast<int>(note), std::move(text)};
    if (Notes.size() < Most_Notes && (Notes.empty() || Notes.back() != entry))
        Notes.push_back(entry);
}

} // namespace orvel::engine
