// Plans, as a user of the command line runs them: with the shipped programs and the real engine.
#include "plan_fixture.h"
#include "records/zip_file.h"

namespace orvel {

TEST_F(Orvelctl_Plan, A_Plan_Is_Run_With_Its_Replaced_Fields_And_Gives_A_Line_A_Run)
{
    Put("plan.csv", "\xEF\xBB\xBFid;mode;pesticide;crop;location;psm.Koc[1];#note\r\n"
                    "low;focus;demo_A.psm;Winter cereals;Hamburg (H);60;one, two\r\n"
                    "high;focus;demo_A.psm;Winter cereals;Hamburg (H);120;\xC3\xBC\r\n");

    const auto run = Do("plan run plan.csv --to runs --wait");
    ASSERT_EQ(run.Code, 0) << run.Told;
    EXPECT_TRUE(run.Told.ends_with("2 of 2 runs are complete.\n")) << run.Told;

    const auto lines = Lines_Of(Results_Of("runs"));
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], "id,psm.Koc[1],#note,substance,percentile,unit,years,flux,percolate,verdict,seconds");
    EXPECT_TRUE(lines[1].starts_with("low,60,\"one, two\",Demo substance A,")) << lines[1];
    EXPECT_TRUE(lines[2].starts_with("high,120,\xC3\xBC,Demo substance A,")) << lines[2];
    EXPECT_TRUE(lines[2].ends_with(",complete,")) << lines[2];
    EXPECT_EQ(Cell(lines[2], 6), "\xC2\xB5g/L");
    EXPECT_EQ(Cell(lines[2], 7), "26");
    // What sorbs less leaches more; the first line has a comma more in its label.
    EXPECT_GT(std::stod(Cell(lines[1], 6)), 2 * std::stod(Cell(lines[2], 5)));
    EXPECT_EQ(Do("plan status runs").Printed, "2 runs, 2 complete\n");
    EXPECT_EQ(Do("plan status runs --json").Printed,
              "{\n  \"runs\": 2,\n  \"complete\": 2,\n  \"incomplete\": 0,\n  \"failed\": 0,\n  \"stopped\": 0,\n"
              "  \"running\": 0,\n  \"scheduled\": 0,\n  \"at_work\": false,\n  \"runs_a_second\": null,\n"
              "  \"seconds_left\": null\n}\n");
}

TEST_F(Orvelctl_Plan, A_Plan_Gives_The_Figure_That_The_Same_Run_Gives_By_Itself)
{
    Put("plan.csv", "id,mode,pesticide,crop,location\n" + Good + "\n");
    ASSERT_EQ(Do("plan run plan.csv --to runs --wait --keep all").Code, 0);
    const fs::path run = Place / "runs" / "runs" / "0000" / "0000001";
    const auto line = Lines_Of(Results_Of("runs")).back();

    const auto tables = Do("tables '" + run.string() + "'");

    EXPECT_EQ(tables.Code, 0) << tables.Told;
    EXPECT_NE(tables.Printed.find(Cell(line, 3)), std::string::npos) << line << "\n" << tables.Printed;
    EXPECT_EQ(Do("verify '" + run.string() + "'").Code, 0);
}

TEST_F(Orvelctl_Plan, What_Is_Kept_Of_A_Run_Is_What_Was_Asked_For)
{
    Put_Plan(1);
    const fs::path run = fs::path("runs") / "0000" / "0000001";

    ASSERT_EQ(Do("plan run plan.csv --to all --keep all --wait").Code, 0);
    EXPECT_TRUE(fs::exists(Place / "all" / run / "chem.orv"));
    EXPECT_NE(Do("show " + (Place / "all" / run / "demo_A.psm").string()).Printed.find("\"Koc\": [0, 21, "),
              std::string::npos);

    ASSERT_EQ(Do("plan run plan.csv --to tables --wait").Code, 0);
    EXPECT_EQ(Names_In(Place / "tables" / run),
              (std::vector<std::string>{"period.orv", "result.csv", "run.json", "year.orv"}));
    std::uintmax_t bytes = 0;
    for (const auto& name : Names_In(Place / "tables" / run))
        bytes += fs::file_size(Place / "tables" / run / name);
    EXPECT_LE(bytes, 20000U);

    // Less can be kept later.
    ASSERT_EQ(Do("plan run plan.csv --to all --keep records --wait").Code, 0);
    EXPECT_EQ(Names_In(Place / "all" / run), (std::vector<std::string>{"result.csv", "run.json"}));
    EXPECT_EQ(Results_Of("all"), Results_Of("tables"));
}

