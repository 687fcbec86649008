#include "installation/lay_out.h"

#include "core/error.h"
#include "core/files.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "full_disk.h"
#include "installation/demo_weather.h"
#include "installation/installation_files.h"
#include "processor_seconds.h"
#include "runs/run_control.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <set>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// A directory with an engine and a utility in it, as a program finds them beside itself.
class Parts {
public:
    Parts()
    {
        Write_Whole(Directory / "orvel401.exe", "engine");
        Write_Whole(Directory / "wyear.exe", "years");
        fs::permissions(Directory / "orvel401.exe", fs::perms::owner_exec, fs::perm_options::add);
    }
    std::vector<fs::path> Found() const { return {Directory.Path()}; }

private:
    Temporary_Directory Directory;
};

std::string What_Is_Told(const fs::path& directory, const std::vector<fs::path>& parts)
{
    try {
        Lay_Out_Installation(directory, parts);
    } catch (const File_Error& error) {
        return error.what();
    }
    return {};
}

std::vector<std::string_view> Lines(const std::string& bytes)
{
    return Split_Lines(bytes);
}

void Expect_Warnings(const fs::path& directory)
{
    for (const auto* const mask : {"*.sze", "*.cli"}) {
        for (const auto& name : List_Files(directory, mask)) {
            const std::string bytes = Read_Whole(directory / name);
            EXPECT_TRUE(Contains(Lines(bytes).at(0), "demonstration data, not for regulatory use")) << name;
            EXPECT_TRUE(bytes.ends_with("\r\n")) << name;
        }
    }
}

TEST(Laying_Out, Takes_Less_Than_Ten_Seconds_For_All_Scenarios_And_66_Years_Of_Weather_At_Each_Site)
{
    const Temporary_Directory root;
    const fs::path directory = root / "deep" / "down";
    const Parts parts;

    const double start = Processor_Seconds(); // how long the disk takes says nothing about this program
    Lay_Out_Installation(directory, parts.Found());

    EXPECT_LT(Processor_Seconds() - start, 10);
    EXPECT_EQ(List_Files(directory / "focus", "*.cli").size(), 9U * 66);
    EXPECT_EQ(List_Files(directory / "EFSA", "*.cli").size(), 6U * 66);
    EXPECT_EQ(List_Files(directory / "EFSA_T4", "*.cli").size(), 15U * 66);
    EXPECT_EQ(List_Files(directory / "focus", "*.sze").size(), 125U);
    EXPECT_EQ(List_Files(directory / "EFSA", "*.sze").size(), 144U);
    EXPECT_EQ(List_Files(directory / "EFSA_T4", "*.sze").size(), 269U);
    EXPECT_EQ(Read_Whole(directory / "focus" / "S_66.cli"), Read_Whole(directory / "EFSA_T4" / "S_66.cli"));
    const std::string title = "DEM Hamburg year 1, generated weather, demonstration data, not for regulatory use\r\n";
    EXPECT_EQ(fs::file_size(directory / "focus" / "H_01.cli"), title.size() + 365 * (77 + 2));
    for (const auto* const mode : {"focus", "EFSA", "EFSA_T4"})
        Expect_Warnings(directory / mode);
    // The start form protects the files at its first activation and takes this one as the sign that it is done.
    EXPECT_FALSE(Is_Read_Only(Found_Or_New(directory / "focus", "c_apples.sze")));
    EXPECT_EQ(Read_Whole(directory / "orvel401.exe"), "engine");
    EXPECT_NE(fs::status(directory / "orvel401.exe").permissions() & fs::perms::owner_exec, fs::perms::none);
    EXPECT_EQ(Read_Whole(directory / "wyear.exe"), "years");
    EXPECT_FALSE(fs::exists(directory / "wmonth.exe")); // only what is there is copied
}

// The files of an installation but the climates.
class Installation : public testing::Test {
protected:
    Installation()
    {
        Make_Data_Files([this](const std::string& path, std::string_view bytes) { Files[path] = bytes; });
    }
    const std::string& File(const std::string& path) const { return Files.at(path); }

    std::map<std::string, std::string> Files;
};

