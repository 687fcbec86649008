#include "report/report_uses.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

// A document whose block 1 is Hamburg, with applications to the soil.
class Uses_Of_A_Location : public testing::Test {
protected:
    Uses_Of_A_Location()
    {
        Reset_PSM(Document);
        Document.App_Mode = 0;
        Document.App_Loc_Count = 2;
        Document.App_Location[1] = "Hamburg (H)";
        Document.App_Method = 1.0;
        Document.App_Count[0] = 0.0;
    }

    void Apply(const std::vector<Application>& applications)
    {
        Document.App_Count[1] = static_cast<double>(applications.size());
        for (std::size_t a = 0; a < applications.size(); ++a)
            Document.Applications[1][a + 1] = applications[a];
    }

    std::unique_ptr<Pesticide_Document> Owned = std::make_unique<Pesticide_Document>();
    Pesticide_Document& Document = *Owned;
};

} // namespace

TEST_F(Uses_Of_A_Location, Applications_That_Differ_In_Their_Year_Alone_Are_One_Use)
{
    std::vector<Application> applications;
    for (std::int16_t year = 1; year <= 26; ++year) {
        applications.push_back({1, 11, year, 0.75, 0});
        applications.push_back({15, 11, year, 0.5, 5});
    }
    Apply(applications);

    EXPECT_EQ(Uses_Of(Document, "Hamburg (H)"),
              (std::vector<Report_Use>{{"0.75 kg/ha", "1 November", "every year, 1 to 26", "soil surface"},
                                       {"0.5 kg/ha", "15 November", "every year, 1 to 26", "5 cm deep"}}));
}

TEST_F(Uses_Of_A_Location, The_Text_Of_A_List_May_Say_More_Behind_The_Code)
{
    Apply({{1, 4, 1, 1}});

    EXPECT_EQ(Uses_Of(Document, "Hamburg (H), irrigated").size(), 1U);
    EXPECT_TRUE(Uses_Of(Document, "Porto (O)").empty());
}

TEST_F(Uses_Of_A_Location, Foliar_Methods_Say_How_The_Crop_Takes_It)
{
    Apply({{1, 4, 1, 1, 0, 40}});

    Document.App_Method = 2.0;
    EXPECT_EQ(Uses_Of(Document, "Hamburg (H)")[0].Place, "crop, linear interception");
    Document.App_Method = 3.0;
    EXPECT_EQ(Uses_Of(Document, "Hamburg (H)")[0].Place, "crop, exponential interception");
    Document.App_Method = 4.0;
    EXPECT_EQ(Uses_Of(Document, "Hamburg (H)")[0].Place, "crop, 40 % intercepted");
    for (const double no_method : {-0.5, 1e30}) {
        Document.App_Method = no_method;
        EXPECT_EQ(Uses_Of(Document, "Hamburg (H)")[0].Place, "soil surface") << no_method;
    }
}

TEST_F(Uses_Of_A_Location, Relative_Dates_Are_Those_Of_All_Locations)
{
    Document.App_Mode = App_Mode_Relative;
    Document.App_Count[1] = 3.0;
    Document.Relative[1] = {-1, 0, 1, 1};
    Document.Relative[2] = {-1, 0, 3, 1};
    Document.Relative[3] = {14, 2, 1, 0.25};

    EXPECT_EQ(
        Uses_Of(Document, "Porto (O)"),
        (std::vector<Report_Use>{{"1 kg/ha", "1 day before 1st emergence in the year", "years 1 and 3", "soil surface"},
                                 {"0.25 kg/ha", "14 days after 1st harvest in the year", "year 1", "soil surface"}}));
}

TEST(Years_In_Words, Equal_Steps_Are_Named_And_Others_Listed)
{
    EXPECT_EQ(Years_Text({4}), "year 4");
    EXPECT_EQ(Years_Text({4, 6}), "years 4 and 6");
    EXPECT_EQ(Years_Text({1, 2, 3}), "every year, 1 to 3");
    EXPECT_EQ(Years_Text({1, 3, 5, 7}), "every other year, 1 to 7");
    EXPECT_EQ(Years_Text({1, 4, 7}), "every 3rd year, 1 to 7");
    EXPECT_EQ(Years_Text({1, 2, 5}), "years 1, 2 and 5");
    EXPECT_EQ(Years_Text({2, 2, 2}), "years 2, 2 and 2"); // three times on one day
}

} // namespace orvel
