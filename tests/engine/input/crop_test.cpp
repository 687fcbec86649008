#include "engine/input/crop.h"
#include "engine/solute/applications.h"

#include "core/locations.h"
#include "files/scenario_file.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace orvel::engine {

namespace {

// A crop from 5 May over 30 July and 1 September to 20 September of the year.
Rotation_Row Maize_Row(std::int16_t year, std::int16_t crop = 1)
{
    Rotation_Row row;
    row.SZE_Eme_Day = 5, row.SZE_Eme_Month = 5, row.SZE_Eme_Year = year;
    row.SZE_Mat_Day = 30, row.SZE_Mat_Month = 7, row.SZE_Mat_Year = year;
    row.SZE_Har_Day = 20, row.SZE_Har_Month = 9, row.SZE_Har_Year = year;
    row.SZE_Sen_Day = 1, row.SZE_Sen_Month = 9, row.SZE_Sen_Year = year;
    row.SZE_Rot_Crop_Index = crop;
    return row;
}

struct Field {
    Scenario_Document Scenario;
    Calendar Dates{std::vector<bool>(4, false)};
    Findings Found;

    Field()
    {
        Reset_SZE(Scenario);
        Crop_Row crop;
        crop.SZE_Rot_Crop_No = 14;
        crop.SZE_Rot_Text1 = 80;
        crop.SZE_Rot_Text2 = 0.15;
        crop.SZE_Rot_Interception = 90;
        crop.SZE_Rot_Residue = 3;
        crop.SZE_Rot_CN1 = 78, crop.SZE_Rot_CN2 = 70, crop.SZE_Rot_CN3 = 74;
        crop.SZE_Rot_USLE1 = 0.9, crop.SZE_Rot_USLE2 = 0.4, crop.SZE_Rot_USLE3 = 0.6;
        crop.SZE_Rot_Dry_Mass = 1.8;
        crop.SZE_Rot_Kc_Mid = 1.2, crop.SZE_Rot_Kc_Late = 0.6;
        crop.SZE_Rot_Irrigated = 1;
        Scenario.Crops = {crop};
        Scenario.Rotation = {Maize_Row(1)};
    }
    std::vector<Crop_Period> Rotation() { return Build_Rotation(Scenario, Dates, 4 * 365, Found); }
    Crop_State On(int year, int month, int day)
    {
        return Crop_On(Scenario, Rotation(), Dates.Number({year, month, day}));
    }
};

} // namespace

TEST(Crop, Grows_To_Maturity_Stays_And_Falls_By_Half_To_Harvest)
{
    const Crop_Period period{100, 200, 240, 260, No_Day, 0};

    EXPECT_EQ(Growth_Of(period, 99), 0);
    EXPECT_EQ(Growth_Of(period, 100), 0);
    EXPECT_DOUBLE_EQ(Growth_Of(period, 150), 0.5);
    EXPECT_EQ(Growth_Of(period, 200), 1);
    EXPECT_EQ(Growth_Of(period, 240), 1);
    EXPECT_DOUBLE_EQ(Growth_Of(period, 250), 0.75);
    EXPECT_EQ(Growth_Of(period, 260), 0); // harvest is the morning's work
}

TEST(Crop, Its_State_Follows_The_Stages)
{
    Field field;
    const Crop_State before = field.On(1, 5, 4), halfway = field.On(1, 6, 17), ripe = field.On(1, 8, 10),
                     harvest = field.On(1, 9, 20);

    EXPECT_FALSE(before.Present);
    EXPECT_EQ(before.Field, Stage::Fallow);
    EXPECT_EQ(before.Curve_Number(), 78);
    EXPECT_EQ(before.Crop_Factor, 1);
    EXPECT_TRUE(halfway.Present);
    EXPECT_DOUBLE_EQ(halfway.Cover, 0.5 * 0.9);
    EXPECT_DOUBLE_EQ(halfway.Dry_Mass, 0.9);
    EXPECT_DOUBLE_EQ(halfway.Root_Depth, 40);
    EXPECT_DOUBLE_EQ(halfway.Crop_Factor, 1.1);
    EXPECT_EQ(halfway.Days_Since_Emergence, 43);
    EXPECT_TRUE(halfway.Irrigated);
    EXPECT_EQ(ripe.Crop_Factor, 1.2);
    EXPECT_EQ(ripe.Curve_Number(), 70);
    EXPECT_EQ(ripe.Cover_Factor(), 0.4);
    EXPECT_FALSE(field.On(1, 9, 5).Irrigated); // senescence has begun
    EXPECT_FALSE(harvest.Present);
    EXPECT_TRUE(harvest.Harvest_Today);
    EXPECT_EQ(harvest.Curve_Number(), 74); // residues
    EXPECT_EQ(harvest.Cover_Factor(), 0.6);
}

