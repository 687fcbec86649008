#include "substance/application_year.h"

#include "application_session.h"

namespace orvel {

using Application_Year = Application_Session;

TEST_F(Application_Year, Is_Repeated_Over_The_Years_Of_The_Pattern)
{
    Regular(1, 2, {{1, 5, 1, 0.5, 2, 30}, {15, 5, 1, 0.25, 3, 40}});

    EXPECT_EQ(Document.App_Count[1], Variant(46));
    EXPECT_EQ(At(3), (Application{1, 5, 3, 0.5, 2, 30}));
    EXPECT_EQ(At(46), (Application{15, 5, 45, 0.25, 3, 40}));
    EXPECT_EQ(The_Session.Editor.App_Pattern, 2);
    EXPECT_EQ(The_Session.Editor.App_Cycles, 23);
}

TEST_F(Application_Year, Leaves_Hour_And_Fraction_Where_They_Stand)
{
    Document.Applications[1][1].App_Crop_Flag = 9;
    Document.Applications[1][2].App_Crop_Flag = 14;
    Document.Applications[1][3].App_Time = 0.5;

    The_Session.Editor.App_Per_Year[1] = 1;
    Expand_Year(The_Session, 1, 1, Dates::Both);

    EXPECT_EQ(At(2).App_Crop_Flag, 14);
    EXPECT_EQ(At(3).App_Time, 0.5);
}

TEST_F(Application_Year, Every_Other_Year_Of_An_Empty_List_Begins_With_One_Application_On_1_January)
{
    Document.App_Count[1] = 0;
    Document.Applications[1][1] = {9, 9, 9, 9, 9, 9};

    EXPECT_EQ(Choose_Pattern(The_Session, 2), std::nullopt);

    EXPECT_EQ(Document.App_Count[1], Variant(23));
    EXPECT_EQ(The_Session.Editor.App_Per_Year[1], 1);
    EXPECT_EQ(At(1), (Application{1, 1, 1, 0, 0, 9}));
    EXPECT_EQ(At(23), (Application{1, 1, 45, 0, 0, 9}));
    EXPECT_EQ(The_Session.Editor.App_Pattern, 2);
}

TEST_F(Application_Year, An_Empty_List_Puts_Back_The_Reference_Point_Of_Slot_0_And_Not_Of_The_First_Application)
{
    Document.App_Count[1] = 0;
    Document.Relative[0].Abs9_Month = 4;
    Document.Relative[1] = {30, 3, 7, 1, 1, 1};

    Choose_Pattern(The_Session, 1);

    EXPECT_EQ(Document.Relative[0].Abs9_Month, 0);
    EXPECT_EQ(Document.Relative[1].Abs9_Month, 3);
    EXPECT_EQ(Document.Relative[1].Abs9_Day, 0);
    EXPECT_EQ(Document.Relative[26].Abs9_Year, 26);
}

TEST_F(Application_Year, A_List_Of_Which_No_Year_Is_Known_Gives_At_Most_10_Applications_To_It)
{
    Document.App_Count[1] = 17;
    The_Session.Editor.App_Per_Year[1] = 0;
    Choose_Pattern(The_Session, 1);
    EXPECT_EQ(Document.App_Count[1], Variant(260));

    Document.App_Count[2] = 3;
    The_Session.Editor.App_Per_Year[2] = 0;
    The_Session.Editor.App_Current_Location = 2;
    Choose_Pattern(The_Session, 3);
    EXPECT_EQ(Document.App_Count[2], Variant(66));
}

TEST_F(Application_Year, A_Year_Known_From_Another_Document_Does_Not_Reach_Beyond_The_List)
{
    Document.App_Count[1] = 2;
    The_Session.Editor.App_Per_Year[1] = 5;

    Choose_Pattern(The_Session, 1);

    EXPECT_EQ(Document.App_Count[1], Variant(52));
}

TEST_F(Application_Year, A_Change_Of_The_Pattern_Keeps_The_Master_Copy_In_Both_Kinds_Of_Dates)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}, {15, 5, 1, 0.25, 3, 40}});
    Document.Relative[1] = {-10, 0, 1, 1, 2, 3};
    Document.Relative[2] = {20, 0, 1, 4, 5, 6};

    EXPECT_EQ(Choose_Pattern(The_Session, 3), std::nullopt);

    EXPECT_EQ(Document.App_Count[1], Variant(44));
    EXPECT_EQ(At(44), (Application{15, 5, 64, 0.25, 3, 40}));
    EXPECT_EQ(Document.Relative[43], (Relative_Application{-10, 0, 64, 1, 2, 3}));
    EXPECT_EQ(Document.Relative[44], (Relative_Application{20, 0, 64, 4, 5, 6}));
}

TEST_F(Application_Year, Irregular_Changes_Nothing_And_The_Data_Tell_The_Pattern)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}});
    const auto before = std::make_unique<Pesticide_Document>(Document);

    EXPECT_EQ(Choose_Pattern(The_Session, 0), std::nullopt);

    EXPECT_EQ(Document, *before);
    EXPECT_EQ(The_Session.Editor.App_Pattern, 1);
}

