#include "report/report.h"

#include "core/error.h"
#include "core/sha256.h"
#include "core/text.h"
#include "files/document_notes.h"
#include "output/run_files.h"
#include "report/report_formats.h"
#include "report/report_sections.h"
#include "report_session.h"
#include "substance/pathway.h"

namespace orvel {

namespace fs = std::filesystem;

namespace {

const std::string Hamburg = "Hamburg_-_(H)", Kremsmuenster = "Kremsm\xC3\xBCnster_-_(K)";

bool Holds(const std::vector<std::string>& notes, const std::string& note)
{
    return std::find(notes.begin(), notes.end(), note) != notes.end();
}

} // namespace

TEST_F(Report_Session, A_Result_Holds_Percentile_And_Both_Years_That_It_Is_Made_Of)
{
    Add_Run("Maize", Hamburg, 1);
    Add_Run("Maize", Kremsmuenster, 2);

    const Report report = Gather();

    ASSERT_EQ(report.Crops.size(), 1U);
    const auto& crop = report.Crops[0];
    EXPECT_EQ(crop.Name, "Maize");
    ASSERT_EQ(crop.Tables.size(), 2U);
    EXPECT_EQ(crop.Tables[0].Substance, "P & <Q>");
    ASSERT_EQ(crop.Tables[0].Results.size(), 2U);
    const auto& first = crop.Tables[0].Results[0];
    EXPECT_EQ(first.P80, (Leachate_Row{45, 200, 22.5}));
    EXPECT_EQ(first.A, (Selected_Period{17, "23", 23}));
    EXPECT_EQ(first.B, (Selected_Period{16, "22", 22}));
    EXPECT_TRUE(first.Above_Limit);
    EXPECT_EQ(crop.Tables[0].Results[1].P80.Conc, 45);
    EXPECT_FALSE(crop.Tables[1].Results[0].Above_Limit); // nothing leached
    EXPECT_EQ(crop.Runs[0].Years, 26);
    EXPECT_EQ(crop.Runs[0].Titles, (std::vector<std::string>{"Engine", "Scenario", "Pesticide",
                                                             "Soil concentrations: total content (mg/kg)"}));
    EXPECT_EQ(crop.Tables[0].Diagram.Boxes.size(), 2U);
}

TEST_F(Report_Session, Findings_Of_The_Guidance_Are_Those_Of_The_Simulated_File_With_The_Answers_Of_Its_Notes)
{
    Add_Run("Maize", Hamburg, 1);
    Write_Whole(Installation / "guidance.json",
                R"({"schema": "orvel-guidance 1", "rules": [{"id": "OWN", "severity": "warning", "text": "Too light.",
                    "source": "book", "compare": "Molmass[1]", "least": 400}]})");
    Document_Notes notes;
    Set_Note(notes, "Koc[1]", {.Source = "study 4"});
    Set_Answer(notes, {.Rule = "OWN", .Field = "Molmass[1]", .Value = "0", .Text = "kept"});
    Write_Notes(Installation / "demo.psm", notes);

    const Report report = Gather();

    ASSERT_EQ(report.Guidance.size(), 1U);
    EXPECT_EQ(report.Guidance[0].Answer, "kept");
    EXPECT_EQ(report.Endpoints.at(0).Source, "Koc: study 4");
    EXPECT_TRUE(report.Notes.end() == std::ranges::find_if(report.Notes, [](const std::string& note) {
                    return note.starts_with("The guidance");
                }));
}

TEST_F(Report_Session, Notes_That_Cannot_Be_Read_Are_Told_And_Are_Not_None)
{
    Add_Run("Maize", Hamburg, 1);
    Write_Whole(Installation / "demo.notes.json", "{\n]");

    const Report report = Gather();

    const std::string told = "The guidance check could not be done. " + (Installation / "demo.notes.json").string() +
                             ", line 2, column 1: This is not JSON.";
    EXPECT_TRUE(Holds(report.Notes, told));
    EXPECT_NE(Report_Csv(report).find(told), std::string::npos);
    EXPECT_NE(Report_Html(report).find(told), std::string::npos);
    EXPECT_EQ(Report_Html(report).find("found nothing"), std::string::npos) << "nobody has looked";
    EXPECT_FALSE(report.Endpoints.empty());
}

