#include "core/files.h"
#include "files/climate_file.h"
#include "parsed.h"
#include "pesticide_example.h"
#include "recording_user.h"
#include "scenario_example.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

class Document_Files : public testing::Test {
protected:
    Document_Files() { The_Session->Ask = std::ref(The_User); }

    std::filesystem::path File(const std::string& name, std::string_view bytes)
    {
        Write_Whole(Directory / name, bytes);
        The_Session->Program.PSM_File = name;
        return Directory / name;
    }

    Temporary_Directory Directory;
    Recording_User The_User;
    std::unique_ptr<Session> The_Session = std::make_unique<Session>();
};

Message Not_Demo(const std::string& reason)
{
    return {"Readin check", "demo.psm is not a ORVEL 4.01 PSM file\n" + reason};
}

std::string Ends_Behind_Its_Last_Line(std::string_view bytes)
{
    return "demo.psm, line " + std::to_string(Split_Lines(bytes).size()) + ": The file ends behind this line.";
}

const Message Protected{
    "Saving Input File",
    "All FOCUS-Scenario files are read protected!     Please select a new directory for saving your changes."};

} // namespace

TEST_F(Document_Files, A_Pesticide_File_Is_Read_And_Written)
{
    const auto file = File("demo.psm", Example_File());

    EXPECT_TRUE(Read_PSM(*The_Session, file));
    EXPECT_TRUE(The_Session->Program.PSM_Read_OK);
    EXPECT_TRUE(Write_PSM(*The_Session, Directory / "copy.psm"));
    EXPECT_EQ(Read_Whole(Directory / "copy.psm"), Example_File());
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Document_Files, A_Climate_File_That_Was_Cut_Is_Read_And_Told)
{
    Climate_Table year{"Demo", {}};
    for (const auto& [day, month] : {std::pair("01", "01"), std::pair("02", "01"), std::pair("31", "12")})
        year.Rows.push_back({.Cli_Day = day, .Cli_Month = month, .Cli_Year = "81", .Cli_Rain = 1});
    const std::string whole = Format_CLI(year);
    const auto told = [&](const std::string& bytes) {
        The_User.Messages.clear();
        EXPECT_TRUE(Read_CLI(*The_Session, File("demo.cli", bytes)));
        return The_User.Messages.empty() ? "" : The_User.Messages.back().Text;
    };

    EXPECT_EQ(told(whole), "");
    EXPECT_EQ(told(whole.substr(0, whole.size() - 2)), ""); // without the empty line at its end
    EXPECT_EQ(told(whole.substr(0, whole.size() - 20)),
              "demo.cli: The last line is shorter than the others: the file seems to have been cut.");
    EXPECT_EQ(The_Session->Climate.Rows.size(), 2U); // no day with zeros for what was lost
    EXPECT_EQ(told(whole.substr(0, whole.find(" 311281"))),
              "demo.cli: The file begins on 1 January and ends on 02.01.: it seems to have been cut.");
    EXPECT_EQ(told("Demo\r\n"), "");
    EXPECT_EQ(told("Demo\r\n 150681.2500000\r\n 160681.2500000\r\n"), ""); // some days of a summer
}

TEST_F(Document_Files, A_Scenario_File_Is_Read_Over_A_Reset_Document_And_Written)
{
    const auto file = File("demo.sze", Scenario_File());
    The_Session->Scenario.SZE_Kc[1][5] = 7;

    EXPECT_TRUE(Read_SZE(*The_Session, file));
    EXPECT_TRUE(The_Session->Program.PSM_Read_OK);
    EXPECT_EQ(The_Session->Scenario.SZE_Kc[1][5], 1);
    EXPECT_TRUE(Write_SZE(*The_Session, Directory / "copy.sze"));
    EXPECT_EQ(Read_Whole(Directory / "copy.sze").size(), Scenario_File().size());
}

TEST_F(Document_Files, A_Climate_File_Is_Read_And_Written)
{
    const auto file = File("demo.cli", "T\r\n 0101811.5\r\n");

    EXPECT_TRUE(Read_CLI(*The_Session, file));
    EXPECT_EQ(The_Session->Climate.Rows.at(0).Cli_Rain, 1.5);
    EXPECT_TRUE(Write_CLI(*The_Session, file));
    EXPECT_EQ(Parse_CLI(Read_Whole(file)).Rows.at(0).Cli_Rain, 1.5);
}

TEST_F(Document_Files, A_Bad_Pesticide_File_Gives_The_Box_And_Nothing_Else)
{
    std::string binary(5000, '\0');
    for (std::size_t i = 0; i < binary.size(); ++i)
        binary[i] = static_cast<char>(i * 7);
    // Of empty lines the reader takes 37 before the one that names a metabolite.
    const std::string line_breaks(1 << 20, '\n'), cut = Example_File().substr(0, 1000);
    const std::pair<std::string, std::string> cases[] = {
        {"", "demo.psm: The file is empty."},
        {"\n", "demo.psm, line 1: The file ends behind this line."},
        {cut, Ends_Behind_Its_Last_Line(cut)},
        {binary, Ends_Behind_Its_Last_Line(binary)},
        {line_breaks, "demo.psm, line 38: There is no such metabolite."}};
    for (const auto& [bytes, reason] : cases) {
        The_User.Messages.clear();
        const auto file = File("demo.psm", bytes);

        EXPECT_FALSE(Read_PSM(*The_Session, file));
        EXPECT_FALSE(The_Session->Program.PSM_Read_OK);
        EXPECT_EQ(The_User.Messages, std::vector{Not_Demo(reason)});
    }
}