TEST_F(Installation, Has_The_Scenarios_That_The_Start_Form_Looks_For_And_None_That_The_User_Makes)
{
    EXPECT_TRUE(Files.contains("focus/C_apples.sze"));
    EXPECT_TRUE(Files.contains("EFSA/T_N_wcerea.sze"));
    EXPECT_TRUE(Files.contains("EFSA_T4/C_wcerea.sze"));
    for (const auto& [path, bytes] : Files)
        EXPECT_FALSE(Contains(path, "indiv")) << path;
}

TEST_F(Installation, Has_The_Scenario_Of_Every_Entry_That_The_Tier_4_Form_Offers)
{
    const Mode& mode = Mode_Of(Mode_Kind::Efsa_T4);
    int entries = 0;
    for (const Crop& crop : Crops) {
        if (crop.Stem.empty() || crop.Individual)
            continue;
        for (const auto& location : Locations_Of_Crop(Program_State(), mode, &crop)) {
            ++entries;
            EXPECT_TRUE(Files.contains("EFSA_T4/" + Choose_Run(mode, "", &crop, location).Scenario)) << location;
        }
    }
    EXPECT_GT(entries, 25 * 6);
}

TEST_F(Installation, Agrees_With_The_Run_Forms_On_Stems_And_Irrigated_Crops)
{
    std::multiset<std::pair<std::string, bool>> offered;
    for (const Crop& crop : Crops) {
        if (!crop.Stem.empty() && !crop.Individual)
            offered.insert({std::string(crop.Stem), crop.Irrigated});
    }
    std::multiset<std::pair<std::string, bool>> laid_out;
    for (const auto& crop : Load_Demo_Tables().Crops)
        laid_out.insert({crop.Stem + ".sze", crop.Irrigated});

    EXPECT_EQ(laid_out, offered);
}

TEST_F(Installation, Has_Six_Pesticide_Files_And_The_Data_Files_Of_The_Programs)
{
    std::size_t pesticides = 0;
    for (const auto& [path, bytes] : Files)
        pesticides += path.ends_with(".psm") ? 1 : 0;

    EXPECT_EQ(pesticides, 6U);
    for (const auto* const path :
         {"demo_D3.psm", "input.dat", "Haude.dat", "Assystant.txt", "datum.dat", "focus/Focuscheck.dat",
          "EFSA/focuscheck.dat", "EFSA/run.bat", "EFSA_T4/focuscheck.dat", "EFSA_T4/run.bat"})
        EXPECT_TRUE(Files.contains(path)) << path;
}

TEST_F(Installation, Has_The_Same_Calendar_In_Each_Directory)
{
    const std::string& calendar = File("datum.dat");

    EXPECT_EQ(calendar, Format_Calendar(66));
    for (const auto* const name : {"focus/datum.dat", "EFSA/datum.dat", "EFSA_T4/datum.dat"})
        EXPECT_EQ(File(name), calendar) << name;
}

TEST_F(Installation, The_Haude_Factors_Are_Twelve_For_Each_Crop_And_For_Bare_Soil)
{
    const std::string& bytes = File("Haude.dat");
    const auto lines = Lines(bytes);

    ASSERT_EQ(lines.size(), 27U);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        std::string_view rest = lines[i];
        EXPECT_EQ(Val(Next_Token(rest)), static_cast<double>(i - 1));
        for (int month = 1; month <= 12; ++month) {
            const auto token = Trim(Next_Token(rest));
            EXPECT_EQ(token.size(), 4U) << lines[i];
            EXPECT_LT(Val(token), 0.4) << lines[i];
        }
    }
    EXPECT_TRUE(lines[1].starts_with(" 0  0.11 0.11 "));
    EXPECT_TRUE(lines[3].starts_with(" 2  0.20 0.20 0.25 0.29 0.29 0.28 0.26 0.25 0.23 0.22 0.20 0.20 "));
    EXPECT_TRUE(lines[15].starts_with("14  0.11 0.11 0.11 0.17 0.21 0.24 0.25 0.26 0.21 0.18 0.11 0.11 "));
}

