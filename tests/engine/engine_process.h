#pragma once

#include "engine_case.h"
#include "temporary_directory.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvel::engine {

// The executable, run by a test.

// A build with sanitizers has a tenth of the speed: long runs are shortened.
#ifdef __SANITIZE_ADDRESS__
constexpr bool Sanitized = true;
#else
constexpr bool Sanitized = false;
#endif

struct Engine_Result {
    int Exit_Code = -1; // -1: ended by a signal
    std::string Output; // of stdout and stderr
};

Engine_Result Run_Engine(const std::filesystem::path& directory, const std::string& arguments = {});
Engine_Result Run_Case(const Engine_Case& run, const std::filesystem::path& directory);

std::string File_Of(const std::filesystem::path& directory, std::string_view name);
std::string Last_Line(std::string_view text);

} // namespace orvel::engine
