#include "substance/pathway.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvel {

namespace {

// A new document with a rate on each of the arrows named.
std::unique_ptr<Pesticide_Document> With_Arrows(std::initializer_list<int> arrows)
{
    auto document = std::make_unique<Pesticide_Document>();
    Reset_PSM(*document);
    for (const int t : arrows) {
        const auto& arrow = Arrow_Of(t);
        document->Degradation[static_cast<std::size_t>(arrow.Source)][static_cast<std::size_t>(arrow.Row)].Deg_Rate =
            0.1;
    }
    Update_Pathway(*document);
    return document;
}

} // namespace

TEST(Pathway, Without_Any_Rate_Only_The_Active_Substance_Is_Present)
{
    const auto document = With_Arrows({});

    EXPECT_EQ(document->Met_Present, (Per_Substance<bool>{false, true}));
    EXPECT_EQ(document->Trans_Active, (std::array<bool, Last_Transformation + 1>{}));
    EXPECT_EQ(document->Bound_Active, (Per_Substance<bool>{}));
}

TEST(Pathway, B1_Stays_Present_Through_A1_And_Goes_With_It)
{
    EXPECT_TRUE(With_Arrows({1, 6})->Met_Present[3]);

    const auto without_a1 = With_Arrows({6, 9});
    EXPECT_FALSE(without_a1->Met_Present[2]);
    EXPECT_FALSE(without_a1->Met_Present[3]);
    EXPECT_FALSE(without_a1->Trans_Active[6]);
    EXPECT_FALSE(without_a1->Trans_Active[9]);
    EXPECT_FALSE(without_a1->Bound_Active[2]);
}

TEST(Pathway, Photodegradation_Alone_Keeps_An_Arrow_Of_The_Active_Substance)
{
    auto document = With_Arrows({});
    document->Photo_Rate[1] = 0.5;
    document->Photo_Rate[5] = 0.5;
    document->Photo_Rate[6] = 0.5; // no arrow of the active substance

    Update_Pathway(*document);

    EXPECT_TRUE(document->Trans_Active[1]);
    EXPECT_TRUE(document->Met_Present[2]);
    EXPECT_TRUE(document->Bound_Active[1]);
    EXPECT_FALSE(document->Trans_Active[6]);
}

TEST(Pathway, Every_Metabolite_Is_Formed_By_Each_Of_Its_Arrows)
{
    struct Way {
        std::initializer_list<int> Arrows;
        std::size_t Formed;
    };
    for (const auto& [arrows, formed] :
         {Way{{1}, 2}, Way{{2}, 3}, Way{{3}, 4}, Way{{2, 10}, 4}, Way{{4}, 5}, Way{{3, 14}, 5}, Way{{1, 7}, 6},
          Way{{1, 7, 22}, 7}, Way{{1, 8}, 7}, Way{{2, 11}, 7}, Way{{2, 12}, 8}, Way{{3, 15}, 8}, Way{{1, 8, 24}, 8},
          Way{{3, 16}, 9}, Way{{4, 19}, 9}, Way{{2, 12, 26}, 9}, Way{{1, 6, 10}, 4}, Way{{1, 6, 10, 14}, 5}})
        EXPECT_TRUE(With_Arrows(arrows)->Met_Present[formed])
            << "metabolite " << formed << " by arrow " << *(arrows.end() - 1);
}

TEST(Pathway, Reserved_Arrows_Form_Nothing)
{
    const auto document = With_Arrows({4, 18, 20});

    EXPECT_EQ(document->Met_Present, (Per_Substance<bool>{false, true, false, false, false, true}));
}

TEST(Pathway, A_Sink_Shows_Only_For_A_Present_Substance_With_A_Rate)
{
    EXPECT_EQ(With_Arrows({2, 5, 13, 29})->Bound_Active, (Per_Substance<bool>{false, true, false, true}));
    EXPECT_TRUE(With_Arrows({4, 19, 29})->Bound_Active[9]);
}

TEST(Pathway, A_Typed_Rate_Counts_As_Its_Number)
{
    auto document = With_Arrows({});
    document->Degradation[1][1].Deg_Rate = "0.0";
    document->Degradation[1][2].Deg_Rate = "0.02";

    Update_Pathway(*document);

    EXPECT_FALSE(document->Met_Present[2]);
    EXPECT_TRUE(document->Met_Present[3]);
}

TEST(Arrow_Table, Follows_The_Thresholds_And_Leaves_Reserved_Numbers_Without_A_Label)
{
    EXPECT_EQ(Arrow_Of(5).Source, 1);
    EXPECT_EQ(Arrow_Of(5).Row, 5);
    EXPECT_EQ(Arrow_Of(6).Source, 2);
    EXPECT_EQ(Arrow_Of(6).Row, 1);
    EXPECT_EQ(Arrow_Of(6).Label, "MET A1 to MET B1");
    EXPECT_EQ(Arrow_Of(29).Row, 2);
    EXPECT_EQ(Arrow_Of(29).Label, "MET D2 to CO2/BR");
    for (const int t : {18, 20, 28})
        EXPECT_EQ(Arrow_Of(t).Label, "");
}

TEST(Arrow_Table, The_Label_Names_The_Target)
{
    constexpr Per_Substance<std::string_view> names = {"CO2/BR", "AS",     "MET A1", "MET B1", "MET C1",
                                                       "MET D1", "MET A2", "MET B2", "MET C2", "MET D2"};
    for (int t = 1; t <= Last_Transformation; ++t) {
        const auto& arrow = Arrow_Of(t);
        if (arrow.Label.empty())
            continue;
        EXPECT_EQ(arrow.Label, std::string(names[static_cast<std::size_t>(arrow.Source)]) + " to " +
                                   std::string(names[static_cast<std::size_t>(arrow.Target)]));
    }
}

} // namespace orvel
