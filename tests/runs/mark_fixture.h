#pragma once

#include "core/run_name.h"
#include "run_fixture.h"
#include "runs/batch.h"
#include "runs/mark.h"

namespace orvel {

class Mark_Test : public Run_Test {
protected:
    std::filesystem::path Run_Of(const std::string& directory) const { return Run_Path(Home / "focus", directory); }
    bool Pending() const { return std::filesystem::exists(Home / "focus" / "batch.bat"); }
    static std::vector<std::string> Names_In(const std::filesystem::path& directory)
    {
        return List_Files(directory, "*");
    }

    const std::string Hamburg = "test.run\\Maize.run\\Hamburg_-_(H).run";
};

} // namespace orvel