TEST_F(Installation, The_Help_Texts_Are_Numbered_From_0_Without_A_Gap_And_Closed)
{
    const std::string& bytes = File("Assystant.txt");
    double next = 0;
    for (const auto line : Lines(bytes)) {
        if (line.starts_with("XXX") && line != "XXX") {
            EXPECT_EQ(Val(line.substr(3)), next++);
        }
    }
    EXPECT_EQ(next, 30);
    EXPECT_EQ(Lines(bytes).back(), "XXX");
}

TEST_F(Installation, The_Template_Of_FOCUS_Runs_Apples_At_The_First_Location)
{
    const std::string& bytes = File("focus/orvel.inp");
    const auto lines = Lines(bytes);

    ASSERT_EQ(lines.size(), 3U + 26 + 1 + 15);
    EXPECT_EQ(lines[0], "026 01 01 31 12 Version 5");
    EXPECT_EQ(lines[1], "..\\..\\..\\C_apples.sze");
    EXPECT_EQ(lines[2], "demo_D.psm");
    EXPECT_EQ(lines[3], "..\\..\\..\\C_01.cli");
    EXPECT_EQ(lines[28], "..\\..\\..\\C_26.cli");
    EXPECT_EQ(lines[29], "00000015 00.");
    EXPECT_EQ(lines[30], "    PRSN    TSER  000.0     1.0 00000001");
    EXPECT_EQ(lines[41], "    TPST    TSER  005.0  1.0E06 00000001");
    EXPECT_EQ(lines[44], "    LEAC    TSER  100.0  1.0E09 00000001");
}

TEST_F(Installation, The_Templates_Of_The_Soil_Modes_Ask_For_The_Top_20_Centimetres)
{
    const std::string& tier_2 = File("EFSA/orvel.inp");
    const std::string& tier_4 = File("EFSA_T4/orvel.inp");

    EXPECT_EQ(Lines(tier_2)[0], "026 01 01 31 12 Version 5          SOIL 0 ");
    EXPECT_EQ(Lines(tier_4)[0], "026 01 01 31 12 Version 5          SOIL0");
    for (const auto* const bytes : {&tier_2, &tier_4}) {
        const auto lines = Lines(*bytes);
        ASSERT_EQ(lines.size(), 3U + 26 + 1 + 15 + 20);
        EXPECT_EQ(lines[1], "..\\..\\..\\T_N_apples.sze");
        EXPECT_EQ(lines[2], "demo_S.psm");
        EXPECT_EQ(lines[28], "..\\..\\..\\T_N_26.cli");
        EXPECT_TRUE(lines[29].starts_with("00000015 "));
        EXPECT_TRUE(lines[29].ends_with(".000000020"));
        EXPECT_EQ(lines[45], "    TPSC    TSER  001.0  1.0E06 00000001");
        EXPECT_EQ(lines[64], "    TPSC    TSER  020.0  1.0E06 00000001");
    }
}

TEST(Laying_Out, Refuses_A_Directory_That_Is_Not_Empty_And_Leaves_It_Alone)
{
    const Temporary_Directory directory;
    Write_Whole(directory / "mine.psm", "mine");

    EXPECT_EQ(What_Is_Told(directory.Path(), Parts().Found()),
              "The directory " + directory.Path().string() + " is not empty.");

    EXPECT_EQ(Read_Whole(directory / "mine.psm"), "mine");
    EXPECT_EQ(std::distance(fs::directory_iterator(directory.Path()), fs::directory_iterator()), 1);
}

TEST(Laying_Out, Refuses_A_File_In_Place_Of_The_Directory)
{
    const Temporary_Directory directory;
    Write_Whole(directory / "file", "mine");

    EXPECT_EQ(What_Is_Told(directory / "file", Parts().Found()), (directory / "file").string() + " is no directory.");
}

TEST(Laying_Out, Makes_Nothing_Without_An_Engine)
{
    const Temporary_Directory directory;
    const Temporary_Directory no_parts;

    EXPECT_EQ(What_Is_Told(directory / "new", {no_parts.Path()}),
              "The engine orvel401.exe does not stand beside this program, so that no installation can be laid out.");

    EXPECT_FALSE(fs::exists(directory / "new"));
}

