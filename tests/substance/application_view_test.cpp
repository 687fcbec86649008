#include "substance/application_view.h"

#include "application_session.h"

namespace orvel {

using Application_Half = Application_Session;

TEST_F(Application_Half, Shows_A_Regular_List_In_A_Sentence_And_By_Its_Position)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}, {15, 6, 1, 0.25, 3, 40}});
    The_Session.Editor.App_Current = 2;

    const auto view = View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil);

    EXPECT_EQ(view.Applikationen_pro_Jahr, "2 applications every year");
    EXPECT_EQ(view.Anzahl_Im_Jahr, "2");
    EXPECT_EQ(view.App_Modus, 1);
    EXPECT_EQ(view.Text_naps, "52");
    EXPECT_EQ(view.App_Tag, 14);
    EXPECT_EQ(view.App_Monat, 5);
    EXPECT_EQ(view.Rate, "0.25");
    EXPECT_EQ(view.Tiefe, "3");
    EXPECT_EQ(view.Interception, "40");
    EXPECT_TRUE(view.Year_Visible);
    EXPECT_TRUE(view.Date_And_Rate_Visible);
    EXPECT_FALSE(view.Text_naps_Enabled);
    EXPECT_FALSE(view.Hinweis_Visible);
    EXPECT_FALSE(view.Relative);
}

TEST_F(Application_Half, Says_Application_With_Two_Blanks_For_One_A_Year)
{
    Regular(1, 2, {{1, 5, 1, 0.5, 2, 30}});
    EXPECT_EQ(View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil)
                  .Applikationen_pro_Jahr,
              "1 application  every other year");

    Regular(1, 3, {{1, 5, 1, 0.5, 2, 30}});
    EXPECT_EQ(View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil)
                  .Applikationen_pro_Jahr,
              "1 application  every 3rd year");
}

TEST_F(Application_Half, Hides_Year_Date_And_Rate_Of_An_Irregular_List)
{
    Document.App_Count[1] = 25;
    Find_Pattern(The_Session);

    const auto view = View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil);

    EXPECT_EQ(view.App_Modus, 0);
    EXPECT_FALSE(view.Year_Visible);
    EXPECT_FALSE(view.Date_And_Rate_Visible);
    EXPECT_FALSE(view.Tiefe_Visible);
    EXPECT_TRUE(view.Text_naps_Enabled);
    EXPECT_TRUE(view.Hinweis_Visible);
    EXPECT_EQ(Irregular_Note, "As long as the selected \r\napplication mode is irregular, \r\nyou have to enter the "
                              "\r\napplication data manually!");
}

TEST_F(Application_Half, Shows_The_Depth_Of_A_Soil_Application_And_The_Interception_Of_A_Manual_One)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}});

    const auto soil = View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil);
    EXPECT_TRUE(soil.Tiefe_Visible && soil.Relative_Tiefe_Visible);
    EXPECT_FALSE(soil.Interception_Visible || soil.Relative_Interception_Visible);
    EXPECT_EQ(soil.Depth_Caption, "Application depth (cm)");

    const auto manual = View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Manually);
    EXPECT_FALSE(manual.Tiefe_Visible || manual.Relative_Tiefe_Visible);
    EXPECT_TRUE(manual.Interception_Visible && manual.Relative_Interception_Visible);
    EXPECT_EQ(manual.Depth_Caption, "Crop interception (%)");

    for (const auto method : {Application_Method::Linear, Application_Method::Exponential}) {
        const auto foliar = View_Of_Applications(The_Session.Pesticide, The_Session.Editor, method);
        EXPECT_FALSE(foliar.Tiefe_Visible || foliar.Interception_Visible || foliar.Relative_Tiefe_Visible ||
                     foliar.Relative_Interception_Visible);
        EXPECT_EQ(foliar.Depth_Caption, "");
    }
}

TEST_F(Application_Half, Shows_A_Relative_Application_And_Locks_The_Reference_Point_From_Two_A_Year_On)
{
    Relative(1, {-10});
    Document.Relative[1].Abs9_Month = 2;
    Document.Relative[1].Abs9_Frpex = 12.5;

    const auto one = View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil);
    EXPECT_TRUE(one.Relative);
    EXPECT_EQ(one.Tage.Index, 355);
    EXPECT_EQ(one.Bezugspunkt, 2);
    EXPECT_EQ(one.Relative_Interception, "12.5");
    EXPECT_TRUE(one.Bezugspunkt_Enabled);

    Relative(1, {-10, 5});
    EXPECT_FALSE(
        View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil).Bezugspunkt_Enabled);
}

TEST_F(Application_Half, Selects_Nothing_For_A_Month_Of_13)
{
    Regular(1, 1, {{31, 12, 1, 0.5, 2, 30}});
    Add_In_Year(The_Session);
    Next_In_Year(The_Session);

    const auto view = View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil);

    EXPECT_EQ(view.App_Tag, 0);
    EXPECT_EQ(view.App_Monat, -1);
}

TEST_F(Application_Half, Counts_Its_Captions_1st_2nd_3rd_And_Then_Th)
{
    Regular(1, 1, std::vector<Application>(20, {1, 5, 1, 0.5, 2, 30}));
    const auto at = [&](int current) {
        The_Session.Editor.App_Current = static_cast<std::uint8_t>(current);
        return View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil);
    };

    EXPECT_EQ(at(1).Label_Tag, "1st application day:");
    EXPECT_EQ(at(2).Label_Monat, "2nd application month:");
    EXPECT_EQ(at(3).Label_Tag_Rel, "3rd application:");
    EXPECT_EQ(at(4).Label_Tag, "4th application day:");
    EXPECT_EQ(at(20).Label_Tag_Rel, "20th application:");
    EXPECT_EQ(Ordinal(21), "21th");
}

TEST_F(Application_Half, Irregular_Chosen_For_A_Regular_List_Shows_The_Note_And_Opens_The_Number)
{
    Regular(1, 1, {{1, 5, 1, 0.5, 2, 30}});
    auto view = View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil);

    Show_Chosen_Pattern(view, 0);

    EXPECT_EQ(view.App_Modus, 0);
    EXPECT_TRUE(view.Hinweis_Visible);
    EXPECT_TRUE(view.Text_naps_Enabled);
    EXPECT_TRUE(view.Year_Visible);
}

TEST_F(Application_Half, A_Pattern_Chosen_For_A_List_With_Fractions_Stays_Chosen_While_The_List_Is_Irregular)
{
    Document.Applications[1][2].App_Time = 0.5;
    Choose_Pattern(The_Session, 1);
    auto view = View_Of_Applications(The_Session.Pesticide, The_Session.Editor, Application_Method::Soil);

    Show_Chosen_Pattern(view, 1);

    EXPECT_EQ(view.App_Modus, 1);
    EXPECT_FALSE(view.Hinweis_Visible);
    EXPECT_FALSE(view.Year_Visible);
    EXPECT_TRUE(view.Text_naps_Enabled);
}

} // namespace orvel
