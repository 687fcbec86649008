#include "files/document_values.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvel {

namespace {

std::unique_ptr<Pesticide_Document> Document()
{
    auto document = std::make_unique<Pesticide_Document>();
    Reset_PSM(*document);
    document->Koc[1] = 100;
    document->App_Loc_Count = 1;
    document->App_Count[0] = 2;
    return document;
}

} // namespace

TEST(Document_Values, A_Value_Is_Replaced_By_The_Name_That_Json_Shows)
{
    auto document = Document();

    EXPECT_EQ(Replace_Value(*document, "Koc[1]", "120.5"), "");
    EXPECT_EQ(Replace_Value(*document, "Applications[0][2].App_Day", "14"), "");
    EXPECT_EQ(Replace_Value(*document, "Substance_Name[1]", "other"), "");

    EXPECT_EQ(document->Koc[1].Number(), 120.5);
    EXPECT_EQ(document->Applications[0][2].App_Day, 14);
    EXPECT_EQ(document->Substance_Name[1], "other");
    EXPECT_EQ(Value_Of(*document, "Koc[1]"), "120.5");
    EXPECT_EQ(Value_Of(*document, "Applications[0][2].App_Day"), "14");
}

TEST(Document_Values, A_Value_That_Its_Field_Does_Not_Take_Leaves_The_Document_As_It_Was)
{
    auto document = Document();
    const auto before = std::make_unique<Pesticide_Document>(*document);

    EXPECT_EQ(Replace_Value(*document, "Koc[1]", "0,5"), "'0,5' has a decimal comma: write a decimal point.");
    EXPECT_EQ(Replace_Value(*document, "Koc[1]", "much"), "'much' is not a number.");
    EXPECT_EQ(Replace_Value(*document, "Koc[1]", "nan"), "'nan' is not a number.");
    EXPECT_EQ(Replace_Value(*document, "Koc[1]", "1e999"), "'1e999' is not a number.");
    EXPECT_EQ(Replace_Value(*document, "Koc[1]", ""), "'' is not a number.");
    EXPECT_EQ(Replace_Value(*document, "Applications[0][1].App_Day", "1.5"),
              "'1.5' is not a whole number of this field.");
    EXPECT_EQ(Replace_Value(*document, "Applications[0][1].App_Day", "40000"),
              "'40000' is not a whole number of this field.");
    EXPECT_EQ(*document, *before);
}

TEST(Document_Values, A_Field_That_Is_Not_In_Use_Is_Not_Replaced)
{
    auto document = Document();

    EXPECT_EQ(Replace_Value(*document, "Applications[0][3].App_Day", "1"),
              "This document has no Applications[0][3].App_Day.");
    EXPECT_EQ(Replace_Value(*document, "Applications[1][1].App_Day", "1"),
              "This document has no Applications[1][1].App_Day.");
    EXPECT_EQ(Value_Of(*document, "Applications[1][1].App_Day"), std::nullopt);
    EXPECT_EQ(Value_Of(*document, "Koc[1]x"), std::nullopt);
}

TEST(Document_Values, Only_Names_Of_Fields_Are_Fields)
{
    EXPECT_EQ(Why_Not_A_Pesticide_Field("Koc[1]"), "");
    EXPECT_EQ(Why_Not_A_Pesticide_Field("Horizons[3].Hor_Deg[1][2]"), "");
    EXPECT_EQ(Why_Not_A_Scenario_Field("Crops[0].SZE_Rot_Tillage"), "");
    for (const char* name : {"", "Koc", "Koc[", "Koc[]", "Koc[x]", "Koc[01]", "Koc[1", "Koc[1].x", "Koc[1][1]",
                             "koc[1]", "Horizons[1]", "Horizons[1].", "Applications[0].App_Day", "Koc[99999999999]"})
        EXPECT_EQ(Why_Not_A_Pesticide_Field(name), "There is no field " + std::string(name) + ".");
    EXPECT_EQ(Why_Not_A_Scenario_Field("SZE_Crop_Count"),
              "The field SZE_Crop_Count follows from others and cannot be replaced.");
}

} // namespace orvel
