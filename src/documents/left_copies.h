#pragma once

#include "files/document_kind.h"

#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

namespace orvel {

// A copy of unsaved changes whose editor lives no longer, whatever became of its document.
struct Left_Copy {
    std::filesystem::path Copy;     // the file
    std::filesystem::path Document; // what was under edit; of a new document its directory and the mask
    Document_Kind Kind{};
    std::time_t Date = 0; // of the last change that was copied
    bool operator==(const Left_Copy&) const = default;
};

// The latest first. A copy of what was saved after all is none. Throws File_Error if they cannot be searched.
std::vector<Left_Copy> Left_Copies(const std::filesystem::path& place);

// Whether the copy's document can still be opened, which offers the copy.
bool Has_Document(const Left_Copy& copy);
std::string State_Text(const Left_Copy& copy); // what became of the document

// Deletes the copy unless a program has opened it.
void Delete_Left(const Left_Copy& copy);

} // namespace orvel
