#include "substance/application_state.h"

#include "application_session.h"

namespace orvel {

using Application_State = Application_Session;

TEST_F(Application_State, Loads_With_The_Applications_A_Year_Of_All_Locations)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}, {15, 5, 1, 0.25, 3, 40}});
    Regular(7, 3, {{1, 5, 1, 0.5, 2, 30}});
    The_Session.Editor.App_Per_Year.fill(0);
    The_Session.Editor.App_Current = 9;

    Load_Applications(The_Session);

    EXPECT_EQ(The_Session.Editor.App_Per_Year[1], 2);
    EXPECT_EQ(The_Session.Editor.App_Per_Year[7], 1);
    EXPECT_EQ(The_Session.Editor.App_Per_Year[2], 1); // of a new document
    EXPECT_EQ(The_Session.Editor.App_Current, 1);
    EXPECT_EQ(The_Session.Editor.App_Pattern, 1);
    EXPECT_EQ(The_Session.Editor.App_Cycles, 26);
}

TEST_F(Application_State, Relative_Dates_Load_At_The_Shared_List)
{
    Relative(2, {-10});
    The_Session.Editor.App_Current_Location = 5;

    Load_Applications(The_Session);

    EXPECT_EQ(The_Session.Editor.App_Current_Location, 0);
    EXPECT_EQ(The_Session.Editor.App_Pattern, 2);
    EXPECT_EQ(Date_Kind_Of(Document), Date_Kind::Relative);
}

TEST_F(Application_State, Another_Location_Shows_Its_First_Application_And_Its_Pattern)
{
    Regular(3, 2, {{1, 5, 1, 0.5, 2, 30}});
    The_Session.Editor.App_Current = 4;

    Choose_Location(The_Session, 3);

    EXPECT_EQ(The_Session.Editor.App_Current_Location, 3);
    EXPECT_EQ(The_Session.Editor.App_Current, 1);
    EXPECT_EQ(The_Session.Editor.App_Pattern, 2);
}

TEST_F(Application_State, Activation_Cuts_The_Location_Down_To_The_List)
{
    The_Session.Editor.App_Current_Location = 6;
    Activate_Applications(The_Session, 3);
    EXPECT_EQ(The_Session.Editor.App_Current_Location, 2);

    Activate_Applications(The_Session, 1);
    EXPECT_EQ(The_Session.Editor.App_Current_Location, 0);
}

TEST_F(Application_State, Relative_Dates_Keep_The_Pattern_And_Never_The_Dates)
{
    Regular(0, 1, {{1, 5, 1, 0.5, 2, 30}, {15, 5, 1, 0.25, 3, 40}});
    Regular(1, 2, {{1, 5, 1, 0.5, 2, 30}});
    The_Session.Editor.App_Current = 2;

    Choose_Date_Kind(The_Session, Date_Kind::Relative);

    EXPECT_EQ(Document.App_Mode, 9);
    EXPECT_EQ(The_Session.Editor.App_Current_Location, 0);
    EXPECT_EQ(The_Session.Editor.App_Pattern, 2); // that of the location which was under edit
    EXPECT_EQ(Document.App_Count[0], Variant(46));
    EXPECT_EQ(Document.Relative[1].Abs9_Day, 0);
    EXPECT_EQ(Document.Relative[46].Abs9_Year, 45);
    EXPECT_EQ(Document.Relative[46].Abs9_Rate, 0);
    EXPECT_EQ(The_Session.Editor.App_Current, 1);
}

TEST_F(Application_State, Relative_Dates_Of_An_Irregular_Location_Leave_The_Count_Of_The_Shared_List)
{
    Document.App_Count[1] = 25;
    Find_Pattern(The_Session);

    Choose_Date_Kind(The_Session, Date_Kind::Relative);

    EXPECT_EQ(Document.App_Mode, 9);
    EXPECT_EQ(Document.App_Count[0], Variant(26));
}

TEST_F(Application_State, Absolute_Dates_Begin_With_One_Application_A_Year_At_The_User_Specific_Location)
{
    Relative(1, {-10, 5, 20});
    Document.Applications[0][1] = {3, 4, 1, 0.5, 0, 0};

    Choose_Date_Kind(The_Session, Date_Kind::Absolute);

    EXPECT_EQ(Document.App_Mode, 0);
    EXPECT_EQ(The_Session.Editor.App_Per_Year[0], 1);
    EXPECT_EQ(Document.App_Count[0], Variant(26));
    EXPECT_EQ(Document.Applications[0][26].App_Day, 3);
    EXPECT_EQ(Document.Applications[0][26].App_Year, 26);
    EXPECT_EQ(Document.Relative[3].Abs9_Day, 20);
}

TEST_F(Application_State, The_Grid_Of_Single_Applications_Returns_To_The_First_And_Its_Pattern)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}, {15, 5, 1, 0.25, 3, 40}});
    The_Session.Editor.App_Current = 2;
    Document.App_Count[1] = 25;

    Return_From_Grid(The_Session);

    EXPECT_EQ(The_Session.Editor.App_Current, 1);
    EXPECT_EQ(The_Session.Editor.App_Pattern, 0);
}

TEST_F(Application_State, Cancel_Puts_Back_All_520_Applications_Counts_Dates_Plant_And_Volatility_Values)
{
    Regular(1, 1, std::vector<Application>(20, {1, 5, 1, 0.5, 2, 30, 0, 8}));
    Document.Applications[1][520].App_Crop_Flag = 14;
    const auto before = std::make_unique<Pesticide_Document>(Document);
    const auto copy = Keep_Copy(The_Session.Pesticide, The_Session.Editor);

    Document.Applications[1][520] = {};
    Document.App_Count[1] = 3;
    Document.App_Mode = 9;
    Document.App_Location[1] = "Hamburg (H)";
    Document.Relative[7].Abs9_Rate = 3;
    Document.Plant_Decay = 1;
    Document.Henry[1] = 3;
    The_Session.Editor.App_Per_Year[1] = 7;
    The_Session.Editor.App_Pattern = 3;
    Restore_Copy(The_Session, copy);

    EXPECT_EQ(Document, *before);
    EXPECT_EQ(The_Session.Editor.App_Per_Year[1], 20);
    EXPECT_EQ(The_Session.Editor.App_Pattern, 1);
}

TEST_F(Application_State, Cancel_Clears_The_Changed_Flag_Even_If_An_Arrow_Was_Changed_Before)
{
    The_Session.Program.PSM_Changed = true;
    const auto copy = Keep_Copy(The_Session.Pesticide, The_Session.Editor);

    Restore_Copy(The_Session, copy);

    EXPECT_FALSE(The_Session.Program.PSM_Changed);
}

} // namespace orvel
