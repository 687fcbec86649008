#include "run_fixture.h"
#include "runs/crops.h"

namespace orvel {

using Crops_Test = Run_Test;
using Texts = std::vector<std::string>;

namespace {

constexpr int Second_Separator = 26;

} // namespace

TEST_F(Crops_Test, Locations_Are_Those_With_A_Scenario_File_In_The_Class_Of_The_Crop)
{
    Scenario(Home / "focus" / "C_maize.sze");
    Scenario(Home / "focus" / "h_maize.sze");
    Scenario(Home / "focus" / "S_maize.sze");
    Scenario(Home / "focus" / "S_wcerea.sze");

    EXPECT_EQ(Locations_Of_Crop(The_Session.Program, Focus(), Maize),
              (Texts{"Ch\xE2teaudun (C), irrigated", "Hamburg (H)", "Sevilla (S), irrigated"}));
    EXPECT_EQ(Locations_Of_Crop(The_Session.Program, Focus(), Winter_Cereals), (Texts{"Sevilla (S), no irrigation"}));
}

TEST_F(Crops_Test, A_Crop_Without_Scenario_Files_Has_No_Locations)
{
    EXPECT_TRUE(Locations_Of_Crop(The_Session.Program, Focus(), Apples).empty());
}

TEST_F(Crops_Test, A_Separator_Has_No_Locations_In_Any_Mode)
{
    for (const auto* mode : {&Focus(), &Tier_2(), &Tier_4()}) {
        for (const int index : {First_Separator(), Second_Separator, -1, static_cast<int>(Crops.size())})
            EXPECT_TRUE(Locations_Of_Crop(The_Session.Program, *mode, Crop_At(index)).empty()) << index;
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

    EXPECT_EQ(Locations_Of_Crop(The_Session.Program, Tier_4(), Crop_Named("Onions")), onions_4);
    EXPECT_EQ(Locations_Of_Crop(The_Session.Program, Tier_2(), Crop_Named("Onions")).size(), 10u);
    EXPECT_EQ(Locations_Of_Crop(The_Session.Program, Tier_2(), Individual_Crop), individual_2);
    EXPECT_EQ(Locations_Of_Crop(The_Session.Program, Tier_4(), Individual_Crop).size(), 15u);
    EXPECT_EQ(Locations_Of_Crop(The_Session.Program, Tier_2(), Winter_Cereals).at(6),
              "Ch\xE2teaudun (C), no irrigation");
    EXPECT_EQ(Locations_Of_Crop(The_Session.Program, Tier_2(), Crop_Named("Cotton")), zones);
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
    const auto crop_of = [](const Mode& mode, std::string_view part) {
        const auto index = Crop_Of_Part(mode, "C", part);
        return index ? Crops[static_cast<std::size_t>(*index)].Text : "none";
    };

    EXPECT_EQ(crop_of(Focus(), "APPLES.SZE"), "Apples");
    EXPECT_EQ(crop_of(Focus(), "VINES.SZE"), "Vines");
    EXPECT_EQ(crop_of(Focus(), "NOTHING.SZE"), "none");
    EXPECT_EQ(crop_of(Focus(), "INDIV.SZE"), "Individual crop");
    EXPECT_EQ(crop_of(Tier_4(), "INDIVT4.SZE"), "Individual crop");
}

TEST_F(Crops_Test, Beans_Are_Vegetables_At_Thiva_And_Porto_And_Field_Beans_Elsewhere)
{
    EXPECT_EQ(Crop_Of_Part(Focus(), "T", "BEANS.SZE"), 7);
    EXPECT_EQ(Crop_Of_Part(Focus(), "O", "BEANS.SZE"), 7);
    EXPECT_EQ(Crop_Of_Part(Focus(), "H", "BEANS.SZE"), 6);
    EXPECT_EQ(Crop_Of_Part(Tier_4(), "T_N", "BEANS.SZE"), 6);
    EXPECT_EQ(Crop_Of_Part(Focus(), "", "BEANS.SZE"), 6);
}

TEST_F(Crops_Test, The_Individual_Crop_Has_A_Stem_Of_Its_Own_In_Tier_4)
{
    EXPECT_EQ(Choose_Run(Focus(), "", Individual_Crop, "Hamburg (H)").Scenario, "H_indiv.sze");
    EXPECT_EQ(Choose_Run(Tier_4(), "", Individual_Crop, "Hamburg (H)").Scenario, "H_indivT4.sze");
    EXPECT_EQ(Choose_Run(Tier_2(), "", Maize, "Hamburg (H)").Scenario, "_maize.sze");
}

TEST_F(Crops_Test, A_Crop_Is_Found_By_Its_Text_But_A_Separator_Is_Not)
{
    EXPECT_EQ(Crop_Named("Maize"), &Crops[14]);
    EXPECT_EQ(Crop_Named("winter cereals"), &Crops[4]);
    EXPECT_EQ(Crop_Named("--------------------------------------"), nullptr);
    EXPECT_EQ(Crop_Named("Corn"), nullptr);
}

TEST_F(Crops_Test, The_First_Separator_Parts_The_Crops_Of_All_Locations_From_The_Others)
{
    EXPECT_EQ(First_Separator(), 5);
    EXPECT_EQ(Crop_At(5), nullptr);
    EXPECT_EQ(Crop_At(Second_Separator), nullptr);
    EXPECT_EQ(Crop_At(4)->Text, "Winter cereals");
    EXPECT_EQ(Crop_At(6)->Text, "Beans (field)");
}

// Grass, citrus and the individual crop have no number.
TEST_F(Crops_Test, A_Crop_Number_Fits_One_Crop_And_None_Fits_Every_Crop)
{
    for (int index = 0; index < std::ssize(Crops); ++index) {
        const Crop& crop = Crops[static_cast<std::size_t>(index)];
        EXPECT_TRUE(Crop_Fits(0, crop));
        EXPECT_TRUE(Crop_Fits(-3, crop));
        EXPECT_EQ(Crop_Fits(1, crop), index == 0);
        for (int number = 2; number <= 4; ++number)
            EXPECT_EQ(Crop_Fits(number, crop), index == number) << number;
        for (int number = 5; number <= 9; ++number)
            EXPECT_EQ(Crop_Fits(number, crop), index == number + 1) << number;
        for (int number = 10; number <= 23; ++number)
            EXPECT_EQ(Crop_Fits(number, crop), index == number + 2) << number;
        EXPECT_FALSE(Crop_Fits(24, crop));
    }
}

TEST(Crops, A_Location_That_A_Crop_Lacks_Is_Told_With_What_It_Has_Instead)
{
    const std::vector<std::string> offered = {"Ch\xE2teaudun (C), no irrigation", "Hamburg (H)",
                                              "Thiva (T), no irrigation"};
    const auto told = [&](std::string_view location) {
        return No_Location_Text(Focus(), "Winter cereals", location, offered);
    };

    EXPECT_EQ(told("Thiva (T)"),
              "The crop 'Winter cereals' has no location 'Thiva (T)' in focus. It has 'Thiva (T), no irrigation'.");
    for (const char* meant : {"Thiva (T), irrigated", "thiva", "t"})
        EXPECT_TRUE(told(meant).ends_with(" in focus. It has 'Thiva (T), no irrigation'.")) << told(meant);
    EXPECT_EQ(told("Nowhere"), "The crop 'Winter cereals' has no location 'Nowhere' in focus. It has "
                               "'Ch\xE2teaudun (C), no irrigation', 'Hamburg (H)' and 'Thiva (T), no irrigation'.");
    EXPECT_EQ(No_Location_Text(Focus(), "Cotton", "Thiva (T)", {}),
              "The crop 'Cotton' has no location 'Thiva (T)' in focus. It has none.");
}

} // namespace orvel
