#pragma once

#include <filesystem>
#include <string_view>

namespace orvel {

// Writes a file that nobody needs after a power cut, such as an input of a run that is begun again then: it is neither
// flushed nor renamed over its target as Write_Whole does. Throws File_Error.
void Write_Unflushed(const std::filesystem::path& file, std::string_view bytes);

} // namespace orvel
