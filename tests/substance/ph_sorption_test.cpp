#include "substance/ph_sorption.h"

#include "pesticide_session.h"

namespace orvel {

using PH_Sorption = Pesticide_Session;

TEST_F(PH_Sorption, With_A_Single_pH_Opens_With_The_Box_Checked_And_The_Second_Pair_Hidden)
{
    Document.Sorp_pKa[1] = 4.5;
    Document.Sorp_pH[1] = 6;
    Document.Sorp_pH2[1] = -99;

    const auto entry = Load_PH(Document, 1, "120");

    EXPECT_EQ(entry, (PH_Entry{"120", "6", "", "", "4.5", true}));
    EXPECT_EQ(View_Of_PH(entry), (PH_View{.First_pH = true, .Second_Pair = false}));
}

TEST_F(PH_Sorption, With_Two_pH_Values_Shows_Both_Pairs)
{
    Document.Sorp_pKa[4] = 4.5;
    Document.Koc2[4] = 30;
    Document.Sorp_pH2[4] = 8;

    auto entry = Load_PH(Document, 4, "0.7");
    EXPECT_FALSE(entry.s_Dataset);
    EXPECT_EQ(View_Of_PH(entry), (PH_View{true, true}));

    entry.s_Dataset = true;
    EXPECT_EQ(View_Of_PH(entry), (PH_View{true, false}));
}

TEST_F(PH_Sorption, A_pKa_Of_20_Shows_Koc_And_pKa_Only_And_Hides_The_Note)
{
    auto entry = Load_PH(Document, 1, "0");
    EXPECT_EQ(entry.s_pKa, "20");
    EXPECT_EQ(View_Of_PH(entry), (PH_View{false, false}));

    std::string text_koc0;
    Accept_PH(Document, 1, entry, text_koc0);
    EXPECT_FALSE(Shows_PH_Note(Document, 1));
}

TEST_F(PH_Sorption, A_pKa_Of_Zero_Hides_The_pH_Fields_Yet_Shows_The_Note)
{
    auto entry = Load_PH(Document, 1, "0");
    entry.s_pKa = "0";
    EXPECT_EQ(View_Of_PH(entry), (PH_View{false, false}));

    std::string text_koc0;
    Accept_PH(Document, 1, entry, text_koc0);
    EXPECT_TRUE(Shows_PH_Note(Document, 1));
}

TEST_F(PH_Sorption, A_Second_Pair_Left_Blank_Is_None)
{
    Document.Sorp_pKa[1] = 4.5;
    auto entry = Load_PH(Document, 1, "120");
    entry.s_Dataset = false; // shows the pair

    Accept_PH(Document, 1, entry, entry.s_KOC);

    EXPECT_EQ(Document.Koc2[1].Number(), -99);
    EXPECT_EQ(Document.Sorp_pH2[1].Number(), -99);
}

// pKa 20 in a file goes with -99 for the pH, which the field must not offer when the substance comes to dissociate.
TEST_F(PH_Sorption, A_First_pH_That_There_Is_Not_Is_Blank_Too)
{
    Document.Sorp_pKa[1] = 20;
    Document.Sorp_pH[1] = -99;

    auto entry = Load_PH(Document, 1, "120");
    EXPECT_EQ(entry.s_pH, "");
    std::string koc;
    Accept_PH(Document, 1, entry, koc);
    EXPECT_EQ(Document.Sorp_pH[1], Variant(-99));

    entry.s_pH = "6.5";
    Accept_PH(Document, 1, entry, koc);
    EXPECT_EQ(Document.Sorp_pH[1], Variant(6.5));
}

TEST_F(PH_Sorption, Is_Stored_As_Numbers_And_Gives_The_Substance_Form_Its_Koc)
{
    std::string text_koc0 = "120";

    Accept_PH(Document, 2, {"150.0", "5,5", "30", "8", "4.5", false}, text_koc0);

    EXPECT_EQ(Document.Koc[2], Variant(150));
    EXPECT_EQ(Document.Sorp_pH[2], Variant(5));
    EXPECT_EQ(Document.Koc2[2], Variant(30));
    EXPECT_EQ(Document.Sorp_pH2[2], Variant(8));
    EXPECT_EQ(Document.Sorp_pKa[2], Variant(4.5));
    EXPECT_EQ(text_koc0, "150");
}

TEST_F(PH_Sorption, A_Single_pH_Stores_Minus_99_Whatever_The_Field_Says)
{
    std::string text_koc0;

    Accept_PH(Document, 2, {"150", "5", "30", "8", "4.5", true}, text_koc0);

    EXPECT_EQ(Document.Sorp_pH2[2], Variant(-99));
}

} // namespace orvel
