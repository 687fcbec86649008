#include "substance/pesticide_editor.h"

#include "pesticide_session.h"
#include "substance/application_list.h"

namespace orvel {

using Pesticide_Editor = Pesticide_Session;

TEST_F(Pesticide_Editor, Starts_A_New_Document_With_One_Application_Every_Year)
{
    Document.Degradation[1][1].Deg_Rate = 0.5;

    New_PSM(The_Session);

    EXPECT_EQ(The_Session.Program.PSM_File, "*.psm");
    EXPECT_EQ(The_Session.Editor.App_Pattern, 1);
    EXPECT_FALSE(Document.Trans_Active[1]);
}

TEST_F(Pesticide_Editor, A_New_Document_Keeps_Nothing_Of_The_One_Before)
{
    Document.F_neq[1] = 0.5;
    Document.K_des[1] = 0.02;
    Document.Plant_Photodeg = 0.1;
    Document.Deg_Liquid_Only[2] = 1;
    Document.Applications[1][1].App_Frpex = 90;
    Document.Applications[1][30].App_Rate = 5;
    Document.Relative[3].Abs9_Rate = 5;

    New_PSM(The_Session);

    EXPECT_EQ(Document.F_neq[1], 0);
    EXPECT_EQ(Document.K_des[1], 0);
    EXPECT_EQ(Document.Plant_Photodeg, 0);
    EXPECT_EQ(Document.Deg_Liquid_Only[2], 0);
    EXPECT_EQ(Document.Applications[1][1].App_Frpex, 0);
    EXPECT_EQ(Document.Applications[1][30].App_Rate, 0);
    EXPECT_EQ(Document.Relative[3], Relative_Application());
}

TEST_F(Pesticide_Editor, Opens_Unchanged_And_Turns_A_Change_Of_Koc_Of_Zero_Into_1)
{
    The_Session.Program.PSM_Changed = true;
    Document.Koc_Change[1] = 0;
    Document.Koc_Change[9] = 2;

    Open_Editor(The_Session);

    EXPECT_FALSE(The_Session.Program.PSM_Changed);
    EXPECT_EQ(Document.Koc_Change[1], 1);
    EXPECT_EQ(Document.Koc_Change[9], 2);
}

TEST_F(Pesticide_Editor, Opens_The_Active_Substance_At_Location_1_Or_At_The_Shared_List)
{
    Open_Active_Substance(The_Session);
    EXPECT_EQ(The_Session.Editor.Substance_Index, 1);
    EXPECT_EQ(The_Session.Editor.App_Current_Location, 1);

    Document.App_Mode = App_Mode_Relative;
    Open_Active_Substance(The_Session);
    EXPECT_EQ(The_Session.Editor.App_Current_Location, 0);
}

TEST_F(Pesticide_Editor, Opens_No_Form_For_An_Absent_Metabolite)
{
    Document.Met_Present[4] = true;

    EXPECT_TRUE(Open_Metabolite(The_Session, 4));
    EXPECT_EQ(The_Session.Editor.Substance_Index, 4);
    EXPECT_FALSE(Open_Metabolite(The_Session, 5));
}

TEST_F(Pesticide_Editor, Opens_No_Form_For_The_Reserved_Arrows)
{
    EXPECT_TRUE(Open_Transformation(The_Session, 29));
    for (const int t : {18, 20, 28})
        EXPECT_FALSE(Open_Transformation(The_Session, t)) << t;
    EXPECT_EQ(The_Session.Editor.Transformation_Index, 29);
}

TEST_F(Pesticide_Editor, Cuts_The_User_Specific_Location_At_The_First_Undefined_Date_On_Save_And_Exit)
{
    Document.App_Count[0] = 26;
    Document.Applications[0][4].App_Month = 0;
    Document.Applications[0][6].App_Day = 0;

    Prepare_Save_And_Exit(The_Session);

    EXPECT_EQ(Document.App_Count[0], Variant(3));
}

TEST_F(Pesticide_Editor, Leaves_Dated_Applications_And_Relative_Documents_As_They_Are)
{
    Prepare_Save_And_Exit(The_Session);
    EXPECT_EQ(Document.App_Count[0], Variant(26));

    Document.App_Mode = App_Mode_Relative;
    Document.Applications[0][4].App_Year = 0;
    Prepare_Save_And_Exit(The_Session);
    EXPECT_EQ(Document.App_Count[0], Variant(26));
}

TEST_F(Pesticide_Editor, Asks_Before_Changes_Are_Given_Up)
{
    const auto opened = std::make_unique<Pesticide_Document>(Document);
    EXPECT_TRUE(May_Leave_Editor(The_Session, *opened));
    EXPECT_TRUE(The_User.Messages.empty());

    The_Session.Program.PSM_Changed = true;
    The_User.Answers = {Button::No, Button::Yes};
    EXPECT_FALSE(May_Leave_Editor(The_Session, *opened));
    EXPECT_TRUE(May_Leave_Editor(The_Session, *opened));
    EXPECT_EQ(The_User.Messages[0], (Message{"Saving Input File",
                                             "Parameters were changed. Do you want to exit without saving ?",
                                             Icon::Question,
                                             {Button::Yes, Button::No},
                                             Button::No}));
}

TEST_F(Pesticide_Editor, Walks_Over_No_More_Applications_Than_There_Are_Slots)
{
    Document.App_Count[0] = "1E9";
    Document.App_Count[1] = -3;
    Document.App_Count[2] = "26.9";

    EXPECT_EQ(Applications_Of(Document, 0), 521);
    EXPECT_EQ(Applications_Of(Document, 1), 0);
    EXPECT_EQ(Applications_Of(Document, 2), 26);
}

} // namespace orvel
