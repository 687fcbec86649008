#include "report/summary_report.h"

#include "core/error.h"
#include "tables/leachate_run.h"
#include "tables/leachate_text.h"

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
    }

    Summary_Request Request() const
    {
        return Request_Summary(The_Session, Mode_Of(Mode_Kind::Focus), "test", "Winter cereals");
    }

    Temporary_Directory Installation;
    Session The_Session;
};

const std::string Metre = "1 m soil depth", Bottom = "the bottom of the simulated soil core";

// A table of period.orv, with nothing in it but its percentile row.
std::string Table(const std::string& depth, const std::string& positions, const std::string& conc)
{
    return " \r\n \r\n\tResults for P in the percolate at " + depth +
           "\r\n \r\n\t     Period \tPesticide Flux\r\n\t80 Perc.(" + positions + ")\t45.0000     \t200.000     \t" +
           conc + "\r\n";
}

Leachate_Tables Tables_Of(const std::string& tables)
{
    Leachate_Tables read;
    read.Period = Parse_Leachate("1\r\n2\r\n3\r\n4\r\n" + tables).Set;
    return read;
}

} // namespace

TEST_F(Summary_Report, The_Text_Is_Laid_Out_To_The_Byte)
{
    auto request = Request();
    request.Date = "2024-05-31 14:05";
    const auto report = Build_Summary(request);
    ASSERT_EQ(report.Failure, "");

    const std::string rule(82, '-');
    const std::string heads = "\r\n" + rule +
                              "\r\n Location        \tSelected\tFlux\t    Percolate\tConc.\r\n"
                              "                 \tPeriod  \t(g/ha)\t       (L/m\xB2)\t(\xB5g/L)  \r\n" +
                              rule + "\r\n";
    EXPECT_EQ(Summary_Text(report), "FOCUS Summary Output File\r\n\r\n"
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
    Build_Summary(request);

    for (const auto& location : request.Locations)
        EXPECT_TRUE(fs::exists(location.Directory / "period.orv")) << location.Text;
}

TEST_F(Summary_Report, Tables_That_Cannot_Be_Stored_Are_Summed_Up_All_The_Same)
{
    const auto request = Request();
    for (const auto& location : request.Locations)
        fs::create_directory(location.Directory / "year.orv"); // in the way of the file
    const auto report = Build_Summary(request);

    EXPECT_EQ(report.Failure, "");
    EXPECT_EQ(report.Notes.size(), request.Locations.size());
    ASSERT_EQ(report.Substances.size(), 2U);
    EXPECT_EQ(report.Substances[0].Location_Max, 45);
}

TEST_F(Summary_Report, The_Figures_And_The_Highest_Concentration_Are_Given_By_Substance)
{
    const auto report = Build_Summary(Request());

    ASSERT_EQ(report.Failure, "");
    ASSERT_EQ(report.Substances.size(), 2U);
    EXPECT_EQ(report.Location_Short, (std::vector<std::string>{"H", "O"}));
    EXPECT_EQ(report.Substances[0].Location_Max, 45);
    EXPECT_EQ(report.Substances[1].Location_Max, 22.5);
    const auto& row = report.Substances[0].Rows[1];
    EXPECT_EQ(row.Location, 1U);
    EXPECT_EQ(row.P80, (Leachate_Row{90, 200, 45}));
    EXPECT_EQ(row.A, 17);
    EXPECT_EQ(row.B, 16);
}

TEST_F(Summary_Report, A_Location_Without_Period_Table_Leaves_No_Summary)
{
    auto request = Request();
    fs::remove(request.Locations[1].Directory / "Wasser.orv");

    const auto summary = Build_Summary(request);

    EXPECT_TRUE(summary.Failure.starts_with("Problem with output files. Probably, one of the simulations failed!\n"))
        << summary.Failure;
    EXPECT_TRUE(summary.Substances.empty());
}

TEST_F(Summary_Report, Ten_Locations_Are_Taken_And_An_Eleventh_Is_Not)
{
    auto request = Request();
    request.Locations.resize(10, request.Locations[0]);
    EXPECT_EQ(Build_Summary(request).Failure, "");

    request.Locations.resize(11, request.Locations[0]);
    EXPECT_NE(Build_Summary(request).Failure, "");
}

TEST_F(Summary_Report, A_Location_Whose_Tables_Cannot_Be_Kept_Leaves_No_Summary)
{
    auto request = Request();
    fs::remove(request.Locations[1].Directory / "plot.orv");

    EXPECT_NE(Build_Summary(request).Failure, "");
}

TEST_F(Summary_Report, A_First_Location_Without_Echo_Leaves_No_Summary_Though_Its_Tables_Are_Kept)
{
    auto request = Request();
    Build_Summary(request);
    fs::remove(request.Locations[0].Directory / "echo.orv");

    EXPECT_NE(Build_Summary(request).Failure, "");
}

TEST_F(Summary_Report, The_User_May_Stop_It)
{
    int told = 0;

    const auto summary = Build_Summary(Request(), [&](const std::string&, double share) {
        EXPECT_LE(share, 0.5);
        return ++told < 5;
    });

    EXPECT_EQ(told, 5);
    EXPECT_EQ(summary.Failure, "The reading was stopped.");
}

TEST_F(Summary_Report, A_Location_Text_Without_Brackets_Has_An_Empty_Name_And_Only_Padding)
{
    auto request = Request();
    request.Locations.resize(1);
    request.Locations[0].Text = "Hamburg";

    const auto report = Build_Summary(request);

    ASSERT_EQ(report.Failure, "");
    EXPECT_EQ(report.Location_Short, std::vector<std::string>{""});
    EXPECT_EQ(Lines_With(Summary_Text(report), "(17/16)")[0],
              "          \t(17/16)\t45.0000     \t200.000     \t22.500");
}

TEST_F(Summary_Report, A_Name_Below_Seven_Characters_Is_Padded_Only_To_Ten_More)
{
    auto request = Request();
    request.Locations.resize(1);
    request.Locations[0].Text = "X (H) and more";

    EXPECT_EQ(Lines_With(Summary_Text(Build_Summary(request)), "(17/16)")[0],
              "X (H)          \t(17/16)\t45.0000     \t200.000     \t22.500");
}

TEST(Percentiles, Are_Those_At_1_M_Alone)
{
    Summary report;
    report.Substances.resize(3);

    Add_Percentiles(
        report, 0, "Hamburg (H)",
        Tables_Of(Table(Metre, "17/16", "22.500") + Table(Metre, "4/5", "1.250") + Table(Bottom, "1/2", "99.000")));

    EXPECT_EQ(report.Substances[0].Rows.size(), 1U);
    EXPECT_EQ(report.Substances[1].Rows.size(), 1U);
    EXPECT_TRUE(report.Substances[2].Rows.empty());
    EXPECT_EQ(report.Substances[0].Location_Max, 22.5);
}

TEST(Percentiles, Have_Their_Concentration_Behind_Positions_Of_One_Or_Two_Digits)
{
    for (const std::string positions : {"4/5", "9/10", "10/9", "17/16"}) {
        Summary report;
        report.Substances.resize(1);
        Add_Percentiles(report, 0, "Hamburg (H)", Tables_Of(Table(Metre, positions, "0.123")));

        EXPECT_EQ(report.Substances[0].Rows[0].P80.Conc, 0.123) << positions;
        EXPECT_EQ(report.Substances[0].Rows[0].Figures, "(" + positions + ")\t45.0000     \t200.000     \t0.123");
    }
}

TEST(Percentiles, Beyond_The_Substances_Are_Left_Out)
{
    Summary report;
    report.Substances.resize(1);

    Add_Percentiles(report, 0, "Hamburg (H)", Tables_Of(Table(Metre, "1/2", "1.000") + Table(Metre, "3/4", "2.000")));

    EXPECT_EQ(report.Substances[0].Rows.size(), 1U);
}

TEST(Percentiles, Of_A_Table_That_Is_Cut_Short_Are_Left_Out)
{
    Summary report;
    report.Substances.resize(1);
    const std::string whole = Table(Metre, "1/2", "1.000");

    Add_Percentiles(report, 0, "Hamburg (H)", Tables_Of(whole.substr(0, whole.find("\t80 Perc"))));

    EXPECT_TRUE(report.Substances[0].Rows.empty());
}

} // namespace orvel
