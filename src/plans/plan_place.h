#pragma once

#include <filesystem>

namespace orvel {

// Where a plan lies, and the directory of its runs.
struct Plan_Place {
    std::filesystem::path Plan, Directory;
    bool operator==(const Plan_Place&) const = default;
};

// By what the user has chosen: the directory of a plan, or the copy in it, is that plan's; any other file is a plan
// whose runs lie in a directory of its name beside it. Throws File_Error for a directory that holds no plan.
Plan_Place Place_Of_Plan(const std::filesystem::path& chosen);

} // namespace orvel
