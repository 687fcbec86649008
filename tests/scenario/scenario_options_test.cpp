#include "scenario/scenario_options.h"

#include "files/scenario_file.h"
#include "scenario/scenario_view.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

struct Scenario_Options : testing::Test {
    Scenario_Options() { Reset_SZE(The_Session.Scenario); }
    Scenario_View View() const { return View_Of(The_Session.Scenario); }

    Session The_Session;
    Scenario_Document& Document = The_Session.Scenario;
};

TEST_F(Scenario_Options, Constant_Compartments_Are_1_In_The_Form_And_In_The_File_At_Every_Click)
{
    for (const int option : {1, 0, 1}) {
        Choose_Compartments(The_Session, option);
        Scenario_Document saved;
        Reset_SZE(saved);
        Parse_SZE(Format_SZE(Document), saved);

        EXPECT_EQ(Document.SZE_Delxflg, option);
        EXPECT_EQ(saved.SZE_Delxflg, option);
        EXPECT_EQ(View_Of(saved).Compartments, option);
        EXPECT_EQ(View_Of(saved).Layers_Visible, option == 1);
    }
    EXPECT_TRUE(The_Session.Program.SZE_Changed);
}

TEST_F(Scenario_Options, A_Water_Flag_Of_3_Is_The_Second_Drainage_And_Macropore_Flow)
{
    Document.SZE_Water_Flag = 3;

    EXPECT_EQ(View().Drainage, 1);
    EXPECT_EQ(View().Processes[1], Box::Set);
    EXPECT_TRUE(View().Macropore_Button_Visible);
}

TEST_F(Scenario_Options, Clearing_Macropore_Flow_On_Flag_3_Leaves_1)
{
    Document.SZE_Water_Flag = 3;

    Switch_Process(The_Session, Fast_Process::Macropore_Flow, false);

    EXPECT_EQ(Document.SZE_Water_Flag, Variant(1));
    EXPECT_EQ(Document.SZE_Macropore, 0);
    EXPECT_FALSE(View().Macropore_Button_Visible);
    EXPECT_FALSE(View().Process_Depth_Visible[1]);
}

TEST_F(Scenario_Options, Drainage_And_Macropore_Flow_Combine_To_One_Number)
{
    for (const int option : {0, 1}) {
        for (const bool macropores : {false, true}) {
            Switch_Process(The_Session, Fast_Process::Macropore_Flow, macropores);
            Choose_Drainage(The_Session, option);

            EXPECT_EQ(Document.SZE_Water_Flag, Variant(option + (macropores ? 2 : 0)));
            EXPECT_EQ(Drainage_Option(Document), option);
        }
    }
}

TEST_F(Scenario_Options, Setting_Macropore_Flow_Twice_Adds_To_The_Flag_Once)
{
    Switch_Process(The_Session, Fast_Process::Macropore_Flow, true);
    Switch_Process(The_Session, Fast_Process::Macropore_Flow, true);

    EXPECT_EQ(Document.SZE_Water_Flag, Variant(2));
    EXPECT_EQ(Document.SZE_Macropore, 1);
}

TEST_F(Scenario_Options, Runoff_Is_Stored_And_Shows_Its_Depth)
{
    Switch_Process(The_Session, Fast_Process::Runoff, true);

    EXPECT_EQ(Document.SZE_Runoff, 1);
    EXPECT_TRUE(View().Process_Depth_Visible[0]);
    EXPECT_EQ(Document.SZE_Water_Flag, Variant(0));
}

TEST_F(Scenario_Options, Erosion_Forces_Runoff_On_And_Greys_Its_Box)
{
    Switch_Erosion(The_Session, true);

    EXPECT_EQ(Document.SZE_Erosion, 1);
    EXPECT_EQ(Document.SZE_Runoff, 1);
    EXPECT_EQ(View().Processes[0], Box::Greyed);
    EXPECT_TRUE(View().Erosion);
}

TEST_F(Scenario_Options, Erosion_On_And_Off_Leaves_Runoff_On_Until_Its_Box_Is_Clicked)
{
    Switch_Erosion(The_Session, true);
    Switch_Erosion(The_Session, false);

    EXPECT_EQ(Document.SZE_Erosion, 0);
    EXPECT_EQ(Document.SZE_Runoff, 1);
    EXPECT_EQ(View().Processes[0], Box::Set);

    Switch_Process(The_Session, Fast_Process::Runoff, false);

    EXPECT_EQ(View().Processes[0], Box::Clear);
}

TEST_F(Scenario_Options, Haude_Hides_The_Kc_Rows)
{
    for (const int method : {0, 1, 2}) {
        Choose_Evapotranspiration(The_Session, method);
        EXPECT_TRUE(View().Kc_Visible) << method;
    }

    Choose_Evapotranspiration(The_Session, 3);

    EXPECT_FALSE(View().Kc_Visible);
    EXPECT_EQ(View().Evapotranspiration, 3);
}

TEST_F(Scenario_Options, Dispersion_And_Hydraulics_Take_The_Number_Of_Their_Option)
{
    Choose_Dispersion(The_Session, 1);
    Choose_Hydraulics(The_Session, 2);
    Switch_DOC(The_Session, true);

    EXPECT_EQ(Document.SZE_Dispersion_Flag, 1);
    EXPECT_EQ(View().Dispersion, 1);
    EXPECT_EQ(Document.SZE_Hydraulic_Flag, Variant(2));
    EXPECT_EQ(View().Hydraulics, 2);
    EXPECT_TRUE(View().DOC);
}

TEST_F(Scenario_Options, A_Frequency_Goes_From_Monthly_To_Yearly_To_Daily)
{
    for (const auto output : {Output_Of::Water, Output_Of::Solute, Output_Of::Concentration}) {
        EXPECT_EQ(Frequency_Caption(Document, output), "Monthly");
        Switch_Frequency(The_Session, output);
        EXPECT_EQ(Frequency_Caption(Document, output), "Yearly");
        Switch_Frequency(The_Session, output);
        EXPECT_EQ(Frequency_Caption(Document, output), "Daily");
    }
    EXPECT_EQ(Document.SZE_Freq_Water.Print(), " DAY"); // with its leading blank
    Switch_Frequency(The_Session, Output_Of::Water);
    EXPECT_EQ(Document.SZE_Freq_Water.Print(), "MNTH");
    EXPECT_EQ(View().Frequencies[0], "Monthly");
    EXPECT_EQ(View().Frequencies[1], "Daily");
}

TEST_F(Scenario_Options, A_Frequency_That_Reads_As_0_Shows_Monthly)
{
    Document.SZE_Freq_Water = Variant();
    Document.SZE_Freq_Solute = "";
    Document.SZE_Freq_Conc = "DAY"; // as it comes out of a file

    EXPECT_EQ(Frequency_Caption(Document, Output_Of::Water), "Monthly");
    EXPECT_EQ(Frequency_Caption(Document, Output_Of::Solute), "Monthly");
    EXPECT_EQ(Frequency_Caption(Document, Output_Of::Concentration), "Daily");
}

TEST_F(Scenario_Options, Flags_That_No_Option_Stands_For_Show_The_Nearest_One)
{
    Document.SZE_Water_Flag = 7;
    Document.SZE_Hydraulic_Flag = -1;
    Document.SZE_ET_Method = 12;

    EXPECT_EQ(View().Drainage, 1);
    EXPECT_EQ(View().Hydraulics, 0);
    EXPECT_EQ(View().Evapotranspiration, 3);
}

} // namespace

} // namespace orvel
