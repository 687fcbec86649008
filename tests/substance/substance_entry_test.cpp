#include "substance/substance_entry.h"

#include "pesticide_session.h"
#include "substance/horizon_table.h"

namespace orvel {

using Substance_Form = Pesticide_Session;

TEST_F(Substance_Form, Shows_The_Fields_Of_Its_Substance)
{
    Document.Molmass[3] = 250.5;
    Document.K_doc[3] = 12;
    Document.Kd_Flag[3] = 0;
    Document.Deg_Depth_Mode[3] = 2;
    Document.Deg_Liquid_Only[3] = 1;
    Document.N_Horizons = 4;

    EXPECT_EQ(Load_Substance(Document, 3), (Substance_Entry{"Metabolite B1", "250.5", "0.5", "0.7", "0.9", "0.01", "0",
                                                            "12", "1", "4", true, 2, true, true}));
}

TEST_F(Substance_Form, Of_A_Metabolite_Passes_With_A_Molar_Mass_Of_Zero)
{
    auto entry = Load_Substance(Document, 4);
    entry.Text_mol = "0";
    entry.Name = "Sulfone";

    Accept_Metabolite(The_Session, 4, entry);

    EXPECT_EQ(Document.Molmass[4].Number(), 0);
    EXPECT_EQ(Document.Substance_Name[4], "Sulfone");
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
}

TEST_F(Substance_Form, Stores_A_Number_As_Typed_And_Any_Other_Text_As_The_Number_That_Is_Read)
{
    auto entry = Load_Substance(Document, 2);
    entry.Text_koc0 = " 120.50 ";
    entry.Text_koc1 = "0,9";
    entry.text_uptkf = "none";
    entry.text_kdoc = "1.5 L/kg";
    entry.Kd_Direct = true;
    entry.Depth_Mode = 1;
    entry.Liquid_Only = true;

    Store_Substance(Document, 2, entry);

    EXPECT_EQ(Document.Koc[2], Variant("120.50"));
    EXPECT_EQ(Document.Fr_Exp[2], Variant(0));
    EXPECT_EQ(Document.Plant_Uptake[2], Variant(0));
    EXPECT_EQ(Document.K_doc[2], 1.5);
    EXPECT_EQ(Document.Kd_Flag[2], Variant(0));
    EXPECT_EQ(Document.Deg_Depth_Mode[2], 1);
    EXPECT_EQ(Document.Deg_Liquid_Only[2], 1);
}

TEST_F(Substance_Form, All_But_Individual_Depth_Dependence_Sets_The_Horizons_To_Zero_And_The_Kf_To_Calculated)
{
    for (const int mode : {0, 1}) {
        Substance_Entry entry = {.Text_nhor = "3", .Kd_Direct = true, .Depth_Mode = 2, .Kf_Enabled = true};

        Choose_Depth_Mode(entry, mode);

        EXPECT_EQ(entry,
                  (Substance_Entry{.Text_nhor = "0", .Kd_Direct = false, .Depth_Mode = mode, .Kf_Enabled = false}));
    }
}

TEST_F(Substance_Form, Individual_Depth_Dependence_Opens_The_Choice_Of_The_Kf)
{
    Substance_Entry entry = {.Text_nhor = "0"};

    Choose_Depth_Mode(entry, 2);

    EXPECT_EQ(entry, (Substance_Entry{.Text_nhor = "0", .Depth_Mode = 2, .Kf_Enabled = true}));
}

TEST_F(Substance_Form, A_Number_Of_Horizons_Resets_The_Table_Even_If_It_Is_The_Number_It_Had)
{
    Document.N_Horizons = 3;
    Reset_Horizon_Table(Document, 3);
    Document.Horizons[2].Hor_Kd[1] = 5;
    Document.Horizons[2].Hor_Deg[4][1] = 0.5;
    auto entry = Load_Substance(Document, 1);

    EXPECT_EQ(Leave_Number_Of_Horizons(Document, entry), std::nullopt);

    EXPECT_EQ(Document.Horizons.size(), 5U);
    EXPECT_EQ(Document.Horizons[2].Hor_Kd[1], Variant(0));
    EXPECT_EQ(Document.Horizons[2].Hor_Deg[4][1], Variant(1));
    EXPECT_TRUE(entry.Kf_Enabled);
}

TEST_F(Substance_Form, No_Horizons_Close_The_Choice_Of_The_Kf_And_Keep_The_Table)
{
    Reset_Horizon_Table(Document, 3);
    Document.Horizons[2].Hor_Kd[1] = 5;
    Substance_Entry entry = {.Text_nhor = "0", .Kd_Direct = true, .Depth_Mode = 2, .Kf_Enabled = true};

    EXPECT_EQ(Leave_Number_Of_Horizons(Document, entry), std::nullopt);

    EXPECT_FALSE(entry.Kf_Enabled);
    EXPECT_FALSE(entry.Kd_Direct);
    EXPECT_EQ(Document.Horizons[2].Hor_Kd[1], Variant(5));
}

TEST_F(Substance_Form, Refuses_More_Horizons_Than_A_Soil_Can_Have)
{
    Reset_Horizon_Table(Document, 3);
    Substance_Entry entry = {.Text_nhor = "1E9"};

    EXPECT_EQ(Leave_Number_Of_Horizons(Document, entry),
              (Refusal{{"Data check", "Number of horizons must not exceed 400"}, "Text_nhor"}));
    EXPECT_EQ(Document.Horizons.size(), 5U);
    EXPECT_EQ(Horizons_Typed(entry), 400);
}

TEST_F(Substance_Form, Grows_The_Table_For_Its_Number_Of_Horizons_And_Keeps_It_Within_Bounds)
{
    auto entry = Load_Substance(Document, 2);
    entry.Text_nhor = "3";
    Store_Substance(Document, 2, entry);
    EXPECT_EQ(Document.N_Horizons, Variant("3"));
    EXPECT_GE(Document.Horizons.size(), 5U);

    entry.Text_nhor = "-2";
    Store_Substance(Document, 2, entry);
    EXPECT_EQ(Document.N_Horizons, Variant(0));

    entry.Text_nhor = "2.5";
    Store_Substance(Document, 2, entry);
    EXPECT_EQ(Document.N_Horizons, Variant(2));
}

} // namespace orvel
