#include "run_fixture.h"
#include "runs/crops.h"

namespace orvel {

using Crops_Test = Run_Test;
using Texts = std::vector<std::string>;

TEST_F(Crops_Test, Locations_Are_Those_With_A_Scenario_File_In_The_Class_Of_The_Crop)
{
    Scenario(Home / "focus" / "C_maize.sze");
    Scenario(Home / "focus" / "h_maize.sze");
    Scenario(Home / "focus" / "S_maize.sze");
    Scenario(Home / "focus" / "S_wcerea.sze");

    EXPECT_EQ(Locations_Of_Crop(The_Session, Focus(), Maize),
              (Texts{"Ch\xE2teaudun (C), irrigated", "Hamburg (H)", "Sevilla (S), irrigated"}));
    EXPECT_EQ(Locations_Of_Crop(The_Session, Focus(), Winter_Cereals), (Texts{"Sevilla (S), no irrigation"}));
}

TEST_F(Crops_Test, A_Crop_Without_Scenario_Files_Has_No_Locations)
{
    EXPECT_TRUE(Locations_Of_Crop(The_Session, Focus(), Apples).empty());
}

TEST_F(Crops_Test, A_Separator_Has_No_Locations_In_Any_Mode)
{
    for (const auto* mode : {&Focus(), &Tier_2(), &Tier_4()}) {
        EXPECT_TRUE(Locations_Of_Crop(The_Session, *mode, First_Separator).empty());
        EXPECT_TRUE(Locations_Of_Crop(The_Session, *mode, Second_Separator).empty());
        EXPECT_TRUE(Locations_Of_Crop(The_Session, *mode, -1).empty());
        EXPECT_TRUE(Locations_Of_Crop(The_Session, *mode, Crop_Entries).empty());
    }
}

TEST_F(Crops_Test, The_Soil_Modes_Add_The_Letters_Of_Their_Table_Behind_The_Six_Zones)
{
    const Texts zones{"Total content - North (T_N)",
                      "Total content - Central (T_C)",
                      "Total content - South (T_S)",
                      "Porewater concentration - North (P_N)",
                      "Porewater concentration - Central (P_C)",
                      "Porewater concentration - South (P_S)"};
    Texts onions_4 = zones, individual_2 = zones;
    onions_4.insert(onions_4.end(), {"Ch\xE2teaudun (C), irrigated", "Hamburg (H)", "Jokioinen (J)",
                                     "Kremsm\xFCnster (K)", "Porto (O), irrigated"});

    EXPECT_EQ(Locations_Of_Crop(The_Session, Tier_4(), 17), onions_4);
    EXPECT_EQ(Locations_Of_Crop(The_Session, Tier_2(), 17).size(), 10u);
    EXPECT_EQ(Locations_Of_Crop(The_Session, Tier_2(), Individual_Crop), individual_2);
    EXPECT_EQ(Locations_Of_Crop(The_Session, Tier_4(), Individual_Crop).size(), 15u);
    EXPECT_EQ(Locations_Of_Crop(The_Session, Tier_2(), Winter_Cereals).at(6), "Ch\xE2teaudun (C), no irrigation");
    EXPECT_EQ(Locations_Of_Crop(The_Session, Tier_2(), 12), zones); // cotton
}

TEST_F(Crops_Test, The_Code_Of_A_Location_Is_Its_Text_In_Brackets_Where_The_Mode_Knows_It)
{
    EXPECT_EQ(Code_Of_Location(Focus(), "Ch\xE2teaudun (C), irrigated"), "C");
    EXPECT_EQ(Code_Of_Location(Focus(), "Ch\xE2teaudun (C), no irrigation"), "C");
    EXPECT_EQ(Code_Of_Location(Tier_2(), "Total content - North (T_N)"), "T_N");
    EXPECT_EQ(Code_Of_Location(Tier_2(), "Hamburg (H)"), "");
    EXPECT_EQ(Code_Of_Location(Tier_4(), "Hamburg (H)"), "H");
    EXPECT_EQ(Code_Of_Location(Focus(), "Total content - North (T_N)"), "");
    EXPECT_EQ(Code_Of_Location(Focus(), "Elsewhere (X)"), "");
}

TEST_F(Crops_Test, A_Scenario_Name_Leads_Back_To_Its_Crop)
{
    EXPECT_EQ(Crop_Of_Part(Focus(), "C", "APPLES.SZE"), Apples);
    EXPECT_EQ(Crop_Of_Part(Focus(), "C", "VINES.SZE"), 25);
    EXPECT_EQ(Crop_Of_Part(Focus(), "C", "NOTHING.SZE"), -1);
    EXPECT_EQ(Crop_Of_Part(Focus(), "C", "INDIV.SZE"), Individual_Crop);
    EXPECT_EQ(Crop_Of_Part(Tier_4(), "C", "INDIVT4.SZE"), Individual_Crop);
}

TEST_F(Crops_Test, Beans_Are_Vegetables_At_Thiva_And_Porto_And_Field_Beans_Elsewhere)
{
    EXPECT_EQ(Crop_Of_Part(Focus(), "T", "BEANS.SZE"), 7);
    EXPECT_EQ(Crop_Of_Part(Focus(), "O", "BEANS.SZE"), 7);
    EXPECT_EQ(Crop_Of_Part(Focus(), "H", "BEANS.SZE"), 6);
}

TEST_F(Crops_Test, The_Individual_Crop_Has_A_Stem_Of_Its_Own_In_Tier_4)
{
    EXPECT_EQ(Scenario_Name(Focus(), Individual_Crop, "Hamburg (H)"), "H_indiv.sze");
    EXPECT_EQ(Scenario_Name(Tier_4(), Individual_Crop, "Hamburg (H)"), "H_indivT4.sze");
    EXPECT_EQ(Scenario_Name(Tier_2(), Maize, "Hamburg (H)"), "_maize.sze");
}

TEST_F(Crops_Test, A_Crop_Is_Found_By_Its_Text_But_A_Separator_Is_Not)
{
    EXPECT_EQ(Crop_Index("Maize"), Maize);
    EXPECT_EQ(Crop_Index("winter cereals"), Winter_Cereals);
    EXPECT_FALSE(Crop_Index("--------------------------------------"));
    EXPECT_FALSE(Crop_Index("Corn"));
}

} // namespace orvel
