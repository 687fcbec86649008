#include "documents/documents.h"

#include "core/files.h"
#include "files/parsed.h"
#include "files/pesticide_example.h"
#include "files/scenario_example.h"
#include "recording_user.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

class Documents : public testing::Test {
protected:
    Documents() { The_Session->Ask = std::ref(The_User); }

    std::filesystem::path File(const std::string& name, std::string_view bytes)
    {
        Write_Whole(Directory / name, bytes);
        return Directory / name;
    }

    // The bytes that a conversion gives.
    std::string Converted(const std::string& name, std::string_view bytes)
    {
        const auto to = Directory / ("converted" + std::filesystem::path(name).extension().string());
        EXPECT_TRUE(Convert_Document(*The_Session, File(name, bytes), to));
        return Read_Whole(to);
    }

    Temporary_Directory Directory;
    Recording_User The_User;
    std::unique_ptr<Session> The_Session = std::make_unique<Session>();
};

} // namespace

TEST_F(Documents, The_Ending_Says_The_Kind_In_Any_Case)
{
    EXPECT_EQ(Kind_Of("a.psm"), Document_Kind::Pesticide);
    EXPECT_EQ(Kind_Of("dir.cli/A.SZE"), Document_Kind::Scenario);
    EXPECT_EQ(Kind_Of("a.Cli"), Document_Kind::Climate);
    EXPECT_EQ(Kind_Of("a.psm.txt"), std::nullopt);
    EXPECT_EQ(Kind_Of("psm"), std::nullopt);
}

TEST_F(Documents, Opening_A_Pesticide_File_Derives_Its_Pathway_And_Keeps_Its_Name)
{
    The_Session->Editor.App_Pattern = 2;

    EXPECT_TRUE(Open_Document(*The_Session, File("demo.psm", Example_File())));

    EXPECT_EQ(The_Session->Program.PSM_File, "demo.psm");
    EXPECT_TRUE(The_Session->Pesticide.Trans_Active[1]);
    EXPECT_TRUE(The_Session->Pesticide.Bound_Active[2]);
    EXPECT_EQ(The_Session->Editor.App_Per_Year[0], 0);
}

TEST_F(Documents, Opening_A_Pesticide_File_Counts_The_Applications_Per_Year_Of_A_Known_Pattern)
{
    std::string applications = " 1    0    1 \r\n046\r\n";
    for (int a = 0; a < 46; ++a)
        applications += "01  01  01   1    0    0    0    0 \r\n";
    The_Session->Editor.App_Pattern = 2;

    EXPECT_TRUE(
        Open_Document(*The_Session, File("demo.psm", With(Example_File(), Example_Applications, applications))));

    EXPECT_EQ(The_Session->Editor.App_Per_Year[0], 2); // 46 in 23 years
}

TEST_F(Documents, A_File_That_Is_No_Document_Is_Refused_Both_Ways)
{
    EXPECT_FALSE(Open_Document(*The_Session, File("notes.txt", "x")));
    EXPECT_FALSE(Save_Document(*The_Session, Directory / "notes.doc"));

    EXPECT_EQ(The_User.Messages,
              (std::vector{Message{"Readin check", "notes.txt does not end in .psm, .sze or .cli."},
                           Message{"Saving Input File", "notes.doc does not end in .psm, .sze or .cli."}}));
    EXPECT_FALSE(std::filesystem::exists(Directory / "notes.doc"));
}

TEST_F(Documents, Converting_A_Present_Pesticide_File_Changes_Nothing)
{
    EXPECT_EQ(Converted("demo.psm", Example_File()), Example_File());
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Documents, Converting_Drops_A_Metabolite_That_Nothing_Forms_And_Writes_One_That_Is_Formed)
{
    const auto none = Converted("demo.psm", With(Example_File(), "0.0231049 ", "0.00E+00  "));
    EXPECT_EQ(none.find("METABOLITE"), std::string::npos);

    const auto formed = Converted("demo.psm", With(Example_File(), Example_A1, ""));
    EXPECT_NE(formed.find("METABOLITE A1     Metabolite A1\r\n"), std::string::npos);
}

TEST_F(Documents, Converting_A_Scenario_File_Writes_Its_Present_Form)
{
    EXPECT_EQ(Converted("demo.sze", Scenario_File()),
              With(Scenario_File(), "WATR     DAY    0001", "WATR    DAY     0001"));
}

TEST_F(Documents, Converting_A_Climate_File_Rounds_Its_Numbers_As_The_Grid_Shows_Them)
{
    EXPECT_EQ(
        Converted("demo.cli",
                  "T\r\n 0201811.2550000 0.15400   18.2500   14.26     6.0000000 99.96     15230.04        12\r\n"),
        "T\r\n 0201811.2600000 0.1500000 18.3000   14.3000   6.0000000 100.000   15230.0               12\r\n\r\n");
}

