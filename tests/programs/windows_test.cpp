// What Windows does otherwise than other systems, by the programs that ship: names that it keeps or folds, paths longer
// than its functions take, files that another program keeps for itself, numbers with a comma.
#include "core/files.h"
#include "core/system/handle_windows.h"
#include "core/system/program_path.h"
#include "core/system/spawn.h"
#include "core/text.h"
#include "temporary_directory.h"

#include <chrono>
#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

struct Outcome {
    int Code = 0;
    std::string Printed; // on both channels
};

Outcome Orvelctl(const std::vector<std::string>& arguments)
{
    const Temporary_Directory place;
    const int process = Start_Program({.Program = Own_Path().parent_path().parent_path() / "bin" / "orvelctl.exe",
                                       .Arguments = arguments,
                                       .Directory = place.Path(),
                                       .Output = "printed"});
    const int code = Wait_For_Program(process).Exit_Code;
    return {code, Read_Whole(place / "printed")};
}

class Windows_Test : public testing::Test {
protected:
    Windows_Test()
    {
        static const Temporary_Directory made; // once for all
        static const Outcome laid_out = Orvelctl({"init", (made / "template").string()});
        EXPECT_EQ(laid_out.Code, 0) << laid_out.Printed;
        fs::copy(made / "template", Home, fs::copy_options::recursive);
    }
    Outcome Here(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {"-C", Home.string()});
        return Orvelctl(arguments);
    }
    Outcome Mark(const std::string& pesticide) const
    {
        return Here({"mark", "--mode", "focus", "--pesticide", pesticide, "--crop", "Winter cereals", "--location",
                     "Hamburg (H)", "--output", "recommended"});
    }
    Temporary_Directory Place;
    fs::path Home = Place / "installation";
};

Held_Handle Keep_For_Itself(const fs::path& file)
{
    Held_Handle kept(::CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_TRUE(kept);
    return kept;
}

} // namespace

TEST_F(Windows_Test, A_Name_That_Is_Kept_For_A_Device_Is_Refused_With_A_Sentence)
{
    const auto converted = Here({"convert", (Home / "demo_D.psm").string(), (Home / "aux.psm").string()});
    EXPECT_EQ(converted.Code, 1);
    EXPECT_TRUE(Contains(converted.Printed, "Windows keeps the name 'aux.psm' for a device.")) << converted.Printed;
    for (const char* name : {"con", "nul\\runs", "com1.old"}) {
        const auto laid_out = Orvelctl({"init", (Place / name).string()});
        EXPECT_EQ(laid_out.Code, 1);
        EXPECT_TRUE(Contains(laid_out.Printed, "for a device.")) << laid_out.Printed;
    }
}

TEST_F(Windows_Test, A_Name_Whose_End_Would_Be_Dropped_Is_Refused)
{
    for (const char* name : {"runs.", "runs ", "a?b"}) {
        const auto laid_out = Orvelctl({"init", (Place / name).string()});
        EXPECT_EQ(laid_out.Code, 1);
        EXPECT_TRUE(Contains(laid_out.Printed, std::string("'") + name + "'.")) << laid_out.Printed;
        EXPECT_FALSE(fs::exists(Place / "runs"));
    }
}

TEST_F(Windows_Test, The_Same_File_In_Other_Letters_Is_The_Same_Run)
{
    ASSERT_EQ(Mark("demo_D.psm").Code, 0);
    const fs::path batch = Home / "focus" / "batch.bat";

    const auto again = Mark("DEMO_d.PSM");
    Write_Whole(batch, Replace_All(Read_Whole(batch), "demo_D.run", "DEMO_d.run")); // as from another computer
    const auto other = Mark("demo_D.psm");

    EXPECT_EQ(again.Code, 1);
    EXPECT_TRUE(Contains(again.Printed, "You already selected this combination")) << again.Printed;
    EXPECT_EQ(other.Code, 1);
    EXPECT_TRUE(Contains(other.Printed, "You already selected this combination")) << other.Printed;
}

TEST_F(Windows_Test, A_Document_That_Another_Program_Keeps_Is_Told_And_Left_Whole)
{
    const auto before = Read_Whole(Home / "demo_C.psm");
    auto kept = Keep_For_Itself(Home / "demo_C.psm");

    const auto written = Here({"convert", (Home / "demo_D.psm").string(), (Home / "demo_C.psm").string()});
    const auto read = Here({"convert", (Home / "demo_C.psm").string(), (Home / "new.psm").string()});
    const auto marked = Mark("demo_C.psm");
    kept = Held_Handle();

    for (const auto& outcome : {written, read, marked}) {
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_TRUE(Contains(outcome.Printed, "demo_C.psm: Another program has it open.")) << outcome.Printed;
    }
    EXPECT_EQ(Read_Whole(Home / "demo_C.psm"), before);
    EXPECT_FALSE(fs::exists(Home / "new.psm"));
}

TEST_F(Windows_Test, A_Run_Whose_Output_Another_Program_Keeps_Is_Told_And_Left_Whole)
{
    ASSERT_EQ(Mark("demo_D.psm").Code, 0);
    ASSERT_EQ(Here({"start", "--mode", "focus", "--wait"}).Code, 0);
    const fs::path run = Home / "focus" / "demo_D.run" / "Winter_-_cereals.run" / "Hamburg_-_(H).run";
    const auto before = Read_Whole(run / "plot.orv");
    auto kept = Keep_For_Itself(run / "plot.orv");

    const auto tables = Here({"tables", run.string()});
    const auto verified = Here({"verify", "--mode", "focus"});
    kept = Held_Handle();

    for (const auto& outcome : {tables, verified}) {
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_TRUE(Contains(outcome.Printed, "plot.orv cannot be ")) << outcome.Printed;
        EXPECT_TRUE(Contains(outcome.Printed, "Another program has it open.")) << outcome.Printed;
    }
    EXPECT_EQ(Read_Whole(run / "plot.orv"), before);
    const auto after = Here({"verify", "--mode", "focus"});
    EXPECT_EQ(after.Code, 0) << after.Printed;
}

TEST_F(Windows_Test, An_Installation_At_A_Long_Path_Does_A_Run)
{
    // As long as it can be for the engine to be started in the directory of the run, whose longest files exceed 260.
    const std::string engine = "\\focus\\demo_D.run\\Winter_-_cereals.run\\Hamburg_-_(H).run\\orvel401.exe";
    const std::size_t room = 258 - engine.size();
    Home = Place / std::string(room - Place.Path().string().size() - 1, 'l');
    const auto steps = {Orvelctl({"init", Home.string()}), Mark("demo_D.psm"),
                        Here({"start", "--mode", "focus", "--wait"}), Here({"verify", "--mode", "focus"})};

    for (const auto& step : steps)
        EXPECT_EQ(step.Code, 0) << step.Printed;
}

TEST_F(Windows_Test, An_Installation_At_A_Path_Of_300_Characters_Is_Laid_Out_Marked_And_Listed)
{
    Home = Place / std::string(100, 'd') / std::string(100, 'e') / std::string(100, 'f');

    const auto steps = {Orvelctl({"init", Home.string()}), Mark("demo_D.psm"), Here({"status", "--mode", "focus"}),
                        Here({"convert", (Home / "demo_C.psm").string(), (Home / "copy.psm").string()})};

    for (const auto& step : steps)
        EXPECT_EQ(step.Code, 0) << step.Printed;
    EXPECT_EQ(Read_Whole(Home / "copy.psm").size(), Read_Whole(Home / "demo_C.psm").size());
}

} // namespace orvel