TEST_F(Document_Files, A_Bad_Scenario_File_Gives_The_Same_Box_Word_For_Word)
{
    const std::string cut = Scenario_File().substr(0, 300);
    const std::pair<std::string, std::string> cases[] = {
        {"", "demo.psm: The file is empty."},
        {cut, Ends_Behind_Its_Last_Line(cut)},
        {std::string("\x00\xFF\n\x1A", 4), "demo.psm, line 2: The file ends behind this line."}};
    for (const auto& [bytes, reason] : cases) {
        The_User.Messages.clear();
        const auto file = File("demo.psm", bytes);

        EXPECT_FALSE(Read_SZE(*The_Session, file));
        EXPECT_FALSE(The_Session->Program.PSM_Read_OK);
        EXPECT_EQ(The_User.Messages, std::vector{Not_Demo(reason)});
    }
}

TEST_F(Document_Files, A_File_That_Is_Missing_Or_Too_Large_Gives_The_Box)
{
    The_Session->Program.PSM_File = "demo.psm";
    EXPECT_FALSE(Read_PSM(*The_Session, Directory / "demo.psm"));
    EXPECT_TRUE(The_User.Messages[0].Text.starts_with(Not_Demo("demo.psm: ").Text));
    EXPECT_TRUE(The_User.Messages[0].Text.ends_with("No such file or directory."));

    const auto file = File("demo.psm", "x");
    std::filesystem::resize_file(file, Largest_Document + 1);
    EXPECT_FALSE(Read_PSM(*The_Session, file));
    EXPECT_FALSE(Read_SZE(*The_Session, file));

    ASSERT_EQ(The_User.Messages.size(), 3U);
    const auto path = file.string();
    EXPECT_EQ(The_User.Messages[1], Not_Demo("demo.psm: The file " + path + " is too large."));
    EXPECT_EQ(The_User.Messages[2], The_User.Messages[1]);
}

TEST_F(Document_Files, A_Bad_Number_Is_Told_With_Its_Line_And_Column)
{
    // The application stands in line 11, behind the heads of two locations; its year begins in column 9.
    EXPECT_FALSE(Read_PSM(*The_Session, File("demo.psm", With(Example_File(), "05  11  01 ", "05  11  32768 "))));
    EXPECT_FALSE(Read_PSM(*The_Session, File("demo.psm", With(Example_File(), "METABOLITE A1", " METABOLITE A3"))));
    // Behind title, settings, erosion and its values: the number of crops.
    EXPECT_FALSE(Read_SZE(*The_Session, File("demo.psm", With(Scenario_File(), " 2 \r\n 3 ", " -1 \r\n 3 "))));

    ASSERT_EQ(The_User.Messages.size(), 3U);
    EXPECT_EQ(The_User.Messages[0],
              Not_Demo("demo.psm, line 11, column 9: A number is outside the range of -32768 to 32767."));
    EXPECT_TRUE(The_User.Messages[1].Text.ends_with(", column 2: There is no such metabolite."));
    EXPECT_EQ(The_User.Messages[2],
              Not_Demo("demo.psm, line 5, column 2: The number of crop rows is not between 0 and 32767."));
}

TEST_F(Document_Files, A_Failed_Read_Leaves_What_Was_Read_So_Far)
{
    EXPECT_FALSE(Read_PSM(*The_Session, File("demo.psm", Example_File().substr(0, 1000))));
    EXPECT_EQ(The_Session->Pesticide.PSM_Title, "Demo compound");

    EXPECT_FALSE(Read_SZE(*The_Session, File("demo.sze", Scenario_File().substr(0, 300))));
    EXPECT_EQ(The_Session->Scenario.SZE_Title, " Demo soil ");
}

TEST_F(Document_Files, A_Climate_File_Beyond_Its_Bound_Is_Refused_And_The_Table_Stays)
{
    std::string bytes = "T\r\n";
    for (int i = 0; i <= Most_Climate_Rows; ++i)
        bytes += " 010181\r\n";
    const auto file = File("long.cli", bytes);
    The_Session->Climate.Cli_Title = "before";

    EXPECT_FALSE(Read_CLI(*The_Session, file));

    EXPECT_EQ(The_User.Messages,
              std::vector{(Message{"Readin check", "long.cli, line 25002: The file has more than 25000 days."})});
    EXPECT_EQ(The_Session->Climate.Cli_Title, "before");
}

TEST_F(Document_Files, A_Read_Protected_Target_Is_Told_And_Stays)
{
    for (const auto write : {Write_PSM, Write_SZE, Write_CLI}) {
        The_User.Messages.clear();
        const auto file = File("target", "before");
        Set_Read_Only(file, true);
        Reset_SZE(The_Session->Scenario);

        EXPECT_FALSE(write(*The_Session, file));
        EXPECT_EQ(The_User.Messages, std::vector{Protected});
        EXPECT_EQ(Read_Whole(file), "before");
        Set_Read_Only(file, false);
    }
}

TEST_F(Document_Files, Any_Other_Failure_To_Write_Tells_Its_Reason)
{
    EXPECT_FALSE(Write_CLI(*The_Session, Directory / "missing" / "demo.cli"));

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Title, "Saving Input File");
    EXPECT_NE(The_User.Messages[0].Text.find("No such file"), std::string::npos);
}

} // namespace orvel