TEST(Crop, A_Perennial_Crop_Has_All_Its_Roots_From_The_Start)
{
    Field field;
    field.Scenario.Crops[0].SZE_Rot_Perennial = 1;

    EXPECT_EQ(field.On(1, 5, 6).Root_Depth, 80);
}

TEST(Rotation, A_List_That_Ends_Early_Is_Repeated_With_A_Note)
{
    Field field;
    field.Scenario.Rotation = {Maize_Row(1), Maize_Row(2)};
    const auto rotation = field.Rotation();

    EXPECT_EQ(rotation[2].Emergence, field.Dates.Number({3, 5, 5}));
    EXPECT_EQ(rotation[3].Harvest, field.Dates.Number({4, 9, 20}));
    ASSERT_EQ(field.Found.Notes.size(), 1U);
    EXPECT_EQ(field.Found.Notes[0].Number, 12);
    EXPECT_EQ(field.Found.Notes[0].Text, "ROTATION REPEATED WITH A PERIOD OF 2 YEAR(S)");
}

TEST(Rotation, A_Winter_Crop_Emerges_In_The_Year_Before_The_Run)
{
    Field field;
    Rotation_Row row = Maize_Row(1);
    row.SZE_Eme_Day = 1, row.SZE_Eme_Month = 11, row.SZE_Eme_Year = 0;
    field.Scenario.Rotation = {row};
    const auto rotation = field.Rotation();

    EXPECT_EQ(rotation[0].Emergence, field.Dates.Number({0, 11, 1}));
    EXPECT_TRUE(Crop_On(field.Scenario, rotation, 1).Present);
    EXPECT_EQ(rotation[1].Emergence, field.Dates.Number({1, 11, 1}));
}

TEST(Rotation, An_Emergence_Ends_The_Crop_Before_It)
{
    Field field;
    field.Scenario.Crops.push_back(field.Scenario.Crops[0]);
    Rotation_Row second = Maize_Row(1, 2);
    second.SZE_Eme_Day = 1, second.SZE_Eme_Month = 9;
    second.SZE_Mat_Day = 10, second.SZE_Mat_Month = 9;
    second.SZE_Har_Day = 30, second.SZE_Har_Month = 9;
    second.SZE_Sen_Day = 20;
    field.Scenario.Rotation = {Maize_Row(1), second};
    const auto rotation = field.Rotation();

    EXPECT_EQ(rotation[0].Harvest, field.Dates.Number({1, 9, 1}));
    const Crop_State state = Crop_On(field.Scenario, rotation, rotation[0].Harvest);
    EXPECT_TRUE(state.Present);
    EXPECT_TRUE(state.Harvest_Today);
    EXPECT_EQ(field.Found.Notes.back().Number, static_cast<int>(Note::Crop_Ended_Early));
}

TEST(Rotation, A_Row_Without_Dates_Is_Skipped_And_Wrong_Rows_Are_Error_36)
{
    Field empty;
    empty.Scenario.Rotation.push_back({});
    EXPECT_EQ(empty.Rotation()[1].Emergence, empty.Dates.Number({2, 5, 5}));
    EXPECT_FALSE(empty.Found.Failed());

    const auto wrong = [](auto change) {
        Field field;
        change(field.Scenario.Rotation[0]);
        EXPECT_TRUE(field.Rotation().empty());
        return field.Found.Errors.empty() ? 0 : field.Found.Errors[0].Number;
    };
    EXPECT_EQ(wrong([](Rotation_Row& row) { row.SZE_Eme_Month = 13; }), 36);
    EXPECT_EQ(wrong([](Rotation_Row& row) { row.SZE_Har_Day = 0; }), 36);
    EXPECT_EQ(wrong([](Rotation_Row& row) { row.SZE_Rot_Crop_Index = 2; }), 36);
    EXPECT_EQ(wrong([](Rotation_Row& row) { row.SZE_Rot_Crop_Index = 0; }), 36);
    EXPECT_EQ(wrong([](Rotation_Row& row) { row.SZE_Har_Month = 6; }), 36);
}

