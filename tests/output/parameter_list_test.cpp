#include "output/parameter_list.h"

#include "core/files.h"
#include "files/pesticide_file.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

Per_Substance<std::string> Names()
{
    return {"", "Parent", "A metabolite of a very long name"};
}

std::vector<std::string> Texts(const std::vector<Parameter_Item>& items)
{
    std::vector<std::string> texts;
    for (const auto& item : items)
        texts.push_back(item.Text);
    return texts;
}

// Two years: header, scenario, pesticide, two climates, counts, two output rows and one of the profile.
const std::string Run_Control =
    "002 01 01 31 12 Version "
    "5\r\n..\\..\\..\\H_maize.sze\r\ntest.psm\r\n..\\..\\..\\H_01.cli\r\n..\\..\\..\\H_02.cli\r\n"
    "00000002    5.000000020\r\n"
    "    LEAC    TSER  100.0  1.0E09 00000001\r\n"
    "    INFL    TSER  100.0  1.0    00000001\r\n"
    "    TPSC    TSER    1.0  1.0E06 00000002\r\n";

} // namespace

TEST(Parameter_List, The_Fixed_List_Has_The_Four_Soil_Items_As_They_Come_Out)
{
    const auto texts = Texts(Fixed_Parameters());

    ASSERT_EQ(texts.size(), 26U);
    EXPECT_EQ(texts.front(), "Actual evapotranspiration");
    EXPECT_EQ(texts[12], "Total pesticide application");
    EXPECT_TRUE(texts[13].starts_with("Pesticide conc. in soil (top"));
    for (std::size_t i = 13; i < 17; ++i) {
        EXPECT_TRUE(texts[i].starts_with("Pesticide conc. in soil ("));
        EXPECT_TRUE(texts[i].ends_with("cm)"));
    }
    EXPECT_EQ(texts.back(), "Pesticide concentration in leachate (soil bottom)");
}

TEST(Parameter_List, The_Substances_Are_Those_Of_All_Rows_Of_The_Run_Control_File)
{
    EXPECT_EQ(Substances_Of_Rows(Run_Control), (std::vector{1, 1, 2}));
    EXPECT_THROW(Substances_Of_Rows("026 01"), File_Error);
}

TEST(Parameter_List, Depth_And_Substance_Stand_Only_Where_They_Mean_Something)
{
    const Plot_Head head{.Columns = {{"PRSN", 0, ""},
                                     {"INFL", 100, ""},
                                     {"TEMP", 2.5, ""},
                                     {"TPAP", 0, ""},
                                     {"LEAC", 100, ""},
                                     {"RFLX", 0, ""}}};

    EXPECT_EQ(
        Texts(Parameters_Of(head, {1, 1, 1, 1, 2, 1}, Names())),
        (std::vector<std::string>{"Precipitation", "Percolate at 100 cm ", "Soil temperatures at 2.5 cm ",
                                  "Total application/formation for Parent",
                                  "Percolate concentration at 100 cm  for A metabolite of", "Runoff flux for Parent"}));
}

TEST(Parameter_List, A_Column_Of_An_Unknown_Code_Has_No_Item_And_The_Others_Keep_Their_Columns)
{
    const Plot_Head head{.Columns = {{"PRSN", 0, ""}, {"    ", 0, ""}, {"TETD", 0, ""}}};

    EXPECT_EQ(Parameters_Of(head, {1, 1, 1}, Names()),
              (std::vector<Parameter_Item>{{"Precipitation", 1, 1}, {"Actual evapotranspiration", 3, 2}}));
}

TEST(Parameter_List, A_Run_Names_Its_Substances_As_Its_Own_Pesticide_File_Does)
{
    const Temporary_Directory run;
    const auto document = std::make_unique<Pesticide_Document>();
    Reset_PSM(*document);
    document->Substance_Name[1] = "Demoxyl";
    Write_Whole(run / "test.psm", Format_PSM(*document));
    Write_Whole(run / "orvel.inp", Run_Control);
    Write_Whole(
        run / "plot.orv",
        "engine\r\n\r\nscenario\r\npesticide\r\n\r\nSoil\r\n    24     2     0\r\n            LEAC      INFL\r\n"
        "               100.0     100.0\r\n           1.0E09    1.0\r\n\r\n");

    const auto items = Parameters_Of_Run(run.Path());

    EXPECT_EQ(Texts(items),
              (std::vector<std::string>{"Percolate concentration at 100 cm  for Demoxyl", "Percolate at 100 cm "}));
}

TEST(Parameter_List, A_Run_Without_A_Plot_File_Or_Control_File_Has_The_Fixed_List)
{
    const Temporary_Directory run;
    EXPECT_EQ(Parameters_Of_Run(run.Path()), Fixed_Parameters());

    Write_Whole(run / "orvel.inp", Run_Control);
    EXPECT_EQ(Parameters_Of_Run(run.Path()), Fixed_Parameters());

    Write_Whole(run / "plot.orv", "engine\r\n\r\nscenario\r\npesticide\r\n\r\nSoil\r\n    24     0     0\r\n\r\n"
                                  "\r\n\r\n\r\n");
    EXPECT_TRUE(Parameters_Of_Run(run.Path()).empty()); // it can be read, and has no columns
}

} // namespace orvel
