#include "substance/kinetic_sorption.h"

#include "pesticide_session.h"

namespace orvel {

namespace {

using enum Kinetic_Model;
using Kinetic_Sorption = Pesticide_Session;

Refusal Wrong(const char* text, const char* control)
{
    return {{"Wrong input parameter selection", text}, control};
}

} // namespace

TEST_F(Kinetic_Sorption, Always_Opens_In_The_PEARL_Notation)
{
    Document.F_neq[3] = 0.5;
    Document.K_des[3] = 0.01;

    EXPECT_EQ(Load_Kinetic(Document, 3), (Kinetic_Entry{"0.5", "0.01", PEARL}));
}

TEST_F(Kinetic_Sorption, Converts_To_STRECK_And_Back)
{
    Kinetic_Entry entry = {"1", "0.1", PEARL};

    EXPECT_EQ(Choose_Kinetic_Model(entry, STRECK), std::nullopt);
    EXPECT_EQ(entry, (Kinetic_Entry{"0.5", "0.05", STRECK}));

    EXPECT_EQ(Choose_Kinetic_Model(entry, PEARL), std::nullopt);
    EXPECT_EQ(entry, (Kinetic_Entry{"1", "0.1", PEARL}));
}

TEST_F(Kinetic_Sorption, A_STRECK_Fraction_Of_1_Does_Not_Turn_Back_So_That_Done_Stores_It_As_PEARL)
{
    Kinetic_Entry entry = {"0", "0.5", PEARL};

    Choose_Kinetic_Model(entry, STRECK);
    EXPECT_EQ(entry, (Kinetic_Entry{"1", "0", STRECK}));
    Choose_Kinetic_Model(entry, PEARL);
    EXPECT_EQ(entry, (Kinetic_Entry{"1", "0", PEARL}));

    EXPECT_EQ(Accept_Kinetic(Document, 1, entry), std::nullopt);
    EXPECT_EQ(Document.F_neq[1], 1);
    EXPECT_EQ(Document.K_des[1], 0);
}

TEST_F(Kinetic_Sorption, A_Second_Click_On_The_Same_Notation_Converts_Nothing)
{
    Kinetic_Entry entry = {"0.5", "0.05", STRECK};

    Choose_Kinetic_Model(entry, STRECK);

    EXPECT_EQ(entry, (Kinetic_Entry{"0.5", "0.05", STRECK}));
}

TEST_F(Kinetic_Sorption, The_Captions_Change_With_The_Notation)
{
    EXPECT_EQ(Captions_Of(PEARL), (Kinetic_Captions{"PEARL fraction of non-eq.-sites to eq.-sites (f_ne):",
                                                    "PEARL desorption rate 'kd' (1/d):"}));
    EXPECT_EQ(Captions_Of(STRECK), (Kinetic_Captions{"STRECK fraction of eq.-sites to all-sites (f_eq):",
                                                     "STRECK sorption rate 'alpha' (1/d):"}));
    EXPECT_EQ(Designed_Kinetic_Captions,
              (Kinetic_Captions{"Fraction  of non-eq sites to eq-sites", "Desorption rate (1/d):"}));
}

TEST_F(Kinetic_Sorption, Refuses_A_STRECK_Fraction_Of_Zero_But_Not_A_PEARL_One)
{
    EXPECT_EQ(Check_Kinetic_Fraction({"0", "0.1", STRECK}), Wrong("This fraction must be greater than 0.", "s_f_neq"));
    EXPECT_EQ(Check_Kinetic_Fraction({"0", "0.1", PEARL}), std::nullopt);
}

TEST_F(Kinetic_Sorption, Refuses_A_Negative_Fraction_Under_Both_Notations)
{
    EXPECT_EQ(Check_Kinetic_Fraction({"-0.1", "0.1", STRECK}),
              Wrong("This fraction cannot be smaller than 0.", "s_f_neq"));
    EXPECT_EQ(Check_Kinetic_Fraction({"-0.1", "0.1", PEARL}),
              Wrong("This fraction cannot be smaller than 0.", "s_f_neq"));
}

TEST_F(Kinetic_Sorption, Calls_A_Negative_Rate_A_Fraction_Too)
{
    EXPECT_EQ(Check_Kinetic_Rate({"0.1", "-1", PEARL}), Wrong("This fraction cannot be smaller than 0.", "s_kdes"));
    EXPECT_EQ(Check_Kinetic_Rate({"0.1", "0", PEARL}), std::nullopt);
}

TEST_F(Kinetic_Sorption, A_Refused_Fraction_Is_Not_Converted)
{
    Kinetic_Entry entry = {"0", "0.1", STRECK};

    EXPECT_TRUE(Choose_Kinetic_Model(entry, PEARL).has_value());
    EXPECT_EQ(entry, (Kinetic_Entry{"0", "0.1", STRECK}));
}

TEST_F(Kinetic_Sorption, Done_Stores_STRECK_Values_In_The_PEARL_Notation)
{
    EXPECT_EQ(Accept_Kinetic(Document, 2, {"0.25", "0.3", STRECK}), std::nullopt);

    EXPECT_DOUBLE_EQ(Document.F_neq[2], 3);
    EXPECT_DOUBLE_EQ(Document.K_des[2], 0.4);
    EXPECT_TRUE(Shows_Kinetic_Note(Document, 2));
}

TEST_F(Kinetic_Sorption, Done_At_A_STRECK_Fraction_Of_1_Keeps_The_Old_Rate)
{
    Document.K_des[2] = 0.7;

    EXPECT_EQ(Accept_Kinetic(Document, 2, {"1", "0.3", STRECK}), std::nullopt);

    EXPECT_EQ(Document.F_neq[2], 0);
    EXPECT_EQ(Document.K_des[2], 0.7);
    EXPECT_FALSE(Shows_Kinetic_Note(Document, 2));
}

TEST_F(Kinetic_Sorption, Done_Refuses_What_Would_Be_Stored_As_A_Negative_Fraction_Or_Rate)
{
    EXPECT_EQ(Accept_Kinetic(Document, 2, {"1.5", "0.3", STRECK}),
              Wrong("This fraction cannot be smaller than 0.", "s_f_neq"));
    EXPECT_EQ(Accept_Kinetic(Document, 2, {"0", "0.3", STRECK}),
              Wrong("This fraction must be greater than 0.", "s_f_neq"));
    EXPECT_EQ(Accept_Kinetic(Document, 2, {"1", "-0.3", PEARL}),
              Wrong("This fraction cannot be smaller than 0.", "s_kdes"));
    EXPECT_EQ(Document.F_neq[2], 0);
}

TEST_F(Kinetic_Sorption, A_Value_Beyond_The_Range_Is_Converted_Without_Failing)
{
    Kinetic_Entry entry = {"1E-320", "1E308", STRECK};

    Choose_Kinetic_Model(entry, PEARL);

    EXPECT_EQ(entry.s_f_neq, "1.79769313486232E+308");
}

} // namespace orvel
