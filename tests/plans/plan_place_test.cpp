#include "plans/plan_place.h"

#include "core/error.h"
#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Plan_Place_Test, The_Runs_Of_A_Plan_Lie_Beside_It_Or_Around_Its_Copy)
{
    const Temporary_Directory place;
    std::filesystem::create_directory(place / "window");
    Write_Whole(place / "window" / "plan.csv", "id\n");
    const Plan_Place beside{place / "window" / "plan.csv", place / "window" / "plan"};
    EXPECT_EQ(Place_Of_Plan(place / "window" / "plan.csv"), beside);
    EXPECT_THROW(Place_Of_Plan(place / "window"), File_Error);

    Write_Whole(place / "window" / "plan.json",
                "{\"schema\": 1, \"plan\": \"ab\", \"rows\": 1, \"engine\": \"orvel401.exe\"}\n");
    const Plan_Place around{place / "window" / "plan.csv", place / "window"};
    EXPECT_EQ(Place_Of_Plan(place / "window" / "plan.csv"), around);
    EXPECT_EQ(Place_Of_Plan(place / "window"), around);
    EXPECT_EQ(Place_Of_Plan(place / "window" / ""), around);

    EXPECT_EQ(Place_Of_Plan(place / "soils.csv"), (Plan_Place{place / "soils.csv", place / "soils"}));
    EXPECT_EQ(Place_Of_Plan(place / "soils"), (Plan_Place{place / "soils", place / "soils_runs"}));
}

} // namespace orvel