TEST_F(Report_Session, The_Figures_Are_The_Same_Out_Of_The_Cache)
{
    Add_Run("Maize", Hamburg, 7);
    const auto first = Gather(), second = Gather();

    EXPECT_EQ(first.Crops[0].Tables[0].Results[0].P80, second.Crops[0].Tables[0].Results[0].P80);
    EXPECT_EQ(first.Crops[0].Tables[0].Results[0].A, second.Crops[0].Tables[0].Results[0].A);
}

TEST_F(Report_Session, Periods_Without_Percolate_Are_Told_With_Their_Number)
{
    const auto run = Add_Run("Maize", Hamburg, 1);
    Add_Run("Maize", Kremsmuenster, 1);
    std::string wasser;
    for (int year = 1; year <= 26; ++year)
        wasser += year == 7 || year == 8 ? Water_Block("0.00000", "0.00000") : Water_Block("10.00000", "5.00000");
    Write_File(run / "Wasser.orv", wasser + End_Of_Output());

    EXPECT_TRUE(Holds(Gather().Notes, "Periods without percolate, which count as 0 in the percentile: Hamburg (H) 2."));
}

TEST_F(Report_Session, A_Percentile_Of_Exactly_The_Limit_Keeps_It_And_The_Next_Printed_Figure_Does_Not)
{
    const auto run = Add_Run("Maize", Hamburg, 1);
    for (const auto& [leached, figure, above] :
         {std::tuple("1.0000E-04", 0.1, false), std::tuple("1.0100E-04", 0.101, true)}) { // kg/ha in 100 L/m2
        std::string chem;
        for (int year = 0; year < 26; ++year)
            chem += Chem_Block(leached, leached);
        Write_File(run / "chem.orv", chem + End_Of_Output());

        const auto result = Gather().Crops[0].Tables[0].Results[0];
        EXPECT_EQ(result.P80.Conc, figure);
        EXPECT_EQ(result.Above_Limit, above) << figure;
        fs::remove(run / "year.orv");
    }
}

