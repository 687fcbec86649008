#include "core/windows_names.h"

#include "core/files.h"
#include "core/system/file_names.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Fault_Of_Windows_Name, Knows_The_Names_Of_Devices_With_Any_Ending_And_In_Any_Case)
{
    for (const char* name : {"CON", "con.psm", "Prn.run", "aux.tar.gz", "NUL", "nul .txt", "COM1", "com9.psm", "LPT3",
                             "COM\u00B2", "CONIN$", "conout$"})
        EXPECT_EQ(Fault_Of_Windows_Name(name), "Windows keeps the name '" + std::string(name) + "' for a device.");
    for (const char* name : {"CONE", "con-1.psm", "CO", "COM", "COM10", "COMX", "LPT", "demo.con", "auxin.psm", ".con"})
        EXPECT_EQ(Fault_Of_Windows_Name(name), "") << name;
}

TEST(Fault_Of_Windows_Name, Knows_Ends_That_Are_Dropped_And_Characters_That_Are_Not_Taken)
{
    EXPECT_EQ(Fault_Of_Windows_Name("runs."), "Windows drops the blank or dot at the end of the name 'runs.'.");
    EXPECT_EQ(Fault_Of_Windows_Name("runs "), "Windows drops the blank or dot at the end of the name 'runs '.");
    EXPECT_EQ(Fault_Of_Windows_Name("a:b.psm"),
              "Windows takes none of the characters < > : \" | ? * in a name, as in 'a:b.psm'.");
    for (const char* name : {"a?", "a*b", "<a", "a|b", "say \"so\"", "tab\tbed"})
        EXPECT_NE(Fault_Of_Windows_Name(name), "") << name;
    for (const char* name :
         {"Hamburg_-_(H).run", " leading", ".hidden", "Größe α.psm", "a.b", "100%^&!;,='`~#$@{}[]+-"})
        EXPECT_EQ(Fault_Of_Windows_Name(name), "") << name;
}

TEST(Check_Names, Tells_Why_A_Path_Cannot_Be_Made_Where_It_Cannot)
{
    const Temporary_Directory place;
    const auto failure_of = [](const auto& action) -> std::string {
        try {
            action();
        } catch (const File_Error& error) {
            return error.what();
        }
        return {};
    };
    const std::string fault = Fault_Of_Name("aux.psm"); // of this system

    EXPECT_EQ(failure_of([&] { Check_Names(place / ".." / "plain" / "."); }), "");
    EXPECT_EQ(failure_of([&] { Check_Names(place / "aux.psm" / "run"); }),
              fault.empty() ? "" : "There can be no " + (place / "aux.psm" / "run").string() + ": " + fault);
    EXPECT_EQ(failure_of([&] { Write_Whole(place / "aux.psm", "bytes"); }),
              fault.empty() ? "" : "Cannot write " + (place / "aux.psm").string() + ": " + fault);
}

} // namespace orvel
