#include "report/summary_report.h"

#include "core/error.h"
#include "recording_user.h"
#include "tables/leachate_run.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// A run of 26 years with the fluxes 1, 2, 3 ... times a factor, so that the fourth and fifth highest are the periods 17
// and 16 with 23 and 22 times it.
void Write_Run(const fs::path& directory, int factor)
{
    Leachate_Run run({.Names = {"P", "M"}});
    auto fluxes = Rising(26);
    for (int& flux : fluxes)
        flux *= factor;
    run.Write_Water(26);
    run.Write_Chem(".orv", fluxes, fluxes);
    run.Write_Chem("_A1.orv", Rising(26), std::vector<int>(26, 0));
    fs::create_directories(directory);
    for (const auto& entry : fs::directory_iterator(run.Path()))
        fs::copy_file(entry.path(), directory / entry.path().filename());
}

class Summary_Report : public testing::Test {
protected:
    Summary_Report()
    {
        Write_Run(Installation / "Focus/test.run/Winter_-_cereals.run/Hamburg_-_(H).run", 1);
        Write_Run(Installation / "Focus/test.run/Winter_-_cereals.run/Porto_-_(O).run", 2);
        The_Session.Program.App_Path = Installation.Path();
        The_Session.Program.Aktuelle_ORVEL_Version = "ORVEL 4.01";
        The_Session.Ask = std::ref(The_User);
    }

    Summary_Request Request() const
    {
        return Request_Summary(The_Session, Mode_Of(Mode_Kind::Focus), "test", "Winter cereals");
    }

    Temporary_Directory Installation;
    Session The_Session;
    Recording_User The_User;
};

// A percentile row as it stands in period.orv.
std::string Percentile(const std::string& positions, const std::string& conc)
{
    return "\t80 Perc.(" + positions + ")\t45.0000     \t200.000     \t" + conc + "\r\n";
}

} // namespace

TEST_F(Summary_Report, The_Text_Is_Laid_Out_To_The_Byte)
{
    auto request = Request();
    request.Date = "2024-05-31 14:05";
    const auto report = Build_Summary(The_Session, request);
    ASSERT_TRUE(report);

    const std::string rule(82, '-');
    const std::string heads = "\r\n" + rule +
                              "\r\n Location        \tSelected\tFlux\t    Percolate\tConc.\r\n"
                              "                 \tPeriod  \t(g/ha)\t       (L/m\xB2)\t(\xB5g/L)  \r\n" +
                              rule + "\r\n";
    EXPECT_EQ(Summary_Text(*report), "FOCUS Summary Output File\r\n\r\n"
                                     "Model Version:          \tORVEL 4.01\r\n"
                                     "Date of this simulation:\t2024-05-31 14:05\r\n"
                                     "Pesticide input file:   \ttest\r\n"
                                     "Simulated crop:         \tWinter cereals\r\n\r\n\r\n"
                                     "Results for P" +
                                         heads +
                                         "Hamburg (H)      \t(17/16)\t45.0000     \t200.000     \t22.500\r\n"
                                         "Porto (O)        \t(17/16)\t90.0000     \t200.000     \t45.000\r\n\r\n\r\n"
                                         "Results for M" +
                                         heads +
                                         "Hamburg (H)      \t(17/16)\t45.0000     \t200.000     \t22.500\r\n"
                                         "Porto (O)        \t(17/16)\t45.0000     \t200.000     \t22.500\r\n\r\n\r\n");
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Summary_Report, The_Locations_Are_The_Decoded_Names_Of_The_Run_Directories)
{
    const auto request = Request();

    ASSERT_EQ(request.Locations.size(), 2U);
    EXPECT_EQ(request.Locations[0].Text, "Hamburg (H)");
    EXPECT_EQ(request.Locations[1].Text, "Porto (O)");
    EXPECT_EQ(request.Model_Version, "ORVEL 4.01");
    EXPECT_EQ(request.Date.size(), std::string("2024-05-31 14:05").size());
}

TEST_F(Summary_Report, A_Pesticide_Or_Crop_That_Was_Not_Run_Is_Told)
{
    EXPECT_THROW(Request_Summary(The_Session, Mode_Of(Mode_Kind::Focus), "other", "Winter cereals"), File_Error);
    EXPECT_THROW(Request_Summary(The_Session, Mode_Of(Mode_Kind::Focus), "test", "Maize"), File_Error);
    EXPECT_THROW(Request_Summary(The_Session, Mode_Of(Mode_Kind::Efsa), "test", "Winter cereals"), File_Error);
}

TEST_F(Summary_Report, The_Tables_Of_All_Locations_Are_Made_Sure_Of)
{
    const auto request = Request();
    Build_Summary(The_Session, request);

    for (const auto& location : request.Locations)
        EXPECT_TRUE(fs::exists(location.Directory / "period.orv")) << location.Text;
}

