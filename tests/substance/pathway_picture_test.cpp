#include "substance/pathway_picture.h"

#include "substance/pathway.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvel {

namespace {

std::unique_ptr<Pesticide_Document> New_Document()
{
    auto document = std::make_unique<Pesticide_Document>();
    Reset_PSM(*document);
    Update_Pathway(*document);
    return document;
}

constexpr Scheme_Colour Light_Yellow = {254, 252, 214}; // 14089470, blue in the highest byte
constexpr Scheme_Colour Light_Red = {255, 128, 128};
constexpr Scheme_Colour Red = {224, 34, 2}; // 140000

} // namespace

TEST(Pathway_Picture, Without_Any_Rate_All_Arrows_Are_Thin_And_Only_The_Active_Substance_Is_Yellow)
{
    const auto document = New_Document();

    for (int t = 1; t <= 29; ++t)
        EXPECT_EQ(Look_Of_Arrow(*document, t), (Arrow_Look{1, Scheme_Colour{0, 0, 0}})) << t;
    EXPECT_EQ(Look_Of_Box(*document, 1), (Box_Look{Light_Yellow, false}));
    for (int i = 2; i <= 9; ++i)
        EXPECT_EQ(Look_Of_Box(*document, i), (Box_Look{Light_Red, true})) << i;
}

TEST(Pathway_Picture, An_Active_Arrow_Is_Wide_And_Red_And_Its_Target_Yellow)
{
    auto document = New_Document();
    document->Degradation[1][2].Deg_Rate = 0.1;

    Update_Pathway(*document);

    EXPECT_EQ(Look_Of_Arrow(*document, 2), (Arrow_Look{3, Red}));
    EXPECT_EQ(Look_Of_Box(*document, 3), (Box_Look{Light_Yellow, false}));
}

TEST(Pathway_Picture, Reserved_Arrows_And_Unknown_Numbers_Have_No_Label_And_No_Click)
{
    for (const int t : {18, 20, 28, 0, -1, 30}) {
        EXPECT_EQ(Arrow_Label(t), "") << t;
        EXPECT_FALSE(Arrow_Is_Clickable(t)) << t;
    }
    EXPECT_TRUE(Arrow_Is_Clickable(29));
    EXPECT_EQ(Transformation_Caption(6), "Transformation MET A1 to MET B1");
}

TEST(Pathway_Picture, A_Box_Without_A_Name_Opens_With_Its_Designed_Caption_And_Gets_The_Default_Name_After_An_Edit)
{
    auto document = New_Document();
    document->Substance_Name[1].clear();
    document->Substance_Name[2].clear();
    document->Substance_Name[9] = "Sulfone";

    EXPECT_EQ(Opening_Box_Caption(*document, 1), "Active Substance");
    EXPECT_EQ(Opening_Box_Caption(*document, 2), " Metabolite A1");
    EXPECT_EQ(Opening_Box_Caption(*document, 9), "Sulfone");
    EXPECT_EQ(Box_Caption(*document, 2), "Metabolite A1");
    EXPECT_EQ(Box_Caption(*document, 9), "Sulfone");
}

TEST(Pathway_Picture, The_Window_Of_An_Arrow_Opens_Beside_It)
{
    const Twips arrow = {1000, 4000};

    EXPECT_EQ(Transformation_Spot(1, arrow, 200, 5000), (Twips{1200, 4000}));
    EXPECT_EQ(Transformation_Spot(4, arrow, 200, 5000), (Twips{-4000, 4000}));
    EXPECT_EQ(Transformation_Spot(22, arrow, 200, 5000), (Twips{1200, 1200}));
    EXPECT_EQ(Transformation_Spot(21, arrow, 200, 5000), (Twips{-4000, 1200}));
}

TEST(Pathway_Picture, Soil_Photolysis_Shows_For_The_Arrows_Of_The_Active_Substance_Only)
{
    EXPECT_TRUE(Shows_Photolysis(5));
    EXPECT_FALSE(Shows_Photolysis(6));
}

} // namespace orvel