TEST_F(Report_Session, The_Files_Are_Named_With_The_Digest_Of_Their_Bytes)
{
    const auto run = Add_Run("Maize", Hamburg, 1);

    const Report report = Gather();

    EXPECT_EQ(report.Engine_File,
              (Checked_File{"orvel401.exe", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"}));
    const auto& gathered = report.Crops[0].Runs[0];
    EXPECT_EQ(gathered.Pesticide, (Checked_File{"demo.psm", Sha256(Read_File(run / "demo.psm"))}));
    EXPECT_EQ(gathered.Scenario, (Checked_File{"H_test.sze", Sha256("scenario")}));
    EXPECT_EQ(gathered.Run_Control, (Checked_File{"orvel.inp", Sha256("control of " + Hamburg)}));
    EXPECT_EQ(report.Program, "ORVELSUITE " + std::string(Program_Version));
    EXPECT_EQ(report.Engine, "ORVEL 4.01");
    EXPECT_EQ(report.Acceptance, "not accepted here");
}

TEST_F(Report_Session, The_Uses_Are_Those_Of_The_File_That_Was_Simulated)
{
    Add_Run("Maize", Hamburg, 1);
    Write_Pesticide(Installation.Path(), 9);

    const Report report = Gather();

    EXPECT_EQ(report.Crops[0].Runs[0].Uses,
              (std::vector<Report_Use>{{"1 kg/ha", "1 November", "every year, 1 to 26", "soil surface"}}));
    EXPECT_TRUE(Holds(report.Notes,
                      "The pesticide file of the installation differs from the one that was simulated: Hamburg (H)."));
}

TEST_F(Report_Session, A_Failed_A_Missing_And_A_Scheduled_Simulation_Have_A_Problem_And_No_Figures)
{
    Add_Run("Maize", Hamburg, 1);
    Write_Whole(Add_Run("Maize", Kremsmuenster, 1) / "echo.orv",
                Echo_File({.Names = {"P & <Q>", "M"}, .Last = " *** ERROR 12 ***"}));
    fs::remove(Add_Run("Maize", "Porto_-_(O)", 1) / "echo.orv");
    fs::remove(Add_Run("Maize", "Thiva_-_(T)", 1) / "Wasser.orv");

    const Report report = Gather("Maize", {"H", "K", "O", "S", "T"});

    const auto& runs = report.Crops[0].Runs;
    ASSERT_EQ(runs.size(), 5U);
    EXPECT_EQ(runs[0].Problem, "");
    EXPECT_EQ(runs[1].Problem, "The simulation failed: the engine reports an error.");
    EXPECT_EQ(runs[2].Problem, "The simulation has not been run yet.");
    EXPECT_TRUE(runs[3].Problem.starts_with("The file "))
        << runs[3].Problem; // Wasser.orv, behind the locations that have a directory stands Sevilla
    EXPECT_EQ(runs[4].Location, "Sevilla (S)");
    EXPECT_EQ(runs[4].Problem, "The location was not simulated.");
    ASSERT_EQ(report.Crops[0].Tables[0].Results.size(), 1U);
    EXPECT_NE(Result_Of(report.Crops[0].Tables[0], 0), nullptr);
    for (const std::size_t run : {1U, 2U, 3U, 4U})
        EXPECT_EQ(Result_Of(report.Crops[0].Tables[0], run), nullptr);
    EXPECT_TRUE(Holds(report.Notes, "The simulation failed: the engine reports an error: Kremsm\xFCnster (K)."));
    EXPECT_TRUE(Holds(report.Notes, "The location was not simulated: Sevilla (S)."));
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Report_Session, A_Run_Of_Other_Substances_Than_The_First_Is_Not_Put_Under_Their_Names)
{
    Add_Run("Maize", Hamburg, 1);
    Add_Run("Maize", Kremsmuenster, 2, {"P & <Q>", "Other"});

    const Report report = Gather();

    EXPECT_EQ(report.Crops[0].Runs[1].Problem, "The simulation has other substances than that of the first location.");
    EXPECT_EQ(report.Crops[0].Tables[1].Results.size(), 1U);
    EXPECT_EQ(report.Crops[0].Tables[0].Diagram.Boxes.size(), 1U);
}

TEST_F(Report_Session, All_Crops_That_Were_Run_Are_Gathered_And_A_Choice_Of_Locations_Holds_For_Each)
{
    Add_Run("Maize", Hamburg, 1);
    Add_Run("Maize", Kremsmuenster, 1);
    Add_Run("Winter_-_cereals", Kremsmuenster, 3);

    const Report all = Gather(), chosen = Gather("all", {"K"});

    ASSERT_EQ(all.Crops.size(), 2U);
    EXPECT_EQ(all.Crops[0].Runs.size(), 2U);
    EXPECT_EQ(all.Crops[1].Name, "Winter cereals");
    EXPECT_EQ(all.Crops[1].Tables[0].Results[0].P80.Conc, 67.5);
    ASSERT_EQ(chosen.Crops[0].Runs.size(), 1U);
    EXPECT_EQ(chosen.Crops[0].Runs[0].Location, "Kremsm\xFCnster (K)");
    EXPECT_EQ(chosen.Crops[0].Tables[0].Diagram.X.Ticks[0].Label, "K");
}

TEST_F(Report_Session, A_Soil_Report_Names_Its_Protection_Goal_And_The_Zones_By_Their_Codes)
{
    for (const char* zone : {"Total_-_content_-_-_-_North_-_(T_N)", "Total_-_content_-_-_-_South_-_(T_S)"})
        for (const char* mode : {"EFSA", "EFSA_T4"})
            Add_Run("Winter_-_cereals", zone, 1, {"P", "M"}, mode);
    const auto report = [&](Mode_Kind kind) {
        return Gather_Report(
            The_Session, Request_Summaries(The_Session, Mode_Of(kind), "demo", "Winter cereals", Codes_In("t_n, P_C")),
            0);
    };

    const Report second = report(Mode_Kind::Efsa);

    EXPECT_EQ(second.Title, "Organisms in soil, Tier 2: summary report");
    EXPECT_EQ(report(Mode_Kind::Efsa_T4).Title, "Organisms in soil, Tier 4: summary report");
    ASSERT_EQ(second.Crops.size(), 1U);
    ASSERT_EQ(second.Crops[0].Runs.size(), 2U);
    EXPECT_EQ(second.Crops[0].Runs[0].Location, "Total content - North (T_N)");
    EXPECT_EQ(second.Crops[0].Runs[0].Problem, "");
    EXPECT_EQ(second.Crops[0].Runs[1].Location, "Porewater concentration - Central (P_C)");
    EXPECT_EQ(second.Crops[0].Runs[1].Problem, "The location was not simulated.");
    const std::string page = Report_Html(second);
    EXPECT_NE(page.find("<title>Organisms in soil, Tier 2: summary report"), std::string::npos);
    EXPECT_EQ(page.find("groundwater"), std::string::npos);
}

TEST_F(Report_Session, Locations_Of_The_Crop_That_Were_Not_Run_Are_Noted)
{
    Add_Run("Maize", Hamburg, 1);
    Write_Whole(Installation / "focus/H_maize.sze", "");
    Write_Whole(Installation / "focus/K_maize.sze", "");

    EXPECT_TRUE(Holds(Gather().Notes, "Further locations of the crop, not simulated: Kremsm\xFCnster (K)."));
}

TEST_F(Report_Session, An_Engine_That_Is_Newer_Than_A_Run_Or_Gone_Is_Noted)
{
    Add_Run("Maize", Hamburg, 1);
    EXPECT_TRUE(Gather().Notes.empty());

    fs::last_write_time(Installation / "orvel401.exe", fs::file_time_type::clock::now() + std::chrono::hours(1));
    EXPECT_TRUE(Gather().Notes[0].starts_with("The engine's file is newer than some of the simulations"));

    fs::remove(Installation / "orvel401.exe");
    EXPECT_TRUE(Gather().Notes[0].starts_with("The engine is not in the installation any more"));
}

TEST_F(Report_Session, Runs_Of_Data_That_Are_Marked_So_Are_Noted_As_Not_For_Regulatory_Use)
{
    const auto run = Add_Run("Maize", Hamburg, 1);
    Write_Whole(run / "plot.orv",
                Replace_All(Read_File(run / "plot.orv"), "Scenario", "Made up, NOT for regulatory use"));

    EXPECT_EQ(Gather().Notes, std::vector<std::string>{
                                  "Data of these simulations are marked \"not for regulatory use\": Hamburg (H)."});
}

TEST_F(Report_Session, The_User_May_Stop_The_Gathering)
{
    Add_Run("Maize", Hamburg, 1);

    EXPECT_THROW(Gather_Report(The_Session, Requests(), 0, [](const std::string&, double) { return false; }),
                 Reading_Stopped);
}

TEST_F(Report_Session, A_Pesticide_Without_Simulations_Is_Told)
{
    EXPECT_THROW(Requests(), File_Error);
}

TEST(Years_Of_A_Period, Periods_Count_From_The_End_Of_The_Warm_Up)
{
    EXPECT_EQ(Years_Of_Period(1, 0), "7");
    EXPECT_EQ(Years_Of_Period(20, 0), "26");
    EXPECT_EQ(Years_Of_Period(1, 1), "7 to 8");
    EXPECT_EQ(Years_Of_Period(20, 1), "45 to 46");
    EXPECT_EQ(Years_Of_Period(20, 2), "64 to 66");
}

TEST(Codes_In_A_List, Commas_Part_Them_And_Blanks_Do_Not_Count)
{
    EXPECT_EQ(Codes_In("C,H, T_N ,"), (std::vector<std::string>{"C", "H", "T_N"}));
    EXPECT_TRUE(Codes_In("").empty());
}

TEST_F(Report_Session, It_Begins_With_The_Table_Of_All_Locations)
{
    Add_Run("Maize", Hamburg, 1);
    Add_Run("Maize", Kremsmuenster, 2);

    const Report report = Gather();

    ASSERT_EQ(report.Overview.Rows.size(), 2U);
    EXPECT_EQ(Cell_Text(report.Overview, report.Overview.Rows[0], 0), "22.500 (unrecorded)");
    const auto sections = Sections_Of(report);
    EXPECT_EQ(sections.at(1).Heading, "Overview");
    EXPECT_EQ(sections[1].Grid.Lines[0].Cells, (std::vector<std::string>{"Maize", "P & <Q>", "22.500 (unrecorded)",
                                                                         "45.000 (unrecorded)", "45.000", "2 of 2"}));
    EXPECT_TRUE(sections[1].Grid.Lines[0].Marks[3].Bold);
    EXPECT_EQ(sections[1].Grid.Lines[1].Marks[3].Class, 0);
}

TEST_F(Report_Session, The_Picture_Has_The_Periods_As_Dots_With_The_Two_That_Make_The_Percentile)
{
    Add_Run("Maize", Hamburg, 1);

    const Chart diagram = Gather().Crops[0].Tables[0].Diagram;

    EXPECT_EQ(diagram.Dots.size(), 20U);
    std::vector<double> marked;
    for (const auto& dot : diagram.Dots) {
        if (dot.Marked)
            marked.push_back(dot.Y);
    }
    EXPECT_EQ(marked, (std::vector<double>{22, 23}));
}

TEST(Endpoints, Have_Their_Conditions_And_The_Shares_That_Form_A_Metabolite)
{
    const auto document = std::make_unique<Pesticide_Document>();
    Reset_PSM(*document);
    document->Substance_Name[1] = "A";
    document->Substance_Name[2] = "M";
    document->Koc[1] = 100.0;
    document->Fr_Exp[1] = 0.9;
    document->Henry_Flag = 1.0;
    document->Vap_Press = {1e-5, 4e-5};
    document->Solubility = {30, 60};
    document->Volat_Temp = {20, 30};
    auto& rows = document->Degradation[1];
    rows[1] = {.Deg_Rate = 0.03, .Deg_Temp = 20.0, .Deg_Q10 = 2.58, .Deg_Moist_Abs = 0.0, .Deg_Moist_Rel = 100.0};
    rows[5] = rows[1];
    rows[5].Deg_Rate = 0.01;
    Update_Pathway(*document);

    Document_Notes notes;
    Set_Note(notes, "Koc[1]", {.Source = "study 4"});
    Set_Note(notes, "Fr_Exp[1]", {.Source = "study 4"});
    Set_Note(notes, "Degradation[1][1].Deg_Rate", {.Source = "report 7"});
    Set_Note(notes, "Molmass[1]", {.Source = "no endpoint"});

    const auto endpoints = Endpoints_Of(*document, notes);

    ASSERT_EQ(endpoints.size(), 2U);
    EXPECT_EQ(endpoints[0].DT50, "17.3 d at 20 \xB0"
                                 "C, moisture 100 % of field capacity, Q10 2.58"); // ln 2 / 0.04
    EXPECT_EQ(endpoints[0].Koc, "100");
    EXPECT_EQ(endpoints[0].Exponent, "0.9");
    EXPECT_EQ(endpoints[0].Vapour_Pressure, "0.00001 Pa at 20 \xB0"
                                            "C");
    EXPECT_EQ(endpoints[0].Solubility, "30 mg/L at 20 \xB0"
                                       "C");
    EXPECT_EQ(endpoints[0].Source, "DT50: report 7; Koc, 1/n: study 4");
    EXPECT_EQ(endpoints[1].Source, "formation: report 7");
    EXPECT_EQ(endpoints[1].Substance, "M");
    EXPECT_EQ(endpoints[1].Formation, "0.750 from A");
    EXPECT_EQ(endpoints[1].Vapour_Pressure, "");
}

} // namespace orvel