TEST_F(Orvelctl_Plan, Files_Are_Run_As_Seen_From_The_Plan_With_A_Climate_A_Year)
{
    fs::create_directory(Place / "soils");
    for (const auto& [from, to] : {std::pair("demo_A.psm", "a.psm"),
                                   {"focus/H_wcerea.sze", "soils/one.sze"},
                                   {"focus/H_01.cli", "first.cli"},
                                   {"focus/H_02.cli", "second.cli"}})
        fs::copy_file(fs::path(Installation()) / from, Place / to);
    Put("plan.csv", "id\tpesticide\tscenario\tclimate\tyears\tsze.Horizons[0].SZE_Hor_OC\r\n"
                    "1\ta.psm\tsoils/one.sze\tfirst.cli|second.cli\t7\t1.5\r\n"
                    "2\ta.psm\tsoils/one.sze\t" +
                        Installation() + "/focus/H_03.cli\t7\t2.5\r\n");

    const auto run = Do("plan run plan.csv --to runs --keep all --wait");

    ASSERT_EQ(run.Code, 0) << run.Told;
    const auto control = Read_Whole(Place / "runs" / "runs" / "0000" / "0000001" / "orvel.inp");
    EXPECT_TRUE(control.starts_with("007 01 01 31 12\r\none.sze\r\n..\\..\\..\\inputs\\files\\a.psm\r\n"
                                    "..\\..\\..\\inputs\\files\\first.cli\r\n"
                                    "..\\..\\..\\inputs\\files\\second.cli\r\n"
                                    "..\\..\\..\\inputs\\files\\second.cli\r\n"))
        << control;
    EXPECT_NE(Do("show " + (Place / "runs" / "runs" / "0000" / "0000002" / "one.sze").string())
                  .Printed.find("\"SZE_Hor_OC\": 2.5"),
              std::string::npos);
    EXPECT_EQ(Lines_Of(Results_Of("runs")).size(), 3U);
}

TEST_F(Orvelctl_Plan, Every_Wrong_Row_Is_Told_With_Line_And_Column_Before_Anything_Runs)
{
    Put("plan.csv", "id,mode,pesticide,crop,location,psm.Koc[1]\n" + Good + ",60\n" + Good + ",60\n" +
                        "c,focus,none.psm,Maize,Hamburg (H),60\nd,focus,demo_A.psm,Winter cereals,Hamburg (H),x\n");

    const auto told = Do("plan run plan.csv --to runs --wait");

    EXPECT_EQ(told.Code, 1);
    EXPECT_EQ(told.Told, "Plan: Line 3, column 1: The id 'a' is there twice.\n"
                         "Plan: Line 4, column 3: There is no file none.psm in " +
                             Installation() + ".\nPlan: Line 5, column 6: psm.Koc[1]: 'x' is not a number.\n");
    EXPECT_FALSE(fs::exists(Place / "runs"));
}

