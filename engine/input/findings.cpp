#include "engine/input/findings.h"

namespace orvel::engine {

void Findings::Error(Fault fault, std::string text)
{
    if (Errors.size() < Most_Errors)
        Errors.push_back({static_cast<int>(fault), std::move(text)});
}

void Findings::Tell(Note note, std::string text)
{
    const Entry entry{static_cast<int>(note), std::move(text)};
    if (Notes.size() < Most_Notes && (Notes.empty() || Notes.back() != entry))
        Notes.push_back(entry);
}

} // namespace orvel::engine
