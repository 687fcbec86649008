#include "substance/active_substance.h"

#include "application_session.h"

namespace orvel {

namespace {

class Active_Substance : public Application_Session {
protected:
    Active_Substance()
    {
        Document.Molmass[1] = 300;
        Lists = {{" User specific", "Hamburg (H)"}, {" User specific"}, false};
    }

    Location_Lists Lists;
};

} // namespace

TEST_F(Active_Substance, Opens_With_The_Fields_Of_The_Document)
{
    Document.PSM_Title = "Study";
    Document.App_Method = 4;
    Document.Henry_Flag = 1;
    Document.Solubility = {10, 20};
    Document.Vap_Press = {1E-3, 4E-3};

    const auto entry = Load_Active(Document);

    EXPECT_EQ(entry.Substance, Load_Substance(Document, 1));
    EXPECT_EQ(entry.Text_comment, "Study");
    EXPECT_EQ(entry.App_Flag, Application_Method::Manually);
    EXPECT_FALSE(entry.Henry_Direct);
    EXPECT_DOUBLE_EQ(entry.Pairs.Henry[0], 0.03);
    EXPECT_EQ(entry.Text_vol3, "0.05");
    EXPECT_EQ(entry.Text_vol4, "0.1");
}

TEST_F(Active_Substance, Without_A_Solubility_Opens_With_A_Direct_Henry_Constant)
{
    Document.Henry_Flag = 1;
    Document.Solubility = {10, 0};

    EXPECT_TRUE(Load_Active(Document).Henry_Direct);
}

TEST_F(Active_Substance, Opens_Whatever_Kind_Of_Application_A_File_Names)
{
    Document.App_Method = 1E300;
    EXPECT_EQ(Load_Active(Document).App_Flag, Application_Method::Manually);
    Document.App_Method = -1;
    EXPECT_EQ(Load_Active(Document).App_Flag, Application_Method::Soil);
}

TEST_F(Active_Substance, Refuses_A_Molar_Mass_Of_Zero_Yet_Counts_As_Changed)
{
    auto entry = Load_Active(Document);
    entry.Substance.Text_mol = "0";
    entry.Text_comment = "Not stored";

    EXPECT_EQ(Accept_Active(The_Session, entry, Lists),
              (Refusal{{"Data check", "Molmass must be greater than 0"}, "Text_mol"}));

    EXPECT_EQ(Document.PSM_Title, "Insert Title");
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
}

TEST_F(Active_Substance, Refuses_A_Negative_Number_Of_Horizons_But_Not_Zero)
{
    auto entry = Load_Active(Document);
    entry.Substance.Text_nhor = "-1";
    EXPECT_EQ(Accept_Active(The_Session, entry, Lists),
              (Refusal{{"Data check", "Number of horizons must be greater than 0"}, "Text_nhor"}));

    entry.Substance.Text_nhor = "0";
    EXPECT_EQ(Accept_Active(The_Session, entry, Lists), std::nullopt);
}

TEST_F(Active_Substance, Done_Fills_The_Second_Point_And_Stores_All)
{
    auto entry = Load_Active(Document);
    entry.Substance.Name = "Herbicide";
    entry.Text_comment = "Study";
    entry.App_Flag = Application_Method::Exponential;
    entry.Henry_Direct = true;
    entry.Pairs = {.Volat_Temp = {20, 20}, .Henry = {1E-4, 0}};
    entry.Text_vol3 = "0.06";
    entry.Text_vol4 = "0.2";

    EXPECT_EQ(Accept_Active(The_Session, entry, Lists), std::nullopt);

    EXPECT_EQ(Document.Substance_Name[1], "Herbicide");
    EXPECT_EQ(Document.PSM_Title, "Study");
    EXPECT_EQ(Document.App_Method, Variant(3));
    EXPECT_EQ(Document.Henry_Flag, Variant(0));
    EXPECT_EQ(Document.Henry[1], 2E-4);
    EXPECT_EQ(Document.Volat_Temp[1], 30);
    EXPECT_EQ(Document.Diff_Air, 0.06);
    EXPECT_EQ(Document.Depth_Volat, 0.2);
    EXPECT_EQ(Document.App_Location[1], "Hamburg (H)");
    EXPECT_EQ(Document.App_Loc_Count, 2);
}

TEST_F(Active_Substance, An_Error_In_The_Sequence_Keeps_The_Form_Open_And_The_Count_Of_Locations)
{
    Document.Applications[1][5].App_Year = 3;
    auto entry = Load_Active(Document);

    EXPECT_EQ(Accept_Active(The_Session, entry, Lists),
              (Refusal{{"Data check", "Error in application sequence (1.1.04, location: Hamburg (H))"}, "App_Tag"}));

    EXPECT_EQ(Document.App_Loc_Count, 9);
}

} // namespace orvel