TEST_F(Orvelctl_Plan, Each_Bad_Input_Has_Its_Sentence)
{
    EXPECT_EQ(
        Told_Of(Good + ",1", ",colour"),
        "Plan: Line 1, column 6: There is no column 'colour': a label begins with #, a field to replace with psm. "
        "or sze.\n");
    EXPECT_EQ(Told_Of(Good + ",1", ",psm.Coc[1]"), "Plan: Line 1, column 6: There is no field Coc[1].\n");
    EXPECT_EQ(Told_Of(Good + ",1", ",psm.Horizons[77].Hor_Kd[1]"),
              "Plan: Line 2, column 6: psm.Horizons[77].Hor_Kd[1]: This document has no Horizons[77].Hor_Kd[1].\n");
    EXPECT_EQ(Told_Of(Good + ",\"0,5\"", ",psm.Koc[1]"),
              "Plan: Line 2, column 6: psm.Koc[1]: '0,5' has a decimal comma: write a decimal point.\n");
    EXPECT_EQ(Told_Of(Good + ",", ",psm.Koc[1]"), "Plan: Line 2, column 6: The cell of 'psm.Koc[1]' is empty.\n");
    EXPECT_EQ(Told_Of(Good + ",70000", ",psm.Deg_Depth_Mode[1]"),
              "Plan: Line 2, column 6: psm.Deg_Depth_Mode[1]: '70000' is not a whole number of this field.\n");
    EXPECT_EQ(Told_Of("a,fokus,demo_A.psm,Winter cereals,Hamburg (H)"),
              "Plan: Line 2, column 2: There is no mode 'fokus': focus, efsa or efsa_t4.\n");
    EXPECT_EQ(Told_Of("a,focus,demo_A.psm,Corn,Hamburg (H)"), "Plan: Line 2, column 4: There is no crop 'Corn'.\n");
    EXPECT_EQ(Told_Of("a,focus,demo_A.psm,Winter cereals,Thiva"),
              "Plan: Line 2, column 5: The crop 'Winter cereals' has no location 'Thiva' in focus. It has 'Thiva (T), "
              "no irrigation'.\n");
    EXPECT_EQ(Told_Of("a,focus,demo_A.psm"), "Plan: Line 2, column 4: The row ends before the column 'crop'.\n");
    EXPECT_EQ(Told_Of(""), "Plan: The plan has no rows.\n");
    EXPECT_EQ(Do("plan run none.csv --to wrong --wait").Told,
              "Plan: The file none.csv cannot be read: No such file or directory.\n");
    EXPECT_EQ(Do("plan run wrong.csv --to wrong --part 3/2 --wait").Code, 2);
    EXPECT_EQ(Do("plan status .").Told, "File check: The directory . holds no plan.\n");
}

TEST_F(Orvelctl_Plan, Another_Plan_And_Anything_Else_In_The_Directory_Are_Left_Alone)
{
    Put_Plan(1);
    ASSERT_EQ(Do("plan run plan.csv --to runs --wait").Code, 0);
    const std::string before = Results_Of("runs");
    Put_Plan(2);
    fs::create_directory(Place / "mine");
    Put("mine/letter.txt", "dear");

    EXPECT_EQ(Do("plan run plan.csv --to runs --wait").Told,
              "Plan: The directory " + (Place / "runs").string() + " holds the runs of another plan.\n");
    EXPECT_EQ(Do("plan run plan.csv --to mine --wait").Told,
              "Plan: The directory " + (Place / "mine").string() +
                  " is not empty and holds no plan: it has letter.txt.\n");
    EXPECT_EQ(Results_Of("runs"), before);
    EXPECT_EQ(Names_In(Place / "mine"), std::vector<std::string>{"letter.txt"});
}

TEST_F(Orvelctl_Plan, Jobs_Parts_And_What_Is_Kept_Change_No_Byte_Of_The_Results)
{
    Put_Plan(5);
    ASSERT_EQ(Do("plan run plan.csv --to one --jobs 1 --wait").Code, 0);
    ASSERT_EQ(Do("plan run plan.csv --to three --jobs 3 --keep records --wait").Code, 0);
    ASSERT_EQ(Do("plan run plan.csv --to parts --part 2/2 --wait").Code, 0);
    EXPECT_EQ(Do("plan status parts").Printed, "5 runs, 2 complete, 3 scheduled\n");
    ASSERT_EQ(Do("plan run plan.csv --to parts --part 1/2 --wait").Code, 0);

    const std::string results = Results_Of("one");
    EXPECT_EQ(Lines_Of(results).size(), 6U);
    EXPECT_EQ(Results_Of("three"), results);
    EXPECT_EQ(Results_Of("parts"), results);
    ASSERT_EQ(Do("plan results parts --to results.csv").Code, 0);
    EXPECT_EQ(Read_Whole(Place / "results.csv"), results);
    EXPECT_EQ(Do("plan results parts --to results.txt").Told,
              "File check: The table of results is written as .csv or .xlsx.\n");
}

