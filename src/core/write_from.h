#pragma once

#include "core/system/file_handle.h"

#include <filesystem>
#include <functional>
#include <string_view>

namespace orvel {

// Writes a file whole as Write_Whole (files.h) does, but out of a function, so that its bytes need not fit into memory.
// What the function throws is passed on; the old file is then unchanged and nothing is left beside it.
void Write_Whole_From(const std::filesystem::path& file, const std::function<void(File_Handle&)>& write);

// The same out of a function that prints a text piece by piece.
using Print_Text_To = std::function<void(std::string_view)>;
void Write_Whole_Printed(const std::filesystem::path& file, const std::function<void(const Print_Text_To& print)>& all);

} // namespace orvel
