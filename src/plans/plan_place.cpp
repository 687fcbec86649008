#include "plans/plan_place.h"

#include "core/error.h"
#include "plans/plan_directory.h"

namespace orvel {

namespace fs = std::filesystem;

Plan_Place Place_Of_Plan(const fs::path& chosen)
{
    const fs::path path = fs::absolute(chosen).lexically_normal();
    std::error_code error;
    if (fs::is_directory(path, error)) {
        const fs::path directory = path.has_filename() ? path : path.parent_path();
        if (!Read_Plan_Record(directory))
            throw File_Error("The directory " + directory.string() + " holds no plan.");
        return {directory / Plan_Copy_Name, directory};
    }
    const fs::path directory = path.parent_path();
    if (path.filename() == Plan_Copy_Name && Read_Plan_Record(directory))
        return {path, directory};
    return {path, path.has_extension() ? directory / path.stem() : fs::path(path.string() + "_runs")};
}

} // namespace orvel