TEST(Rotation, Tillage_Makes_Fallow_Of_Residues)
{
    Field field;
    field.Scenario.Crops[0].SZE_Rot_Tillage = 1;
    Rotation_Row second = Maize_Row(2);
    second.SZE_Til_Day = 30, second.SZE_Til_Month = 4, second.SZE_Til_Year = 2;
    field.Scenario.Rotation = {Maize_Row(1), second};

    EXPECT_EQ(field.On(2, 4, 29).Field, Stage::Residues);
    EXPECT_TRUE(field.On(2, 4, 30).Tillage_Today);
    EXPECT_EQ(field.On(2, 4, 30).Field, Stage::Fallow);
    EXPECT_EQ(field.On(2, 5, 4).Field, Stage::Fallow);
    EXPECT_FALSE(field.On(2, 5, 1).Tillage_Today);
}

TEST(Rotation, A_Derived_Tillage_In_Month_0_Is_December_Of_The_Year_Before)
{
    Field field;
    field.Scenario.Crops[0].SZE_Rot_Tillage = 1;
    field.Scenario.Rotation[0].SZE_Til_Day = 15;
    field.Scenario.Rotation[0].SZE_Til_Month = 0;
    field.Scenario.Rotation[0].SZE_Til_Year = 1;

    EXPECT_EQ(field.Rotation()[0].Tillage, field.Dates.Number({0, 12, 15}));
}

TEST(Rotation, A_Senescence_Date_Under_The_Newest_Marker_Is_Used)
{
    Field field;
    field.Scenario.SZE_Crop_Count = field.Scenario.SZE_Rot_Count = 1;
    const std::string bytes = Format_SZE(field.Scenario);
    Scenario_Document read;
    Reset_SZE(read);
    Parse_SZE(bytes, read);
    ASSERT_EQ(read.Rotation[0].SZE_Sen_Month.Number(), 9);
    ASSERT_EQ(read.Rotation[0].SZE_Sen_Day.Number(), 20); // the document has the day of harvest

    field.Scenario = read;

    EXPECT_EQ(field.Rotation()[0].Senescence, field.Dates.Number({1, 9, 1}));
}

namespace {

struct Spraying : Field {
    Pesticide_Document Pesticide;

    Spraying()
    {
        Reset_PSM(Pesticide);
        Pesticide.App_Loc_Count = 1;
        Pesticide.App_Count[0] = 1;
        Pesticide.Applications[0][1] = {.App_Day = 1, .App_Month = 6, .App_Year = 2, .App_Rate = 0.5};
    }
    std::vector<Planned_Application> Plan(int last_day = 4 * 365)
    {
        return Plan_Applications(Pesticide, 0, Scenario, Rotation(), Dates, 1, last_day, Found);
    }
    void Relative(std::int16_t days, std::int16_t reference, std::int16_t year)
    {
        Pesticide.App_Mode = App_Mode_Relative;
        Pesticide.Relative[1] = {.Abs9_Day = days, .Abs9_Month = reference, .Abs9_Year = year, .Abs9_Rate = 0.5};
    }
    int Error()
    {
        Plan();
        return Found.Errors.empty() ? 0 : Found.Errors[0].Number;
    }
};

} // namespace

TEST(Applications, An_Absolute_Date_Is_Itself)
{
    Spraying spraying;
    spraying.Pesticide.Applications[0][1].App_Crop_Flag = 12;
    const auto plan = spraying.Plan();

    ASSERT_EQ(plan.size(), 1U);
    EXPECT_EQ(plan[0].On, (Date{2, 6, 1}));
    EXPECT_EQ(plan[0].Hour, 12);
    EXPECT_EQ(plan[0].Rate, 0.5);
    EXPECT_EQ(plan[0].Plant_Share, 0); // method 1
}

TEST(Applications, A_Day_Beyond_The_Month_Is_Its_Last_With_A_Note)
{
    Spraying spraying;
    spraying.Pesticide.Applications[0][1].App_Day = 31;

    EXPECT_EQ(spraying.Plan()[0].On, (Date{2, 6, 30}));
    EXPECT_EQ(spraying.Found.Notes.back().Number, static_cast<int>(Note::Application_Day));
}

TEST(Applications, One_Outside_The_Period_Is_Left_Out_With_A_Note)
{
    Spraying spraying;

    EXPECT_TRUE(spraying.Plan(365).empty());
    EXPECT_FALSE(spraying.Found.Failed());
    const auto& notes = spraying.Found.Notes;
    ASSERT_GE(notes.size(), 2u);
    EXPECT_EQ(notes[notes.size() - 2].Number, static_cast<int>(Note::Application_Skipped));
    EXPECT_EQ(notes.back().Number, static_cast<int>(Note::Nothing_Applied));
}

TEST(Applications, An_Hour_Beyond_The_Day_Is_Hour_0)
{
    Spraying spraying;
    spraying.Pesticide.Applications[0][1].App_Crop_Flag = 25;

    EXPECT_EQ(spraying.Plan()[0].Hour, 0);
}

