#include "substance/transformation.h"

#include "pesticide_session.h"
#include "substance/pathway.h"

namespace orvel {

using Transformation = Pesticide_Session;

TEST_F(Transformation, Shows_The_Row_Of_Its_Arrow)
{
    Document.Degradation[3][2] = {0.0693, 25, 2.2, 30, 0, 0.5, 0.1}; // arrow 11
    Document.Photo_Rate[2] = 0.0693;

    const auto entry = Load_Transformation(Document, 11);

    EXPECT_EQ(entry.Soil, (Rate_Texts{"0.0693", "10.0", "33.2"}));
    EXPECT_EQ(entry.Photolysis, (Rate_Texts{"0.0693", "10.0", "33.2"}));
    EXPECT_EQ(entry.Reference_Radiation, "500");
    EXPECT_EQ(entry.Correction, (Correction_Texts{"25", "2.2", "30", "0", "0.5", "0.1", false}));
}

TEST_F(Transformation, A_Temperature_Of_Zero_Shows_As_20_And_Is_Stored_As_20)
{
    Document.Degradation[1][1].Deg_Temp = 0;
    The_Session.Editor.Transformation_Index = 1;

    const auto entry = Load_Transformation(Document, 1);
    EXPECT_EQ(entry.Correction.Temperature, "20");

    Accept_Transformation(The_Session, entry);
    EXPECT_EQ(Document.Degradation[1][1].Deg_Temp.Number(), 20);
}

TEST_F(Transformation, A_Relative_Moisture_Of_Zero_Opens_With_The_Absolute_One)
{
    EXPECT_TRUE(Load_Transformation(Document, 1).Correction.By_Relative_Moisture);

    Document.Degradation[1][1].Deg_Moist_Rel = 0;
    EXPECT_FALSE(Load_Transformation(Document, 1).Correction.By_Relative_Moisture);
}

TEST_F(Transformation, An_Accepted_Entry_Is_Stored_Marks_The_Document_And_Derives_The_Pathway)
{
    The_Session.Editor.Transformation_Index = 2;
    auto entry = Load_Transformation(Document, 2);
    entry.Soil.Rate = "0.0693";
    entry.Photolysis.Rate = "0.01";
    entry.Reference_Radiation = "450";
    entry.Correction.Neq = "0.2";

    Accept_Transformation(The_Session, entry);

    EXPECT_EQ(Document.Degradation[1][2], (Degradation_Row{"0.0693", "20", "2.58", "0", "100", "0.7", 0.2}));
    EXPECT_EQ(Document.Photo_Rate[2], 0.01);
    EXPECT_EQ(Document.Photo_I_Ref[2], 450);
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
    EXPECT_TRUE(Document.Met_Present[3]);
}

TEST_F(Transformation, A_DT_50_Of_Zero_Removes_The_Arrow_Unless_Photolysis_Applies)
{
    Document.Degradation[1][1].Deg_Rate = 0.1;
    Update_Pathway(Document);
    The_Session.Editor.Transformation_Index = 1;
    auto entry = Load_Transformation(Document, 1);
    entry.Soil.DT50 = "0";
    Leave_Rate_Field(entry.Soil, Rate_Field::DT50);

    Accept_Transformation(The_Session, entry);
    EXPECT_FALSE(Document.Met_Present[2]);

    entry.Photolysis.Rate = "0.1";
    Accept_Transformation(The_Session, entry);
    EXPECT_TRUE(Document.Met_Present[2]);
}

TEST_F(Transformation, A_Rate_That_Is_Half_Typed_Takes_No_Arrow_Away)
{
    The_Session.Editor.Transformation_Index = 1;
    auto entry = Load_Transformation(Document, 1);
    entry.Soil.Rate = "0.05";
    Accept_Transformation(The_Session, entry);
    ASSERT_TRUE(Document.Met_Present[2]);

    entry.Soil.Rate = "";
    entry.Correction.Q10 = "2.2";
    Store_Half_Typed(The_Session, entry);
    EXPECT_EQ(Document.Degradation[1][1].Deg_Rate, Variant("0.05"));
    EXPECT_EQ(Document.Degradation[1][1].Deg_Q10, Variant("2.2"));
    EXPECT_TRUE(Document.Met_Present[2]);

    entry.Soil.Rate = "0.07";
    Store_Half_Typed(The_Session, entry);
    EXPECT_EQ(Document.Degradation[1][1].Deg_Rate, Variant("0.07"));
}

TEST_F(Transformation, A_Text_That_Is_No_Number_Is_Zero_In_The_Document_And_In_The_Pathway)
{
    The_Session.Editor.Transformation_Index = 1;
    auto entry = Load_Transformation(Document, 1);
    entry.Soil.Rate = "0,05";
    entry.Correction.Q10 = "abc";

    Accept_Transformation(The_Session, entry);

    EXPECT_EQ(Document.Degradation[1][1].Deg_Rate, Variant(0));
    EXPECT_EQ(Document.Degradation[1][1].Deg_Q10, Variant(0));
    EXPECT_FALSE(Document.Trans_Active[1]);
}

TEST_F(Transformation, The_Parameters_Of_A_Substance_That_Falls_Out_Of_The_Scheme_Stay)
{
    Document.Degradation[1][1].Deg_Rate = 0.1;
    Document.Degradation[2][1].Deg_Rate = 0.2;
    The_Session.Editor.Transformation_Index = 1;
    auto entry = Load_Transformation(Document, 1);
    entry.Soil.Rate = "0";

    Accept_Transformation(The_Session, entry);

    EXPECT_FALSE(Document.Met_Present[2]);
    EXPECT_EQ(Document.Degradation[2][1].Deg_Rate, Variant(0.2));
}

} // namespace orvel
