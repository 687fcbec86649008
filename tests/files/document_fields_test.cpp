#include "files/document_fields.h"

#include "core/field_count.h"
#include "files/document_differences.h"
#include "parsed.h"
#include "pesticide_example.h"
#include "scenario_example.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

// True where no field of a table stands there twice.
template <class Record> bool All_Differ()
{
    return std::apply(
        [](const auto&... field) {
            const Record record{};
            std::vector<const void*> places{&(record.*field.Member)...};
            std::ranges::sort(places);
            return std::ranges::adjacent_find(places) == places.end();
        },
        Fields_Of<Record>);
}

template <class Record> constexpr bool Names_Every_Field =
    std::tuple_size_v<decltype(Fields_Of<Record>)> == Field_Count<Record>;

} // namespace

TEST(Document_Fields, No_Field_Of_A_Record_Is_Missing_In_Its_Table)
{
    EXPECT_TRUE(Names_Every_Field<Application>);
    EXPECT_TRUE(Names_Every_Field<Relative_Application>);
    EXPECT_TRUE(Names_Every_Field<Degradation_Row>);
    EXPECT_TRUE(Names_Every_Field<Pesticide_Horizon>);
    EXPECT_TRUE(Names_Every_Field<Pesticide_Document>);
    EXPECT_TRUE(Names_Every_Field<Crop_Row>);
    EXPECT_TRUE(Names_Every_Field<Rotation_Row>);
    EXPECT_TRUE(Names_Every_Field<Scenario_Horizon>);
    EXPECT_TRUE(Names_Every_Field<Scenario_Document>);
    EXPECT_TRUE(Names_Every_Field<Climate_Row>);
    EXPECT_TRUE(Names_Every_Field<Climate_Table>);
}

TEST(Document_Fields, No_Field_Stands_In_A_Table_Twice)
{
    EXPECT_TRUE(All_Differ<Application>());
    EXPECT_TRUE(All_Differ<Relative_Application>());
    EXPECT_TRUE(All_Differ<Degradation_Row>());
    EXPECT_TRUE(All_Differ<Pesticide_Horizon>());
    EXPECT_TRUE(All_Differ<Crop_Row>());
    EXPECT_TRUE(All_Differ<Rotation_Row>());
    EXPECT_TRUE(All_Differ<Scenario_Horizon>());
    EXPECT_TRUE(All_Differ<Scenario_Document>());
    EXPECT_TRUE(All_Differ<Climate_Row>());
    EXPECT_TRUE(All_Differ<Climate_Table>());
    EXPECT_TRUE(All_Differ<Pesticide_Document>());
}

TEST(Field_Count, Counts_The_Fields_Of_An_Aggregate)
{
    struct Three {
        int Number;
        std::array<std::string, 4> Texts;
        std::optional<double> Value;
    };

    EXPECT_EQ(Field_Count<Three>, 3U);
}

TEST(Differences, A_Document_Does_Not_Differ_From_Itself)
{
    EXPECT_TRUE(Differences(*Example_Document(), *Example_Document()).empty());
    EXPECT_TRUE(Differences(Example_Scenario(), Example_Scenario()).empty());
}

TEST(Differences, Gives_The_Name_And_Both_Values_Of_Each_Field_In_The_Order_Of_The_Document)
{
    const auto first = Example_Document(), second = Example_Document();
    second->PSM_Title = "Other";
    second->Applications[1][1].App_Rate = 1.5;
    second->Koc[1] = "130";
    second->Horizons[1].Hor_Deg[1][5] = 0;

    EXPECT_EQ(Differences(*first, *second), (std::vector<Difference>{{"PSM_Title", "Demo compound", "Other"},
                                                                     {"Applications[1][1].App_Rate", "0.75", "1.5"},
                                                                     {"Koc[1]", "120.5", "130"},
                                                                     {"Horizons[1].Hor_Deg[1][5]", "0.1", "0"}}));
}

TEST(Differences, A_Number_And_The_Text_That_Was_Typed_For_It_Are_The_Same)
{
    const auto first = Example_Document(), second = Example_Document();
    second->Koc[1] = "120.5";

    EXPECT_NE(*first, *second);
    EXPECT_TRUE(Differences(*first, *second).empty());
}

TEST(Differences, Elements_That_Only_One_Document_Has_Have_No_Value_In_The_Other)
{
    const Climate_Table one{"T", {{.Cli_Day = "01"}}};
    Climate_Table two = one;
    two.Rows.push_back({.Cli_Day = "02", .Cli_Evap = std::nullopt});

    const auto differences = Differences(one, two);

    ASSERT_EQ(differences.size(), 11U); // the fields of a row
    EXPECT_EQ(differences[0], (Difference{"Rows[1].Cli_Day", "", "02"}));
    EXPECT_EQ(differences[4], (Difference{"Rows[1].Cli_Evap", "", ""}));
    EXPECT_EQ(Differences(two, one)[0], (Difference{"Rows[1].Cli_Day", "02", ""}));
}

TEST(Differences, What_Is_Not_In_Use_Does_Not_Count)
{
    const auto first = Example_Document(), second = Example_Document();
    second->Applications[1][2].App_Rate = 7; // behind the one application
    second->Relative[1].Abs9_Day = 5;        // of another mode

    EXPECT_TRUE(Differences(*first, *second).empty());
}

TEST(Differences, A_Senescence_That_Only_The_Engine_Uses_Counts)
{
    const std::string file = Format_SZE(*std::make_unique<Scenario_Document>([] {
        Scenario_Document document;
        Reset_SZE(document);
        document.SZE_Rot_Count = 1;
        document.Rotation = {{.SZE_Sen_Day = 11, .SZE_Sen_Month = 12, .SZE_Sen_Year = 13}};
        return document;
    }()));

    const auto differences = Differences(Parsed_SZE(file), Parsed_SZE(With(file, "111213", "111214")));

    EXPECT_EQ(differences, (std::vector<Difference>{{"Rotation[0].SZE_Sen_In_File", "11.12.13", "11.12.14"}}));
}

} // namespace orvel