TEST_F(Application_Year, More_Applications_Than_There_Are_Slots_Are_Refused_And_Nothing_Changes)
{
    Regular(1, 2, std::vector<Application>(22, {1, 5, 1, 0.5, 2, 30})); // 506: 22 every other year

    EXPECT_EQ(Choose_Pattern(The_Session, 1),
              (Refusal{{"Data check", "More than 521 applications are not possible"}, "App_Modus"}));

    EXPECT_EQ(Document.App_Count[1], Variant(506));
}

TEST_F(Application_Year, Plus_Appends_A_Copy_A_Day_Later_To_Every_Year)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}});

    Add_In_Year(The_Session);

    EXPECT_EQ(Document.App_Count[1], Variant(52));
    EXPECT_EQ(At(2), (Application{2, 5, 1, 0.5, 2, 30}));
    EXPECT_EQ(At(51), (Application{1, 5, 26, 0.5, 2, 30}));
    EXPECT_EQ(At(52), (Application{2, 5, 26, 0.5, 2, 30}));
    EXPECT_EQ(The_Session.Editor.App_Per_Year[1], 2);
}

TEST_F(Application_Year, Plus_Behind_A_28th_Goes_On_To_The_1st_Of_The_Next_Month)
{
    Regular(1, 1, {{28, 4, 1, 0.5, 2, 30}});
    Add_In_Year(The_Session);
    EXPECT_EQ(At(2).App_Day, 1);
    EXPECT_EQ(At(2).App_Month, 5);

    Regular(1, 1, {{27, 4, 1, 0.5, 2, 30}});
    Add_In_Year(The_Session);
    EXPECT_EQ(At(2).App_Day, 28);
    EXPECT_EQ(At(2).App_Month, 4);
}

TEST_F(Application_Year, Plus_In_December_Gives_A_Month_13)
{
    Regular(1, 1, {{31, 12, 1, 0.5, 2, 30}});

    Add_In_Year(The_Session);

    EXPECT_EQ(At(2).App_Day, 1);
    EXPECT_EQ(At(2).App_Month, 13);
}

TEST_F(Application_Year, Plus_Does_And_Says_Nothing_At_20_A_Year)
{
    Regular(1, 1, {{1, 1, 1, 0.5, 2, 30}});
    for (int n = 1; n < 25; ++n)
        Add_In_Year(The_Session);

    EXPECT_EQ(The_Session.Editor.App_Per_Year[1], 20);
    EXPECT_EQ(Document.App_Count[1], Variant(520));
    EXPECT_TRUE(The_User.Messages.empty());

    Choose_Pattern(The_Session, 2);
    EXPECT_EQ(Document.App_Count[1], Variant(460));
    Choose_Pattern(The_Session, 3);
    EXPECT_EQ(Document.App_Count[1], Variant(440));
    Choose_Pattern(The_Session, 1);
    EXPECT_EQ(Document.App_Count[1], Variant(520));
}

TEST_F(Application_Year, Plus_In_Relative_Mode_Works_On_The_Shared_List_Alone)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}});
    Relative(1, {-10});
    The_Session.Editor.App_Current_Location = 1;
    const auto absolute = std::make_unique<decltype(Document.Applications)>(Document.Applications);

    Add_In_Year(The_Session);

    EXPECT_EQ(The_Session.Editor.App_Current_Location, 0);
    EXPECT_EQ(Document.App_Count[0], Variant(52));
    EXPECT_EQ(Document.App_Count[1], Variant(26));
    EXPECT_EQ(Document.Relative[52].Abs9_Day, -9);
    EXPECT_EQ(Document.Relative[52].Abs9_Year, 26);
    EXPECT_EQ(Document.Applications, *absolute);
}

TEST_F(Application_Year, Minus_Takes_The_Last_One_From_Every_Year_And_Shows_One_That_Is_Left)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}, {15, 5, 1, 0.25, 3, 40}});
    The_Session.Editor.App_Current = 2;

    Remove_In_Year(The_Session);

    EXPECT_EQ(Document.App_Count[1], Variant(26));
    EXPECT_EQ(At(2), (Application{1, 5, 2, 0.5, 2, 30}));
    EXPECT_EQ(The_Session.Editor.App_Current, 1);
}

TEST_F(Application_Year, Minus_Does_And_Says_Nothing_At_1_A_Year)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}});

    Remove_In_Year(The_Session);

    EXPECT_EQ(Document.App_Count[1], Variant(26));
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Application_Year, Plus_And_Minus_Leave_An_Irregular_List_Alone)
{
    Document.App_Count[1] = 25;
    Find_Pattern(The_Session);

    Add_In_Year(The_Session);
    Remove_In_Year(The_Session);

    EXPECT_EQ(Document.App_Count[1], Variant(25));
}

TEST_F(Application_Year, Is_Walked_From_Its_First_To_Its_Last_Application)
{
    Regular(1, 3, {{1, 5, 1, 0.5, 2, 30}, {15, 5, 1, 0.25, 3, 40}});

    Previous_In_Year(The_Session);
    EXPECT_EQ(The_Session.Editor.App_Current, 1);
    Next_In_Year(The_Session);
    Next_In_Year(The_Session);
    EXPECT_EQ(The_Session.Editor.App_Current, 2);
    Previous_In_Year(The_Session);
    EXPECT_EQ(The_Session.Editor.App_Current, 1);
}

} // namespace orvel