TEST(Applications, The_Plants_Share_Follows_The_Method)
{
    const auto share = [](int method, int month) {
        Spraying spraying;
        spraying.Pesticide.App_Method = method;
        spraying.Pesticide.Plant_Filtration = 2;
        auto& application = spraying.Pesticide.Applications[0][1];
        application.App_Frpex = 30;
        application.App_Month = static_cast<std::int16_t>(month);
        application.App_Day = 10;
        return spraying.Plan()[0].Plant_Share;
    };

    EXPECT_DOUBLE_EQ(share(2, 8), 0.9); // full cover
    EXPECT_NEAR(share(3, 8), 1 - std::exp(-2 * 1.8), 1e-15);
    EXPECT_DOUBLE_EQ(share(4, 8), 0.3);
    EXPECT_EQ(share(2, 2), 0); // no crop on the field
    EXPECT_EQ(share(3, 2), 0);
    EXPECT_DOUBLE_EQ(share(4, 2), 0.3); // as given
}

TEST(Applications, A_Relative_Date_Counts_From_Its_Event)
{
    for (const auto& [days, reference, expected] : std::vector<std::tuple<int, int, Date>>{
             {-20, 0, {2, 4, 15}}, {0, 0, {2, 5, 5}}, {0, 1, {2, 7, 30}}, {10, 2, {2, 9, 30}}, {400, 0, {3, 6, 9}}}) {
        Spraying spraying;
        spraying.Relative(static_cast<std::int16_t>(days), static_cast<std::int16_t>(reference), 2);
        const auto plan = spraying.Plan();
        ASSERT_EQ(plan.size(), 1U);
        EXPECT_EQ(plan[0].On, expected) << days << " days from " << reference;
    }
}

TEST(Applications, A_Year_Without_The_Event_Takes_It_From_The_Nearest_Later_Year)
{
    Spraying spraying;
    spraying.Scenario.Rotation = {Maize_Row(2), Maize_Row(4)};
    spraying.Relative(0, 0, 3);

    EXPECT_EQ(spraying.Plan()[0].On, (Date{3, 5, 5}));
    EXPECT_EQ(spraying.Found.Notes.back().Number, static_cast<int>(Note::Application_Event_Moved));
}

TEST(Applications, An_Event_That_Never_Comes_Is_Error_43)
{
    Spraying spraying;
    spraying.Relative(0, 5, 2); // second harvest

    EXPECT_EQ(spraying.Error(), 43);
}

TEST(Applications, Impossible_Entries_Are_Errors_42_And_44)
{
    const auto error = [](auto change) {
        Spraying spraying;
        change(spraying.Pesticide.Applications[0][1]);
        return spraying.Error();
    };
    EXPECT_EQ(error([](Application& a) { a.App_Month = 13; }), 42);
    EXPECT_EQ(error([](Application& a) { a.App_Day = 0; }), 42);
    EXPECT_EQ(error([](Application& a) { a.App_Year = 0; }), 42);
    EXPECT_EQ(error([](Application& a) { a.App_Rate = -1; }), 44);
    EXPECT_EQ(error([](Application& a) { a.App_Depth = 101; }), 44);
    EXPECT_EQ(error([](Application& a) { a.App_Frpex = 101; }), 44);
    EXPECT_EQ(error([](Application& a) { a.App_Time = 1.5; }), 44);
    EXPECT_EQ(error([](Application& a) { a.App_Rate = 0, a.App_Month = 13; }), 0); // nothing is applied
}

TEST(Applications, The_Block_Is_That_Of_The_Location_Else_The_Users)
{
    Pesticide_Document pesticide;
    Reset_PSM(pesticide);
    pesticide.App_Loc_Count = 3;
    pesticide.App_Location[1] = Location_Name("C");
    pesticide.App_Location[2] = Location_Name("T_N");
    Findings findings;

    EXPECT_EQ(Application_Block(pesticide, "C", findings), 1);
    EXPECT_EQ(Application_Block(pesticide, "T_N", findings), 2);
    EXPECT_TRUE(findings.Notes.empty());
    EXPECT_EQ(Application_Block(pesticide, "H", findings), 0);
    EXPECT_EQ(findings.Notes.size(), 1U);
    EXPECT_EQ(Application_Block(pesticide, "", findings), 0);
    EXPECT_EQ(findings.Notes.size(), 1U);
    pesticide.App_Mode = App_Mode_Relative;
    EXPECT_EQ(Application_Block(pesticide, "C", findings), 0);
    pesticide.App_Count[0] = 0;
    EXPECT_EQ(Application_Block(pesticide, "T_N", findings), 1); // the first that has applications
}

} // namespace orvel::engine
