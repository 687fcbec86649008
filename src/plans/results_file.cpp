#include "plans/results_file.h"

#include "core/error.h"
#include "core/text.h"
#include "core/write_from.h"
#include "plans/plan_results.h"

namespace orvel {

namespace fs = std::filesystem;

bool Is_Results_Book(const fs::path& file)
{
    const std::string ending = Lower(file.extension().string());
    if (ending != ".csv" && ending != ".xlsx")
        throw File_Error("The table of results is written as .csv or .xlsx.");
    return ending == ".xlsx";
}

void Write_Results_Csv(const fs::path& directory, bool with_seconds, const fs::path& file)
{
    Write_Whole_Printed(file, [&](const Print_Text_To& print) { Print_Results(directory, with_seconds, print); });
}

} // namespace orvel
