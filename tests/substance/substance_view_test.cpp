#include "substance/substance_view.h"

#include "pesticide_session.h"

namespace orvel {

using Substance_View = Pesticide_Session;

TEST_F(Substance_View, A_Direct_Henry_Constant_Of_A_Soil_Application_Needs_No_Vapour_Pressure)
{
    EXPECT_EQ(View_Of_Volatilisation({.App_Flag = Application_Method::Soil, .Henry_Direct = true}),
              (Volatilisation_View{true, false, false, false}));
}

TEST_F(Substance_View, A_Foliar_Application_Shows_The_Vapour_Pressure_And_The_Plant_Surface)
{
    for (const auto method :
         {Application_Method::Linear, Application_Method::Exponential, Application_Method::Manually})
        EXPECT_EQ(View_Of_Volatilisation({.App_Flag = method, .Henry_Direct = true}),
                  (Volatilisation_View{true, true, false, true}));
}

TEST_F(Substance_View, A_Calculated_Henry_Constant_Shows_What_It_Is_Calculated_From)
{
    EXPECT_EQ(View_Of_Volatilisation({.App_Flag = Application_Method::Soil, .Henry_Direct = false}),
              (Volatilisation_View{false, true, true, false}));
}

TEST_F(Substance_View, A_Direct_Kf_Hides_Koc_And_Exponent)
{
    EXPECT_FALSE(View_Of_Sorption({.Kd_Direct = true}).Koc_Visible);
    EXPECT_TRUE(View_Of_Sorption({.Kd_Direct = false}).Koc_Visible);
}

TEST_F(Substance_View, Individual_Depth_Dependence_Shows_The_Horizons_And_Their_Button_From_One_On)
{
    EXPECT_EQ(View_Of_Sorption({.Text_nhor = "0", .Depth_Mode = 2, .Kf_Enabled = true}),
              (Sorption_View{true, true, false, true}));
    EXPECT_EQ(View_Of_Sorption({.Text_nhor = "2", .Depth_Mode = 2, .Kf_Enabled = true}),
              (Sorption_View{true, true, true, true}));
    EXPECT_EQ(View_Of_Sorption({.Text_nhor = "0", .Depth_Mode = 1}), (Sorption_View{true, false, false, false}));
}

TEST_F(Substance_View, Notes_Tell_What_Is_Considered)
{
    EXPECT_EQ(Notes_Of(Document, 2), (Sorption_Notes{false, false, false}));

    Document.Sorp_pKa[2] = 4.5;
    Document.F_neq[2] = 0.3;
    Document.Koc_Change[2] = 10;
    EXPECT_EQ(Notes_Of(Document, 2), (Sorption_Notes{true, true, true}));
}

TEST_F(Substance_View, The_Button_Names_What_A_Click_Would_Show)
{
    EXPECT_EQ(Command4_Caption(false), "Show all input parameters");
    EXPECT_EQ(Command4_Caption(true), "Show major input parameters");
}

TEST_F(Substance_View, The_Form_Of_A_Metabolite_Is_Named_By_Its_Place)
{
    EXPECT_EQ(Metabolite_Caption(2), "Metabolite A1");
    EXPECT_EQ(Metabolite_Caption(9), "Metabolite D2");
}

} // namespace orvel