TEST_F(Documents, Converting_Tells_A_Field_That_Is_Lost_And_Goes_On)
{
    const auto text = Converted("demo.sze", With(Scenario_File(), " 100    1       40 ", " 1234.567 1 40 "));

    EXPECT_EQ(
        The_User.Messages,
        std::vector{(Message{"Saving Input File",
                             "\"Core depth\" is too long for its column: the file cannot be read back as it is."})});
    EXPECT_NE(text.find("\r\n 1234.567 \r\n        1       40 "), std::string::npos);
}

TEST_F(Documents, Converting_To_Another_Kind_Is_Refused)
{
    EXPECT_FALSE(Convert_Document(*The_Session, File("demo.psm", Example_File()), Directory / "demo.sze"));

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Saving Input File", "demo.sze does not have the ending of demo.psm."})});
    EXPECT_FALSE(std::filesystem::exists(Directory / "demo.sze"));
}

TEST_F(Documents, Converting_A_Bad_File_Leaves_The_Target_As_It_Was)
{
    const auto to = File("target.psm", "before");

    EXPECT_FALSE(Convert_Document(*The_Session, File("demo.psm", Example_File().substr(0, 900)), to));

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_TRUE(The_User.Messages[0].Text.starts_with("demo.psm is not a ORVEL 4.01 PSM file\ndemo.psm, line "));
    EXPECT_TRUE(The_User.Messages[0].Text.ends_with(": The file ends behind this line."));
    EXPECT_EQ(Read_Whole(to), "before");
}

TEST_F(Documents, Showing_A_Pesticide_File_Names_The_Fields_With_The_Session_S_Indices)
{
    const auto text =
        Show_Document(*The_Session, File("demo.psm", With(Example_File(), "Demo compound", "Demo comp\xF6und")))
            .value();

    EXPECT_NE(text.find("\"PSM_Title\": \"Demo comp\xC3\xB6und\""), std::string::npos);
    EXPECT_NE(text.find("\"Substance_Name\": [\"\", \"Alpha\", \"Beta\", \"Metabolite B1\""), std::string::npos);
    EXPECT_NE(text.find("\"Met_Present\": [false, true, true, false"), std::string::npos);
    EXPECT_NE(text.find("\"App_Location\": [\"\", \"Hamburg (H)\""), std::string::npos);
    EXPECT_NE(text.find("\"Koc\": [0, 120.5, 0.7"), std::string::npos);
    EXPECT_NE(text.find("\"Deg_Rate\": 0.0231049"), std::string::npos);
    EXPECT_NE(text.find("\"App_Frpex\": 90"), std::string::npos);
    EXPECT_EQ(text.find("Relative"), std::string::npos);
}

TEST_F(Documents, Showing_Relative_Applications_Gives_Their_Table)
{
    const auto lines = With(Example_Applications, " 2    0    1 ", " 2    0    9 ");

    const auto text =
        Show_Document(*The_Session, File("demo.psm", With(Example_File(), Example_Applications, lines))).value();

    EXPECT_NE(text.find("\"Relative\": [null,\n    {\n      \"Abs9_Day\": 5,"), std::string::npos);
    EXPECT_NE(text.find("\"Abs9_Month\": 11,"), std::string::npos);
}

TEST_F(Documents, Showing_A_Scenario_And_A_Climate_File_Gives_Their_Rows)
{
    const auto scenario = Show_Document(*The_Session, File("demo.sze", Scenario_File())).value();
    EXPECT_NE(scenario.find("\"SZE_Title\": \" Demo soil \""), std::string::npos);
    EXPECT_NE(scenario.find("\"SZE_Rot_Kc_Mid\": 1.05"), std::string::npos);
    EXPECT_NE(scenario.find("\"SZE_Til_Day\": 11"), std::string::npos);
    EXPECT_NE(scenario.find("\"SZE_Hor_Sand\": 68.3"), std::string::npos);
    EXPECT_NE(scenario.find("\"SZE_Freq_Water\": \"DAY\""), std::string::npos);

    const auto climate = Show_Document(*The_Session, File("demo.cli", "T\r\n 0201811.2550000 \r\n")).value();
    EXPECT_NE(climate.find("\"Cli_Rows\": 1"), std::string::npos);
    EXPECT_NE(climate.find("\"Cli_Rain\": 1.255"), std::string::npos); // as in the file, not as in the grid
}

TEST_F(Documents, Showing_A_Bad_File_Tells_It)
{
    EXPECT_EQ(Show_Document(*The_Session, File("demo.sze", "x")), std::nullopt);
    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Readin check", "demo.sze is not a ORVEL 4.01 PSM file\n"
                                                   "demo.sze, line 1: The file ends behind this line."})});
}

} // namespace orvel
