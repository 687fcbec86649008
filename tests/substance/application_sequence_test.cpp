#include "substance/application_sequence.h"

#include "application_session.h"

namespace orvel {

namespace {

class Application_Sequence : public Application_Session {
protected:
    Application_Sequence() { Lists = {{" User specific", "Hamburg (H)", "Sevilla (S)"}, {" User specific"}, false}; }

    // A list with the given dates.
    void List_At(int location, const std::vector<Application>& list)
    {
        Document.App_Count[location] = list.size();
        for (std::size_t a = 1; a <= list.size(); ++a)
            Document.Applications[location][a] = list[a - 1];
    }

    Refusal Wrong(const char* text, const char* control) { return {{"Data check", text}, control}; }

    Location_Lists Lists;
};

} // namespace

TEST_F(Application_Sequence, Of_A_New_Document_Is_Right)
{
    EXPECT_EQ(Check_Sequence(The_Session, Lists), std::nullopt);
}

TEST_F(Application_Sequence, An_Application_On_The_Same_Or_An_Earlier_Day_Is_Told_With_The_Date_Before_It)
{
    List_At(2, {{1, 5, 1}, {15, 5, 1}, {15, 5, 1}});
    EXPECT_EQ(Check_Sequence(The_Session, Lists),
              Wrong("Error in application sequence (15.5.01, location: Sevilla (S))", "App_Tag"));

    List_At(2, {{1, 5, 2}, {30, 4, 2}});
    EXPECT_EQ(Check_Sequence(The_Session, Lists),
              Wrong("Error in application sequence (1.5.02, location: Sevilla (S))", "App_Tag"));
    EXPECT_EQ(The_Session.Editor.App_Current_Location, 2);
}

TEST_F(Application_Sequence, The_Application_In_Error_Is_The_One_Shown)
{
    Regular(1, 1, {{1, 5, 1, 0.5}, {1, 6, 1, 0.5}, {20, 5, 1, 0.5}});

    EXPECT_EQ(Check_Sequence(The_Session, Lists),
              Wrong("Error in application sequence (1.6.01, location: Hamburg (H))", "App_Tag"));
    EXPECT_EQ(The_Session.Editor.App_Current_Location, 1);
    EXPECT_EQ(The_Session.Editor.App_Current, 3);
}

TEST_F(Application_Sequence, A_Month_13_Counts_As_Its_Day_And_So_Is_Out_Of_Sequence)
{
    Regular(1, 1, {{31, 12, 1, 0.5}});
    Add_In_Year(The_Session);

    EXPECT_EQ(Check_Sequence(The_Session, Lists),
              Wrong("Error in application sequence (31.12.01, location: Hamburg (H))", "App_Tag"));
}

TEST_F(Application_Sequence, A_Year_Above_89_Is_Told_As_An_Error_Of_The_Sequence)
{
    List_At(1, {{1, 12, 88}, {1, 12, 89}});
    EXPECT_EQ(Check_Sequence(The_Session, Lists), std::nullopt);

    List_At(1, {{1, 1, 89}, {1, 1, 90}});
    EXPECT_EQ(Check_Sequence(The_Session, Lists),
              Wrong("Error in application sequence (1.1.89, location: Hamburg (H))", "App_Tag"));

    List_At(1, {{1, 1, 32766}, {1, 1, 32767}});
    EXPECT_EQ(Check_Sequence(The_Session, Lists),
              Wrong("Error in application sequence (1.1.32766, location: Hamburg (H))", "App_Tag"));
}

TEST_F(Application_Sequence, Neither_The_User_Specific_Location_Nor_An_Unlisted_Block_Is_Checked)
{
    List_At(0, {{1, 5, 2}, {1, 5, 1}});
    List_At(3, {{1, 5, 2}, {1, 5, 1}});

    EXPECT_EQ(Check_Sequence(The_Session, Lists), std::nullopt);
}

TEST_F(Application_Sequence, Of_Soil_Zones_Is_Checked_In_Their_List)
{
    Lists = {{" User specific"}, {" User specific", "Total content - North (T_N)"}, true};
    List_At(1, {{1, 5, 2}, {1, 5, 1}});

    EXPECT_EQ(Check_Sequence(The_Session, Lists),
              Wrong("Error in application sequence (1.5.02, location: Total content - North (T_N))", "App_Tag"));
}

TEST_F(Application_Sequence, Of_Relative_Dates_Is_That_Of_The_Shared_List)
{
    List_At(1, {{1, 5, 2}, {1, 5, 1}});
    Relative(1, {-10, 5});
    EXPECT_EQ(Check_Sequence(The_Session, Lists), std::nullopt);

    Relative(1, {-10, -10});
    EXPECT_EQ(Check_Sequence(The_Session, Lists), Wrong("Error in application sequence (application no. 2)", "Tage"));
    EXPECT_EQ(The_Session.Editor.App_Current, 2);
}

TEST_F(Application_Sequence, Of_Relative_Dates_Goes_On_Over_The_End_Of_A_Year)
{
    Relative(1, {-365, 365});

    EXPECT_EQ(Check_Sequence(The_Session, Lists), Wrong("Error in application sequence (application no. 3)", "Tage"));
    EXPECT_EQ(The_Session.Editor.App_Current, 1);
}

TEST_F(Application_Sequence, Relative_Dates_Of_Different_Reference_Points_Are_Not_Compared)
{
    Relative(1, {100, 0});
    for (int a = 2; a <= 52; a += 2)
        Document.Relative[a].Abs9_Month = 2;

    EXPECT_EQ(Check_Sequence(The_Session, Lists), std::nullopt);
}

TEST_F(Application_Sequence, A_Relative_Year_Above_89_Is_An_Error_Too)
{
    Relative(1, {0});
    Document.Relative[26].Abs9_Year = 90;

    EXPECT_EQ(Check_Sequence(The_Session, Lists), Wrong("Error in application sequence (application no. 26)", "Tage"));
}

} // namespace orvel
