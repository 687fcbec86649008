#include "documents/left_copies.h"

#include "core/files.h"
#include "core/system/lock.h"
#include "core/system/times.h"
#include "documents/unsaved_copy.h"

#include <algorithm>
#include <optional>

namespace orvel {

namespace fs = std::filesystem;

namespace {

bool Is_New(const Left_Copy& copy)
{
    return copy.Document.filename() == Type_Of(copy.Kind).Mask;
}

bool Was_Saved(const Left_Copy& copy)
try {
    return Has_Document(copy) && Read_Whole(copy.Copy) == Read_Whole(copy.Document) &&
           Differences(Read_Notes(copy.Copy), Read_Notes(copy.Document)).empty();
} catch (const File_Error&) {
    return false;
}

std::optional<Left_Copy> Copy_In(const fs::path& directory)
try {
    if (Is_Locked(directory))
        return std::nullopt;
    for (const auto& type : Document_Types) {
        const auto files = List_Files(directory, type.Mask);
        const auto document = Read_If_There(directory, Origin_File);
        if (files.empty() || document.empty())
            continue;
        Left_Copy copy{directory / files.front(), document, type.Kind, Last_Change(directory / files.front())};
        return Was_Saved(copy) ? std::nullopt : std::optional(copy);
    }
    return std::nullopt;
} catch (const File_Error&) { // of another user, or gone meanwhile
    return std::nullopt;
}

} // namespace

std::vector<Left_Copy> Left_Copies(const fs::path& place)
{
    std::vector<Left_Copy> copies;
    if (place.empty())
        return copies;
    for (const auto& name : List_Directories(place, "*")) {
        if (auto copy = Copy_In(place / name))
            copies.push_back(std::move(*copy));
    }
    std::ranges::stable_sort(copies, std::ranges::greater(), &Left_Copy::Date);
    return copies;
}

bool Has_Document(const Left_Copy& copy)
{
    std::error_code ignored;
    return fs::is_regular_file(copy.Document, ignored);
}

std::string State_Text(const Left_Copy& copy)
{
    if (Is_New(copy))
        return "new, never saved";
    return Has_Document(copy) ? "saved without these changes" : "deleted or moved";
}

void Delete_Left(const Left_Copy& copy)
{
    std::error_code ignored;
    if (const auto lock = Lock::Take(copy.Copy.parent_path()))
        fs::remove_all(copy.Copy.parent_path(), ignored);
}

} // namespace orvel