TEST_F(Summary_Report, The_Figures_And_The_Highest_Concentration_Are_Given_By_Substance)
{
    const auto report = Build_Summary(The_Session, Request());

    ASSERT_TRUE(report);
    ASSERT_EQ(report->Substances.size(), 2U);
    EXPECT_EQ(report->Location_Short, (std::vector<std::string>{"H", "O"}));
    EXPECT_EQ(report->Substances[0].Location_Max, 45);
    EXPECT_EQ(report->Substances[1].Location_Max, 22.5);
    const auto& row = report->Substances[0].Rows[1];
    EXPECT_EQ(row.Location, 1U);
    EXPECT_EQ(row.P80, (Leachate_Row{90, 200, 45}));
    EXPECT_EQ(row.A, 17);
    EXPECT_EQ(row.B, 16);
}

TEST_F(Summary_Report, A_Location_Without_Period_Table_Shows_The_Box_And_No_Text)
{
    auto request = Request();
    fs::remove(request.Locations[1].Directory / "Wasser.orv");

    EXPECT_FALSE(Build_Summary(The_Session, request));

    EXPECT_EQ(
        The_User.Messages,
        std::vector{(Message{"File check", "Problem with output files. Probably, one of the simulations failed!"})});
}

TEST_F(Summary_Report, Ten_Locations_Are_Taken_And_An_Eleventh_Is_Not)
{
    auto request = Request();
    request.Locations.resize(10, request.Locations[0]);
    EXPECT_TRUE(Build_Summary(The_Session, request));

    request.Locations.resize(11, request.Locations[0]);
    EXPECT_FALSE(Build_Summary(The_Session, request));
    EXPECT_EQ(The_User.Messages.size(), 1U);
}

TEST_F(Summary_Report, The_User_May_Stop_It_And_Is_Told_Nothing_More)
{
    int told = 0;

    EXPECT_FALSE(Build_Summary(The_Session, Request(), [&](const std::string&, double share) {
        EXPECT_LE(share, 0.5);
        return ++told < 5;
    }));

    EXPECT_EQ(told, 5);
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Summary_Report, A_Location_Text_Without_Brackets_Has_An_Empty_Name_And_Only_Padding)
{
    auto request = Request();
    request.Locations.resize(1);
    request.Locations[0].Text = "Hamburg";

    const auto report = Build_Summary(The_Session, request);

    ASSERT_TRUE(report);
    EXPECT_EQ(report->Location_Short, std::vector<std::string>{""});
    EXPECT_EQ(Lines_With(Summary_Text(*report), "(17/16)")[0],
              "          \t(17/16)\t45.0000     \t200.000     \t22.500");
}

TEST_F(Summary_Report, A_Name_Below_Seven_Characters_Is_Padded_Only_To_Ten_More)
{
    auto request = Request();
    request.Locations.resize(1);
    request.Locations[0].Text = "X (H) and more";

    EXPECT_EQ(Lines_With(Summary_Text(*Build_Summary(The_Session, request)), "(17/16)")[0],
              "X (H)          \t(17/16)\t45.0000     \t200.000     \t22.500");
}

TEST(Gather_Percentiles, Only_The_Part_At_1_M_Is_Read)
{
    Summary report;
    report.Substances.resize(3);

    Gather_Percentiles(report, 0, "Hamburg (H)",
                       Percentile("17/16", "22.500") + Percentile("4/5", "1.250") +
                           "\tResults for P in the percolate at the bottom of the simulated soil core\r\n" +
                           Percentile("1/2", "99.000"));

    EXPECT_EQ(report.Substances[0].Rows.size(), 1U);
    EXPECT_EQ(report.Substances[1].Rows.size(), 1U);
    EXPECT_TRUE(report.Substances[2].Rows.empty());
    EXPECT_EQ(report.Substances[0].Location_Max, 22.5);
}

TEST(Gather_Percentiles, The_Concentration_Is_Found_Behind_Positions_Of_One_Or_Two_Digits)
{
    for (const std::string positions : {"4/5", "9/10", "10/9", "17/16"}) {
        Summary report;
        report.Substances.resize(1);
        Gather_Percentiles(report, 0, "Hamburg (H)", Percentile(positions, "0.123"));

        EXPECT_EQ(report.Substances[0].Rows[0].P80.Conc, 0.123) << positions;
        EXPECT_EQ(report.Substances[0].Rows[0].Figures, "(" + positions + ")\t45.0000     \t200.000     \t0.123");
    }
}

TEST(Gather_Percentiles, More_Rows_Than_Substances_Are_Left_Out)
{
    Summary report;
    report.Substances.resize(1);

    Gather_Percentiles(report, 0, "Hamburg (H)", Percentile("1/2", "1.000") + Percentile("3/4", "2.000"));

    EXPECT_EQ(report.Substances[0].Rows.size(), 1U);
}

} // namespace orvel
