#include "scenario/crop_rotation.h"

#include "files/scenario_file.h"
#include "scenario/saving.h"

#include <gtest/gtest.h>

#include <random>

namespace orvel {

namespace {

using enum Crop_Stage;

// Emergence, maturation, harvest, senescence, tillage.
Rotation_Row Row_Of(Crop_Date emergence, Crop_Date maturation, Crop_Date harvest, Crop_Date senescence,
                    Crop_Date tillage, std::int16_t crop)
{
    Rotation_Row row;
    Set_Date(row, Emergence, emergence);
    Set_Date(row, Maturation, maturation);
    Set_Date(row, Harvest, harvest);
    Set_Date(row, Senescence, senescence);
    Set_Date(row, Tillage, tillage);
    row.SZE_Rot_Crop_Index = crop;
    return row;
}

// A summer crop without tillage and one with it, and a winter crop without.
Rotation_Work Work()
{
    Rotation_Work work;
    work.Data_Base = {
        {"Maize", {}, Row_Of({5, 5, 1}, {30, 7, 1}, {20, 9, 1}, {1, 9, 1}, {30, 4, 1}, 1), 0},
        {"Potatoes", {}, Row_Of({10, 5, 1}, {20, 7, 1}, {15, 9, 1}, {31, 8, 1}, {5, 5, 1}, 2), 1},
        {"Winter cereals", {}, Row_Of({1, 11, 1}, {1, 6, 2}, {10, 8, 2}, {15, 7, 2}, {27, 10, 1}, 3), 0},
    };
    work.Crops.resize(3);
    work.Crops[1].SZE_Rot_Tillage = 1;
    return work;
}

constexpr std::size_t Maize = 0, Potatoes = 1, Winter_Cereals = 2;

std::vector<int> Years(const Rotation_Work& work, Crop_Stage stage)
{
    std::vector<int> years;
    for (const auto& row : work.Rows)
        years.push_back(Date_Of(row, stage).Year);
    return years;
}

TEST(Crop_Rotation, A_Second_Crop_Of_The_Same_Season_Moves_A_Year_On_With_All_Its_Dates)
{
    auto work = Work();
    Rot_Append(work, Maize);
    Rot_Append(work, Maize);
    Rot_Append(work, Maize);

    for (const auto stage : {Emergence, Maturation, Harvest, Senescence})
        EXPECT_EQ(Years(work, stage), (std::vector{1, 2, 3}));
}

TEST(Crop_Rotation, A_Winter_Crop_Pushes_The_Next_One_Behind_Its_Harvest)
{
    auto work = Work();
    Rot_Append(work, Winter_Cereals); // harvest 10.8. of year 2
    Rot_Append(work, Winter_Cereals); // emergence 1.11.: still year 2
    Rot_Append(work, Maize);          // harvest before in August of year 3: May of year 4

    EXPECT_EQ(Years(work, Emergence), (std::vector{1, 2, 4}));
    EXPECT_EQ(Years(work, Harvest), (std::vector{2, 3, 4}));
}

TEST(Crop_Rotation, A_Tilled_Crop_Is_Moved_By_Its_Tillage)
{
    auto work = Work();
    Rot_Append(work, Maize);
    Rot_Append(work, Potatoes);

    EXPECT_EQ(Years(work, Tillage), (std::vector{1, 2}));
    EXPECT_EQ(Years(work, Emergence), (std::vector{1, 2}));
    EXPECT_EQ(Years(work, Harvest), (std::vector{1, 2}));
}

TEST(Crop_Rotation, A_Crop_Without_Tillage_Has_No_Tillage_Test_Whatever_Its_Tillage_Fields_Hold)
{
    auto work = Work();
    Rot_Append(work, Maize);
    Set_Date(work.Rows[0], Tillage, {30, 4, 50});

    Check_Rotation_Dates(work, 1);

    EXPECT_EQ(Date_Of(work.Rows[0], Emergence), (Crop_Date{5, 5, 1}));
}

TEST(Crop_Rotation, A_Tillage_Behind_The_Emergence_Moves_The_Emergence)
{
    auto work = Work();
    Rot_Append(work, Potatoes);
    Set_Date(work.Rows[0], Tillage, {5, 5, 3});

    Check_Rotation_Dates(work, 1);

    EXPECT_EQ(Years(work, Emergence), std::vector{3});
    EXPECT_EQ(Years(work, Harvest), std::vector{3});
}

TEST(Crop_Rotation, Equal_Harvest_And_Next_Emergence_Stay_In_The_Same_Year)
{
    auto work = Work();
    Rot_Append(work, Maize);
    Set_Date(work.Rows[0], Harvest, {1, 11, 1});

    Rot_Append(work, Winter_Cereals); // emergence on 1.11. too

    EXPECT_EQ(Years(work, Emergence), (std::vector{1, 1}));
}

TEST(Crop_Rotation, Senescence_Stands_Before_Harvest_In_The_Chain)
{
    auto work = Work();
    Rot_Append(work, Maize);
    Set_Date(work.Rows[0], Senescence, {21, 9, 1}); // the harvest is on 20.9.

    Check_Rotation_Dates(work, 1);

    EXPECT_EQ(Years(work, Senescence), std::vector{1});
    EXPECT_EQ(Years(work, Harvest), std::vector{2});
}

TEST(Crop_Rotation, A_Next_Row_Of_All_Zero_Dates_Is_Left_Alone)
{
    auto work = Work();
    Rot_Append(work, Maize);
    work.Rows.push_back({.SZE_Rot_Crop_Index = 1});
    work.Rows.push_back({.SZE_Rot_Crop_Index = 2});

    Check_Rotation_Dates(work, 3);

    EXPECT_EQ(Years(work, Emergence), (std::vector{1, 0, 0}));
    EXPECT_EQ(Years(work, Harvest), (std::vector{1, 0, 0}));
}

TEST(Crop_Rotation, A_Count_Above_2_Starts_That_Many_Rows_Before_The_End)
{
    auto work = Work();
    for (int i = 0; i < 4; ++i)
        Rot_Append(work, Maize);
    Set_Date(work.Rows[0], Harvest, {20, 9, 9}); // wrong, but before the start

    auto late = work;
    Check_Rotation_Dates(late, 3);
    EXPECT_EQ(Years(late, Emergence), (std::vector{1, 2, 3, 4}));

    Check_Rotation_Dates(work, 2); // below 3 all rows count
    EXPECT_EQ(Years(work, Emergence), (std::vector{1, 10, 11, 12}));
}

// The chain's rules one by one, each change starting over.
bool One_Change(Rotation_Work& work)
{
    const auto key = [&](std::size_t i, Crop_Stage stage) { return Date_Key(Date_Of(work.Rows[i], stage)); };
    const auto later = [&](std::size_t i, Crop_Stage stage) {
        auto date = Date_Of(work.Rows[i], stage);
        ++date.Year;
        Set_Date(work.Rows[i], stage, date);
        return true;
    };
    for (std::size_t i = 0; i < work.Rows.size(); ++i) {
        if (Is_Tilled(work, i) && key(i, Tillage) > key(i, Emergence))
            return later(i, Emergence);
        if (key(i, Emergence) > key(i, Maturation))
            return later(i, Maturation);
        if (key(i, Maturation) > key(i, Senescence))
            return later(i, Senescence);
        if (key(i, Senescence) > key(i, Harvest))
            return later(i, Harvest);
        if (i + 1 == work.Rows.size())
            continue;
        const auto first = Is_Tilled(work, i + 1) ? Tillage : Emergence;
        if (key(i + 1, first) != 0 && key(i, Harvest) > key(i + 1, first))
            return later(i + 1, first);
    }
    return false;
}

TEST(Crop_Rotation, The_Roll_Forward_Ends_Where_Starting_Over_After_Each_Year_Would_End)
{
    std::mt19937 random(7);
    const auto up_to = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    for (int round = 0; round < 300; ++round) {
        auto work = Work();
        for (int r = 0; r < 6; ++r) {
            Rotation_Row row;
            row.SZE_Rot_Crop_Index = static_cast<std::int16_t>(up_to(4));
            for (const auto& stage : Crop_Stages) {
                if (up_to(5) > 0)
                    Set_Date(row, stage.Stage, {up_to(31), up_to(13), up_to(4)});
            }
            work.Rows.push_back(row);
        }
        auto expected = work;
        while (One_Change(expected)) {
        }

        Check_Rotation_Dates(work, static_cast<int>(work.Rows.size()));

        ASSERT_EQ(work.Rows, expected.Rows) << round;
    }
}

TEST(Crop_Rotation, Dates_That_No_Calendar_Has_End_The_Roll_Forward_Too)
{
    auto work = Work();
    Rot_Append(work, Maize);
    Rot_Append(work, Maize);
    Set_Date(work.Rows[0], Emergence, {32767, 32767, 32767});
    Set_Date(work.Rows[1], Emergence, {-5, -5, -32768});

    Check_Rotation_Dates(work, 2);

    EXPECT_EQ(Date_Of(work.Rows[0], Harvest).Year, 32767);
}

TEST(Crop_Rotation, Inserting_Moves_The_Rows_From_The_Selected_One_On)
{
    auto work = Work();
    Rot_Append(work, Maize);
    Rot_Append(work, Maize);

    EXPECT_EQ(Rot_Insert(work, 1, Potatoes), 1U);

    EXPECT_EQ(Rotation_Name(work, 0), "Maize");
    EXPECT_EQ(Rotation_Name(work, 1), "Potatoes");
    EXPECT_EQ(Rotation_Name(work, 2), "Maize");
    EXPECT_EQ(Years(work, Harvest), (std::vector{1, 2, 3}));
    EXPECT_TRUE(Is_Tilled(work, 1));
    EXPECT_FALSE(Is_Tilled(work, 0));
}

TEST(Crop_Rotation, Removing_The_Middle_Of_Three_Yearly_Crops_Pulls_The_Third_Back_By_One_Year)
{
    auto work = Work();
    for (int i = 0; i < 3; ++i)
        Rot_Append(work, Potatoes);

    EXPECT_EQ(Rot_Remove(work, 1), 1U);

    EXPECT_EQ(Years(work, Tillage), (std::vector{1, 2}));
    EXPECT_EQ(Years(work, Emergence), (std::vector{1, 2}));
    EXPECT_EQ(Years(work, Maturation), (std::vector{1, 2}));
    EXPECT_EQ(Years(work, Harvest), (std::vector{1, 2}));
}

TEST(Crop_Rotation, A_Closed_Gap_Takes_The_Year_Of_Senescence_Along)
{
    auto work = Work();
    for (int i = 0; i < 3; ++i)
        Rot_Append(work, Potatoes);

    Rot_Remove(work, 1);

    EXPECT_EQ(Years(work, Senescence), (std::vector{1, 2}));
}

TEST(Crop_Rotation, An_Untilled_Crop_Closes_The_Gap_By_Its_Emergence_And_Keeps_A_Tillage_That_Nobody_Sees)
{
    auto work = Work();
    for (int i = 0; i < 3; ++i)
        Rot_Append(work, Maize);
    ASSERT_EQ(Years(work, Emergence), (std::vector{1, 2, 3}));
    ASSERT_EQ(Years(work, Tillage), (std::vector{1, 1, 1}));

    Rot_Remove(work, 1);
    EXPECT_EQ(Years(work, Emergence), (std::vector{1, 2}));
    EXPECT_EQ(Years(work, Harvest), (std::vector{1, 2}));

    Rot_Remove(work, 0);
    EXPECT_EQ(Years(work, Emergence), std::vector{1});
    EXPECT_EQ(Years(work, Tillage), std::vector{1});
}

TEST(Crop_Rotation, A_Gap_Is_Closed_Down_To_The_Year_Of_The_Harvest_If_The_Next_Crop_Begins_Behind_It)
{
    auto work = Work();
    Rot_Append(work, Maize); // harvest 20.9. of year 1
    Rot_Append(work, Maize);
    Rot_Append(work, Winter_Cereals); // emergence 1.11. of year 2

    Rot_Remove(work, 1);

    EXPECT_EQ(Years(work, Emergence), (std::vector{1, 1}));
}

TEST(Crop_Rotation, Removing_The_First_Row_Takes_The_Next_One_Back_To_The_First_Year_Of_The_Data_Base)
{
    auto work = Work();
    for (int i = 0; i < 3; ++i)
        Rot_Append(work, Potatoes);

    EXPECT_EQ(Rot_Remove(work, 0), 0U);

    EXPECT_EQ(Years(work, Tillage), (std::vector{1, 2}));
    EXPECT_EQ(Years(work, Harvest), (std::vector{1, 2}));
}

TEST(Crop_Rotation, With_A_Data_Base_That_Counts_From_0_Removing_The_First_Row_Takes_The_Tillage_Year_Off_All_Years)
{
    auto work = Work();
    work.Data_Base[Potatoes].Default_Dates = Row_Of({10, 5, 0}, {20, 7, 0}, {15, 9, 0}, {31, 8, 0}, {5, 5, 0}, 2);
    for (int i = 0; i < 3; ++i)
        Rot_Append(work, Potatoes);
    ASSERT_EQ(Years(work, Tillage), (std::vector{0, 1, 2}));

    Rot_Remove(work, 0);

    EXPECT_EQ(Years(work, Tillage), (std::vector{0, 1}));
    EXPECT_EQ(Years(work, Harvest), (std::vector{0, 1}));
}

TEST(Crop_Rotation, A_Date_That_No_Year_Has_Is_Hinted_At_Where_It_Is_Seen)
{
    auto work = Work();
    Rot_Append(work, Maize);
    EXPECT_EQ(Rotation_Date_Hints(work, 0), "");

    Set_Date(work.Rows[0], Emergence, {30, 2, 1});
    Set_Date(work.Rows[0], Harvest, {31, 9, 1});
    Set_Date(work.Rows[0], Tillage, {31, 4, 1}); // not tilled

    EXPECT_EQ(Rotation_Date_Hints(work, 0), "Emergence: February has no day 30.\nHarvest: September has no day 31.");
}

TEST(Crop_Rotation, Removing_The_Last_Row_Selects_The_Row_Before_It)
{
    auto work = Work();
    Rot_Append(work, Maize);
    Rot_Append(work, Maize);

    EXPECT_EQ(Rot_Remove(work, 1), 0U);
    EXPECT_EQ(Years(work, Harvest), std::vector{1});
}

TEST(Crop_Rotation, Removing_The_Only_Row_Leaves_An_Empty_List)
{
    auto work = Work();
    Rot_Append(work, Maize);

    EXPECT_EQ(Rot_Remove(work, 0), std::nullopt);
    EXPECT_TRUE(work.Rows.empty());
    Rot_Close_Gap(work, 0);
}

TEST(Crop_Rotation, A_Date_Control_Stores_In_The_Selected_Row)
{
    auto work = Work();
    Rot_Append(work, Maize);
    for (const auto& stage : Crop_Stages) {
        Set_Day(work, 0, stage.Stage, "7");
        Set_Month(work, 0, stage.Stage, 10); // NOV
        Set_Year(work, 0, stage.Stage, " 4th");
        EXPECT_EQ(Date_Of(work.Rows[0], stage.Stage), (Crop_Date{7, 11, 4})) << stage.Label;
    }
    Set_Year(work, 0, Harvest, "1E9");
    EXPECT_EQ(Date_Of(work.Rows[0], Harvest).Year, 32767);
}

TEST(Crop_Rotation, A_Date_Control_Without_A_Selected_Row_Stores_Nothing)
{
    auto work = Work();
    Rot_Append(work, Maize);
    const auto before = work.Rows;

    Set_Day(work, std::nullopt, Emergence, "7");
    Set_Month(work, std::nullopt, Emergence, 3);
    Set_Year(work, 1, Emergence, "7");

    EXPECT_EQ(work.Rows, before);
}

TEST(Crop_Rotation, A_Rotation_Beyond_Year_99_Is_Told_And_Nothing_Is_Lost)
{
    auto work = Work();
    for (int i = 0; i < 100; ++i)
        Rot_Append(work, Maize);

    const auto refusal = Check_Rotation(work);

    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Control, "List_rot");
    EXPECT_TRUE(refusal->Text.Text.starts_with(
        "Row 100 of the crop rotation: the scenario file has no room for \"Emergence 5.5.100\"."));
    EXPECT_EQ(work.Rows.size(), 100U);

