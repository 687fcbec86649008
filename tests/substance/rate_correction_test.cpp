#include "substance/rate_correction.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Rate_Correction, Is_Recommended_Whatever_The_Non_Equilibrium_Sites_Are)
{
    EXPECT_EQ(Recognise_Correction({"20", "2.58", "0", "100", "0.7", "0.1"}), Correction::Recommended);
    EXPECT_EQ(Recognise_Correction({"20.0", "2.580", "5", "100", ".7", "0"}), Correction::Recommended);
}

TEST(Rate_Correction, Is_None_With_Q10_Of_1_Without_A_Moisture_Exponent_And_Without_Non_Equilibrium_Sites)
{
    EXPECT_EQ(Recognise_Correction({"15", "1.0", "0", "50", "0", "0"}), Correction::None);
    EXPECT_EQ(Recognise_Correction({"20", "1.0", "0", "100", "0", "0.1"}), Correction::Individual);
}

TEST(Rate_Correction, Is_Individual_For_Any_Other_Values)
{
    EXPECT_EQ(Recognise_Correction({"25", "2.58", "0", "100", "0.7", "0"}), Correction::Individual);
    EXPECT_EQ(Recognise_Correction({"20", "2.2", "0", "100", "0.7", "0"}), Correction::Individual);
    EXPECT_EQ(Recognise_Correction({"20", "2.58", "30", "0", "0.7", "0"}), Correction::Individual);
    EXPECT_EQ(Recognise_Correction({"20", "2.58", "0", "100", "0", "0"}), Correction::Individual);
}

TEST(Rate_Correction, Locks_All_On_Activation_Of_A_Preset_And_One_Moisture_Of_An_Individual_One)
{
    EXPECT_EQ(Enabled_On_Activation({}), (Correction_Enabled{false, false, false, false}));
    EXPECT_EQ(Enabled_On_Activation({.Q10 = "2", .By_Relative_Moisture = true}),
              (Correction_Enabled{true, false, true, true}));
    EXPECT_EQ(Enabled_On_Activation({.Q10 = "2", .By_Relative_Moisture = false}),
              (Correction_Enabled{true, true, false, true}));
}

TEST(Rate_Correction, A_Preset_Puts_Its_Values_And_Relative_Moisture)
{
    Correction_Texts texts = {"25", "2", "30", "0", "0.5", "0.3", false};

    EXPECT_EQ(Choose_Correction(texts, Correction::None), (Correction_Enabled{false, false, false, false}));
    EXPECT_EQ(texts, (Correction_Texts{"20", "1.0", "0", "100", "0.0", "0.0", true}));

    EXPECT_EQ(Choose_Correction(texts, Correction::Recommended), (Correction_Enabled{false, false, false, false}));
    EXPECT_EQ(texts, (Correction_Texts{"20", "2.58", "0", "100", "0.7", "0.0", true}));
}

TEST(Rate_Correction, An_Individual_One_Keeps_The_Values_And_Opens_Both_Moistures)
{
    Correction_Texts texts;

    EXPECT_EQ(Choose_Correction(texts, Correction::Individual), (Correction_Enabled{true, true, true, true}));
    EXPECT_EQ(texts, Correction_Texts{});
}

TEST(Rate_Correction, A_Moisture_Option_Opens_Its_Field_With_An_Individual_Correction_Only)
{
    Correction_Texts texts;

    EXPECT_EQ(Choose_Moisture(texts, false, Correction::Individual), (Correction_Enabled{true, true, false, true}));
    EXPECT_FALSE(texts.By_Relative_Moisture);
    EXPECT_EQ(Choose_Moisture(texts, true, Correction::Individual), (Correction_Enabled{true, false, true, true}));
    EXPECT_EQ(Choose_Moisture(texts, true, Correction::None), (Correction_Enabled{false, false, false, false}));
}

TEST(Rate_Correction, Leaves_At_Most_One_Moisture_Above_Zero)
{
    Correction_Texts texts = {.Moisture_Abs = "30", .Moisture_Rel = "100"};
    Leave_Absolute_Moisture(texts);
    EXPECT_EQ(texts.Moisture_Rel, "0");

    texts.Moisture_Rel = "50";
    Leave_Relative_Moisture(texts);
    EXPECT_EQ(texts.Moisture_Abs, "0");

    Leave_Absolute_Moisture(texts);
    EXPECT_EQ(texts.Moisture_Rel, "50");
}

} // namespace orvel