// The soil modes have the figure that the overview shows of the same run; the unit tells it from a percentile.
TEST_F(Orvelctl_Plan, A_Run_Of_A_Soil_Mode_Has_The_Highest_Concentration_In_Soil)
{
    App = (Place / "own").string();
    ASSERT_EQ(std::system((std::string(ORVELCTL) + " init " + App).c_str()), 0);
    ASSERT_EQ(Do("mark --mode efsa --pesticide demo_S.psm --crop 'Winter cereals' --location 'Total content - North "
                 "(T_N)'")
                  .Code,
              0);
    ASSERT_EQ(Do("start --mode efsa --wait").Code, 0);
    const std::string overview = Do("overview --mode efsa --json").Printed;
    Put("plan.csv", "id,mode,pesticide,crop,location,#note\n"
                    "a,efsa,demo_S.psm,Winter cereals,Total content - North (T_N),007\n"
                    "b,focus,demo_A.psm,Winter cereals,Hamburg (H),7\n");

    ASSERT_EQ(Do("plan run plan.csv --to runs --wait").Code, 0);

    const auto lines = Lines_Of(Results_Of("runs"));
    ASSERT_EQ(lines.size(), 3U);
    const std::string figure = Cell(lines[1], 4);
    EXPECT_NE(overview.find("\"value\": " + figure + ",\n    \"unit\": \"mg/kg\""), std::string::npos)
        << figure << " " << overview;
    EXPECT_TRUE(lines[1].starts_with("a,007,Demo substance D," + figure + ",mg/kg,26,,,complete,")) << lines[1];
    EXPECT_EQ(Cell(lines[2], 5), "\xC2\xB5g/L");
    const auto kept = Names_In(Place / "runs/runs/0000/0000001");
    EXPECT_EQ(kept, (std::vector<std::string>{"PECsoil_1.orv", "period.orv", "result.csv", "run.json", "year.orv"}));

    // As a workbook: what is a number stays one, what only looks like one does not become it.
    ASSERT_EQ(Do("plan results runs --to results.xlsx").Code, 0);
    Zip_Reader book(Place / "results.xlsx");
    std::string sheet;
    for (std::size_t entry = 0; entry < book.Entries().size(); ++entry) {
        if (book.Entries()[entry].Name == "xl/worksheets/sheet1.xml")
            book.Read(entry, [&](std::string_view bytes) { sheet += bytes; });
    }
    EXPECT_NE(sheet.find("<v>" + figure + "</v>"), std::string::npos);
    EXPECT_NE(sheet.find("<v>" + Cell(lines[2], 4) + "</v>"), std::string::npos);
    EXPECT_NE(sheet.find("<t>007</t>"), std::string::npos);
    EXPECT_NE(sheet.find("<v>7</v>"), std::string::npos);
    EXPECT_NE(sheet.find("<t>percolate</t>"), std::string::npos);
}

TEST_F(Orvelctl_Plan, A_Sweep_Is_A_Plan_Of_Every_Combination)
{
    const std::string run = " --mode focus --pesticide demo_A.psm --crop 'Winter cereals' --location 'Hamburg (H)'";
    const auto sweep = Do("plan sweep" + run + " --shift -7:7:7 --factor 'psm.Koc[1]=0.5,2' --to sweep.csv");
    ASSERT_EQ(sweep.Code, 0) << sweep.Told;

    const auto lines = Lines_Of(Read_Whole(Place / "sweep.csv"));
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_TRUE(lines[0].starts_with("id,mode,pesticide,crop,location,#shift,psm.Relative[1].Abs9_Day,")) << lines[0];
    EXPECT_TRUE(lines[0].ends_with(",#factor psm.Koc[1],psm.Koc[1]")) << lines[0];
    // Sorption 103, one day before the emergence.
    EXPECT_TRUE(lines[1].starts_with("1,focus,demo_A.psm,Winter cereals,Hamburg (H),-7,-8,-8,")) << lines[1];
    EXPECT_TRUE(lines[1].ends_with(",0.5,51.5")) << lines[1];
    EXPECT_TRUE(lines[2].ends_with(",2,206")) << lines[2];
    EXPECT_TRUE(lines[6].starts_with("6,focus,demo_A.psm,Winter cereals,Hamburg (H),7,6,6,")) << lines[6];

    EXPECT_EQ(Do("plan sweep" + run + " --shift 7:-7:7").Told,
              "Plan: '7:-7:7' is no range of shifts: FROM:TO:STEP in days, as -14:14:7.\n");
    EXPECT_EQ(Do("plan sweep" + run + " --factor 'psm.Coc[1]=1'").Told, "Plan: There is no field Coc[1].\n");
    EXPECT_EQ(Do("plan sweep" + run + " --factor 'psm.Koc[1]=1,'").Told, "Plan: '' is no factor.\n");
    EXPECT_EQ(Do("plan run sweep.csv --to runs --wait").Code, 0);
}

} // namespace orvel
