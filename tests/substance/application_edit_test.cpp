#include "substance/application_edit.h"

#include "application_session.h"

namespace orvel {

using Application_Edit = Application_Session;

TEST_F(Application_Edit, Goes_To_The_Same_Position_Of_All_Years)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}, {15, 5, 1, 0.25, 3, 40}});
    The_Session.Editor.App_Current = 2;

    Edit_Day(The_Session, 19);
    Edit_Month(The_Session, 5);
    Edit_Rate(The_Session, "0.75");
    Edit_Depth(The_Session, "4");
    Edit_Interception(The_Session, "55");

    EXPECT_EQ(At(1), (Application{1, 5, 1, 0.5, 2, 30}));
    EXPECT_EQ(At(2), (Application{20, 6, 1, 0.75, 4, 55}));
    EXPECT_EQ(At(51), (Application{1, 5, 26, 0.5, 2, 30}));
    EXPECT_EQ(At(52), (Application{20, 6, 26, 0.75, 4, 55}));
    EXPECT_EQ(Document.Applications[2][2].App_Rate, 0);
}

TEST_F(Application_Edit, Reads_A_Number_Up_To_Its_First_Bad_Character)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}});

    Edit_Rate(The_Session, "1,5");
    EXPECT_EQ(At(26).App_Rate, 1);
    Edit_Rate(The_Session, "abc");
    EXPECT_EQ(At(26).App_Rate, 0);
}

TEST_F(Application_Edit, Of_An_Irregular_List_Changes_The_Application_Shown_Alone)
{
    Document.App_Count[1] = 100;
    Document.Applications[1][40].App_Rate = 7;
    The_Session.Editor.App_Cycles = 26;
    Find_Pattern(The_Session);

    Edit_Rate(The_Session, "0.75");

    EXPECT_EQ(At(1).App_Rate, 0.75);
    for (int a = 2; a <= 100; ++a)
        EXPECT_EQ(At(a).App_Rate, a == 40 ? 7 : 0) << a;
}

TEST_F(Application_Edit, Of_Relative_Dates_Goes_To_All_Years_Of_The_Shared_List)
{
    Relative(2, {-10, 5});
    The_Session.Editor.App_Current = 2;

    Edit_Relative_Rate(The_Session, "0.75");
    Edit_Relative_Depth(The_Session, "4");
    Edit_Relative_Interception(The_Session, "55");

    EXPECT_EQ(Document.Relative[46], (Relative_Application{5, 0, 45, 0.75, 4, 55}));
    EXPECT_EQ(Document.Relative[45], (Relative_Application{-10, 0, 45, 1, 0, 0}));
}

TEST_F(Application_Edit, A_Reference_Point_Takes_The_Applications_A_Year_From_Location_1)
{
    Relative(1, {-10});
    Document.App_Count[1] = 52;

    Edit_Reference_Point(The_Session, 4);

    EXPECT_EQ(Document.Relative[1].Abs9_Month, 4);
    EXPECT_EQ(Document.Relative[2].Abs9_Month, 0);
    EXPECT_EQ(Document.Relative[51].Abs9_Month, 4);

    Document.App_Count[1] = 26;
    Edit_Reference_Point(The_Session, 2);
    EXPECT_EQ(Document.Relative[2].Abs9_Month, 2);
    EXPECT_EQ(Document.Relative[26].Abs9_Month, 2);
}

TEST_F(Application_Edit, The_First_Relative_Application_Offers_The_Days_Minus_365_To_365)
{
    Relative(1, {-10, 5});

    EXPECT_EQ(Relative_Days(The_Session.Pesticide, The_Session.Editor), (Day_List{-365, 365, 355}));
}

TEST_F(Application_Edit, A_Later_Relative_Application_Offers_Days_Behind_The_One_Before_It_Only)
{
    Relative(1, {-10, 5});
    The_Session.Editor.App_Current = 2;
    EXPECT_EQ(Relative_Days(The_Session.Pesticide, The_Session.Editor), (Day_List{-9, 365, 14}));

    Document.Relative[2].Abs9_Day = -20;
    EXPECT_EQ(Relative_Days(The_Session.Pesticide, The_Session.Editor), (Day_List{-9, 365, -1}));
}

TEST_F(Application_Edit, A_Day_Pushes_The_Applications_Behind_It_In_Every_Year)
{
    Relative(1, {-10, 5, 6, 300});

    Edit_Relative_Day(The_Session, 365 + 5); // day 5

    for (const int year : {0, 25}) {
        EXPECT_EQ(Document.Relative[4 * year + 1].Abs9_Day, 5);
        EXPECT_EQ(Document.Relative[4 * year + 2].Abs9_Day, 6);
        EXPECT_EQ(Document.Relative[4 * year + 3].Abs9_Day, 7);
        EXPECT_EQ(Document.Relative[4 * year + 4].Abs9_Day, 300);
    }
}

TEST_F(Application_Edit, A_Day_Of_A_Later_Application_Counts_From_Its_Own_List)
{
    Relative(1, {-10, 5});
    The_Session.Editor.App_Current = 2;

    Edit_Relative_Day(The_Session, 0);

    EXPECT_EQ(Document.Relative[2].Abs9_Day, -9);
    EXPECT_EQ(Document.Relative[1].Abs9_Day, -10);
}

TEST_F(Application_Edit, The_Number_Of_Applications_Is_Taken_If_Above_Zero)
{
    EXPECT_EQ(Leave_Number_Of_Applications(The_Session, "30"), std::nullopt);
    EXPECT_EQ(Document.App_Count[1], Variant(30));

    EXPECT_EQ(Leave_Number_Of_Applications(The_Session, "0"), std::nullopt);
    EXPECT_EQ(Leave_Number_Of_Applications(The_Session, "-5"), std::nullopt);
    EXPECT_EQ(Leave_Number_Of_Applications(The_Session, "abc"), std::nullopt);
    EXPECT_EQ(Document.App_Count[1], Variant(30));
}

TEST_F(Application_Edit, A_Number_Of_Applications_Beyond_The_Slots_Is_Refused)
{
    EXPECT_EQ(Leave_Number_Of_Applications(The_Session, "521"), std::nullopt);
    EXPECT_EQ(Leave_Number_Of_Applications(The_Session, "522"),
              (Refusal{{"Data check", "More than 521 applications are not possible"}, "Text_naps"}));
    EXPECT_EQ(Document.App_Count[1], Variant(521));
}

TEST_F(Application_Edit, Manual_Entry_Needs_A_Number_First)
{
    EXPECT_EQ(Check_Manual_Entry("0"), (Refusal{{"data check", "First insert number of applications"}, "Text_naps"}));
    EXPECT_EQ(Check_Manual_Entry(""), (Refusal{{"data check", "First insert number of applications"}, "Text_naps"}));
    EXPECT_EQ(Check_Manual_Entry("3"), std::nullopt);
}

} // namespace orvel
