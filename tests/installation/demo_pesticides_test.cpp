#include "installation/demo_pesticides.h"

#include "core/text.h"
#include "files/pesticide_file.h"
#include "substance/pathway.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace orvel {

namespace {

const std::vector<Demo_Pesticide> Pesticides = Demo_Pesticides();

const Pesticide_Document& Document(std::string_view name)
{
    return std::ranges::find(Pesticides, name, &Demo_Pesticide::Name)->Document;
}

// What the file of a document is read as.
Pesticide_Document Read_Back(Pesticide_Document document)
{
    const std::string bytes = Format_PSM(document);
    Pesticide_Document read;
    Parse_PSM(bytes, read);
    Update_Pathway(read);
    return read;
}

TEST(Demo_Pesticide_Files, Are_Six)
{
    std::string names;
    for (const auto& pesticide : Pesticides)
        names += pesticide.Name + " ";

    EXPECT_EQ(names, "demo_A.psm demo_B.psm demo_C.psm demo_D.psm demo_D3.psm demo_S.psm ");
}

TEST(Demo_Pesticide_Files, Are_Read_Back_As_They_Were_Meant)
{
    for (const auto& pesticide : Pesticides) {
        Pesticide_Document meant = pesticide.Document;
        const auto read = Read_Back(meant);
        // Without horizons of its own the file says nothing of the spare rows.
        meant.Horizons = read.Horizons;
        // The writer marks a substance without dissociation by -99 in its pH fields.
        for (std::size_t i = 1; i <= Substances; ++i) {
            meant.Sorp_pH[i] = read.Sorp_pH[i];
            meant.Koc2[i] = read.Koc2[i];
        }

        EXPECT_EQ(read.Applications, meant.Applications) << pesticide.Name;
        EXPECT_EQ(read.Relative, meant.Relative) << pesticide.Name;
        EXPECT_EQ(read.Degradation, meant.Degradation) << pesticide.Name;
        EXPECT_EQ(read.Substance_Name, meant.Substance_Name) << pesticide.Name;
        EXPECT_EQ(read.App_Location, meant.App_Location) << pesticide.Name;
        EXPECT_TRUE(read == meant) << pesticide.Name;
    }
}

TEST(Demo_Pesticide_Files, Say_That_They_Are_No_Products)
{
    EXPECT_EQ(Document("demo_A.psm").PSM_Title,
              "Demonstration substance A, not a product - demonstration data, not for regulatory use");
    EXPECT_EQ(Document("demo_D3.psm").PSM_Title,
              "Demonstration substance D, not a product - demonstration data, not for regulatory use");
}

TEST(Demo_Pesticide_Files, Rates_Are_Those_Of_The_Half_Lives)
{
    EXPECT_NEAR(Document("demo_A.psm").Degradation[1][5].Deg_Rate.Number(), std::log(2.0) / 60, 5e-8);
    EXPECT_NEAR(Document("demo_B.psm").Degradation[1][5].Deg_Rate.Number(), std::log(2.0) / 20, 5e-8);
    EXPECT_NEAR(Document("demo_D.psm").Degradation[1][5].Deg_Rate.Number(), std::log(2.0) / 20, 5e-8);
    EXPECT_NEAR(Document("demo_C.psm").Degradation[1][1].Deg_Rate.Number(), 0.71 * std::log(2.0) / 20, 5e-8);
    EXPECT_NEAR(Document("demo_C.psm").Degradation[1][5].Deg_Rate.Number(), 0.29 * std::log(2.0) / 20, 5e-8);
    EXPECT_NEAR(Document("demo_C.psm").Degradation[2][4].Deg_Rate.Number(), std::log(2.0) / 100, 5e-8);
}

TEST(Demo_Pesticide_Files, C_Alone_Has_A_Metabolite)
{
    for (const auto& pesticide : Pesticides) {
        const auto& present = pesticide.Document.Met_Present;
        EXPECT_EQ(std::count(present.begin() + 1, present.end(), true), pesticide.Name == "demo_C.psm" ? 2 : 1)
            << pesticide.Name;
    }
    const auto& c = Document("demo_C.psm");
    EXPECT_TRUE(c.Met_Present[2]);
    EXPECT_EQ(c.Molmass[1].Number(), 200);
    EXPECT_EQ(c.Molmass[2].Number(), 150);
    EXPECT_EQ(c.Koc[1].Number(), 172);
    EXPECT_EQ(c.Koc[2].Number(), 52);
}

TEST(Demo_Pesticide_Files, A_Is_Applied_The_Day_Before_The_First_Emergence_Of_Every_Year)
{
    const auto& a = Document("demo_A.psm");

    EXPECT_EQ(a.App_Mode, App_Mode_Relative);
    EXPECT_EQ(a.App_Loc_Count, 1);
    EXPECT_EQ(a.App_Count[0].Number(), 26);
    for (std::int16_t year = 1; year <= 26; ++year)
        EXPECT_EQ(a.Relative[static_cast<std::size_t>(year)],
                  (Relative_Application{.Abs9_Day = -1, .Abs9_Month = 0, .Abs9_Year = year, .Abs9_Rate = 1}));
}

TEST(Demo_Pesticide_Files, B_Is_Sprayed_On_The_Crop_On_15_May_At_Nine_Locations)
{
    const auto& b = Document("demo_B.psm");

    EXPECT_EQ(b.App_Method.Number(), 2);
    EXPECT_EQ(b.App_Mode, 0);
    EXPECT_EQ(b.App_Loc_Count, 10); // with the user specific block
    EXPECT_EQ(b.App_Location[0], "");
    EXPECT_EQ(b.App_Location[1], "Ch\xE2teaudun (C)");
    EXPECT_EQ(b.App_Location[9], "Thiva (T)");
    for (std::size_t block = 0; block < 10; ++block) {
        EXPECT_EQ(b.App_Count[block].Number(), 26);
        EXPECT_EQ(b.Applications[block][26],
                  (Application{.App_Day = 15, .App_Month = 5, .App_Year = 26, .App_Rate = 1}));
    }
}

TEST(Demo_Pesticide_Files, D3_Is_Applied_22_Times_In_66_Years)
{
    const auto& d3 = Document("demo_D3.psm");

    EXPECT_EQ(d3.App_Count[9].Number(), 22);
    EXPECT_EQ(d3.Applications[9][1], (Application{.App_Day = 1, .App_Month = 11, .App_Year = 1, .App_Rate = 1}));
    EXPECT_EQ(d3.Applications[9][2].App_Year, 4);
    EXPECT_EQ(d3.Applications[9][22].App_Year, 64);
}

TEST(Demo_Pesticide_Files, S_Has_The_Six_Soil_Zones)
{
    const auto& s = Document("demo_S.psm");

    EXPECT_EQ(s.App_Loc_Count, 7);
    EXPECT_EQ(s.App_Location[1], "Total content - North (T_N)");
    EXPECT_EQ(s.App_Location[6], "Porewater concentration - South (P_S)");
    EXPECT_EQ(s.App_Location[7], "");
    EXPECT_EQ(s.Applications[6][1], (Application{.App_Day = 1, .App_Month = 11, .App_Year = 1, .App_Rate = 1}));
}

TEST(Demo_Pesticide_Files, Volatile_Substances_Have_A_Second_Point_Ten_Degrees_Higher)
{
    const auto& d = Document("demo_D.psm");

    EXPECT_EQ(d.Henry_Flag.Number(), 1);
    EXPECT_EQ(d.Solubility, (std::array<double, 2>{90, 180}));
    EXPECT_EQ(d.Vap_Press, (std::array<double, 2>{0.0001, 0.0004}));
    EXPECT_EQ(d.Volat_Temp, (std::array<double, 2>{20, 30}));
}

TEST(Demo_Pesticide_Files, No_Title_Or_Name_Is_Cut_By_A_Bracket)
{
    for (const auto& pesticide : Pesticides)
        EXPECT_FALSE(Contains(pesticide.Document.PSM_Title, "<")) << pesticide.Name;
}

} // namespace

} // namespace orvel