TEST(Laying_Out, Takes_An_Empty_Directory_With_A_Slash_Behind_It_And_What_A_Killed_Attempt_Left)
{
    const Temporary_Directory directory;
    fs::create_directories(directory / ".orvel-init" / "focus");

    Lay_Out_Installation(directory.Path().string() + "/", Parts().Found());

    EXPECT_TRUE(fs::exists(directory / "focus" / "C_apples.sze"));
    EXPECT_TRUE(fs::exists(directory / "orvel401.exe"));
    EXPECT_FALSE(fs::exists(directory / ".orvel-init"));
}

TEST(Laying_Out, Repeats_An_Attempt_That_Was_Killed_While_Files_Were_Moved_Up)
{
    const Temporary_Directory directory;
    fs::create_directories(directory / ".orvel-init" / "EFSA");
    Write_Whole(directory / ".orvel-init" / "orvel401.exe", "engine");
    fs::create_directories(directory / "focus");
    Write_Whole(directory / "focus" / "C_apples.sze", "half");
    EXPECT_THROW(Refuse_Unfinished(directory.Path()), File_Error);

    Lay_Out_Installation(directory.Path(), Parts().Found());

    EXPECT_NE(Read_Whole(directory / "focus" / "C_apples.sze"), "half");
    EXPECT_TRUE(fs::exists(directory / "orvel401.exe"));
    EXPECT_FALSE(fs::exists(directory / ".orvel-init"));
    EXPECT_NO_THROW(Refuse_Unfinished(directory.Path()));
}

TEST(Laying_Out, Leaves_Alone_What_A_User_Has_Put_Beside_A_Killed_Attempt)
{
    const Temporary_Directory directory;
    fs::create_directories(directory / ".orvel-init");
    Write_Whole(directory / "mine.psm", "mine");

    EXPECT_NE(What_Is_Told(directory.Path(), Parts().Found()), "");

    EXPECT_EQ(Read_Whole(directory / "mine.psm"), "mine");
}

TEST(Laying_Out, Refuses_A_Directory_That_Another_Program_Is_Laying_Out)
{
    const Temporary_Directory directory;
    const auto other = Lock::Take(directory.Path());
    ASSERT_TRUE(other);

    EXPECT_EQ(What_Is_Told(directory.Path(), Parts().Found()),
              "The directory " + directory.Path().string() + " is in use by another program.");
}

TEST(Laying_Out, Tells_Of_A_Full_Disk_And_Leaves_Nothing_Behind)
{
    const Temporary_Directory directory;
    const Parts parts;
    std::string told;
    {
        const Full_Disk full(20000); // larger than a scenario, smaller than a climate file
        told = What_Is_Told(directory / "deep" / "new", parts.Found());
    }

    EXPECT_TRUE(told.starts_with("Cannot write ")) << told;
    EXPECT_FALSE(fs::exists(directory / "deep"));
}

TEST(Laying_Out, Leaves_An_Empty_Directory_Empty_When_It_Fails)
{
    const Temporary_Directory directory;
    const Parts parts;
    {
        const Full_Disk full(20000);
        EXPECT_NE(What_Is_Told(directory.Path(), parts.Found()), "");
    }

    EXPECT_TRUE(fs::is_empty(directory.Path()));
}

TEST(Laying_Out, Looks_For_Its_Parts_Beside_The_Program_First)
{
    const std::vector<fs::path> expected = {"/opt/suite/bin", "/opt/suite/libexec/orvelsuite",
                                            "/opt/suite/share/orvelsuite"};

    EXPECT_EQ(Parts_Beside("/opt/suite/bin/orvelctl"), expected);
}

TEST(Laying_Out, Writes_No_File_Twice)
{
    std::map<std::string, int> names;
    Make_Installation_Files([&](const std::string& path, std::string_view) { ++names[Lower(path)]; });

    for (const auto& [name, times] : names)
        EXPECT_EQ(times, 1) << name;
}

} // namespace

} // namespace orvel