    Rot_Remove(work, 99);
    EXPECT_EQ(Check_Rotation(work), std::nullopt);
}

TEST(Crop_Rotation, Ok_Takes_Over_The_Rows_And_The_Whole_Crop_Table)
{
    Session session;
    Reset_SZE(session.Scenario);
    auto work = Work();
    Rot_Append(work, Potatoes);
    Rot_Append(work, Maize);
    work.Crops[1].SZE_Rot_Text1 = 55;

    Take_Over_Rotation(session, work);

    EXPECT_TRUE(session.Program.SZE_Changed);
    EXPECT_EQ(session.Scenario.SZE_Rot_Count, 2);
    EXPECT_EQ(session.Scenario.Rotation, work.Rows);
    EXPECT_EQ(session.Scenario.SZE_Crop_Count, 3);
    EXPECT_EQ(session.Scenario.Crops[1].SZE_Rot_Text1, Variant(55));
    for (std::size_t c = 0; c < 3; ++c)
        EXPECT_EQ(session.Scenario.Crops[c].SZE_Rot_Crop_No, static_cast<int>(c + 1));
}

TEST(Crop_Rotation, A_Taken_Over_Rotation_Comes_Back_From_The_File_And_Shows_The_Same_Crops)
{
    Session session;
    Reset_SZE(session.Scenario);
    auto work = Work();
    Rot_Append(work, Maize);
    Rot_Append(work, Potatoes);
    Take_Over_Rotation(session, work);
    Scenario_Document read;
    Reset_SZE(read);

    Parse_SZE(Format_SZE(session.Scenario), read);
    const auto loaded = Load_Rotation(read, work.Data_Base);

    EXPECT_EQ(Rotation_Name(loaded, 0), "Maize");
    EXPECT_EQ(Rotation_Name(loaded, 1), "Potatoes");
    EXPECT_TRUE(Is_Tilled(loaded, 1));
    EXPECT_EQ(Years(loaded, Harvest), (std::vector{1, 2}));
    EXPECT_EQ(Date_Of(loaded.Rows[1], Tillage), (Crop_Date{5, 5, 2}));
}

TEST(Crop_Rotation, A_Scenario_With_One_Crop_Shows_It_By_Its_Number_And_Keeps_Its_Properties)
{
    Scenario_Document document;
    document.Crops = {{.SZE_Rot_Crop_No = 3, .SZE_Rot_Text1 = 77, .SZE_Rot_CN1 = 60}};
    document.Rotation = {{.SZE_Rot_Crop_Index = 1}};
    auto work = Work();

    const auto loaded = Load_Rotation(document, work.Data_Base);

    EXPECT_EQ(Rotation_Name(loaded, 0), "Winter cereals");
    EXPECT_EQ(loaded.Crops[2].SZE_Rot_Text1, Variant(77));
    EXPECT_EQ(loaded.Crops[2].SZE_Rot_CN1, 60);
    EXPECT_EQ(loaded.Crops[0].SZE_Rot_CN1, 78); // a crop that the scenario lacks has its defaults
}

TEST(Crop_Rotation, A_Crop_That_The_Data_Base_Lacks_Is_Shown_By_Number_And_Not_Taken_Over)
{
    Scenario_Document document;
    document.Crops = {{.SZE_Rot_Crop_No = 30}};
    document.Rotation = {{.SZE_Rot_Crop_Index = 1}};

    const auto loaded = Load_Rotation(document, Work().Data_Base);

    EXPECT_EQ(Rotation_Name(loaded, 0), "Crop 30");
    EXPECT_FALSE(Is_Tilled(loaded, 0));
    EXPECT_EQ(Check_Rotation(loaded),
              (Refusal{{"File check", "The crop data base does not hold crop 30 of row 1."}, "List_rot"}));
}

TEST(Crop_Rotation, Without_A_Data_Base_Nothing_Is_Taken_Over)
{
    EXPECT_EQ(Check_Rotation(Load_Rotation({}, {})), (Refusal{{"File check", "Cannot open INPUT.DAT"}, "List_dat"}));
}

} // namespace

} // namespace orvel
