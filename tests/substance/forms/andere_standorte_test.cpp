#include "substance/forms/andere_standorte.h"

#include "ui/forms/widgets.h"
#include "window_test.h"

#include <QPushButton>

namespace orvel {

namespace {

using Names = std::vector<std::string>;

QStringList Offered(const QWidget& form)
{
    QStringList names;
    const auto* list = Find<QListWidget>(form, "Location");
    for (int row = 0; row < list->count(); ++row)
        names << list->item(row)->text();
    return names;
}

TEST(andere_Standorte, Offers_The_Nine_Locations_And_Selects_Those_Of_The_List)
{
    andere_Standorte form(Location_Kind::Leaching, {" User specific", "Sevilla (S)", "Elsewhere", "Hamburg (H)"});

    EXPECT_EQ(Offered(form), (QStringList{QString::fromUtf8("Châteaudun (C)"), "Hamburg (H)", "Jokioinen (J)",
                                          QString::fromUtf8("Kremsmünster (K)"), "Okehampton (N)", "Piacenza (P)",
                                          "Porto (O)", "Sevilla (S)", "Thiva (T)"}));
    EXPECT_EQ(form.Loc_Selected(), (Names{"Hamburg (H)", "Sevilla (S)"}));
    EXPECT_EQ(form.Loc_Available().size(), 9U);
    EXPECT_EQ(form.Loc_Available()[0], "Ch\xE2teaudun (C)"); // in the documents' code page
}

TEST(andere_Standorte, Adds_All_And_Deletes_All)
{
    andere_Standorte form(Location_Kind::Leaching, {});
    form.show();

    Click<QPushButton>(form, "Command2");
    EXPECT_EQ(form.Loc_Selected(), form.Loc_Available());
    Click<QPushButton>(form, "Command1");
    EXPECT_TRUE(form.Loc_Selected().empty());
}

TEST(andere_Standorte_soil, Offers_The_Zones_Of_A_Crop_And_Keeps_The_Selection_With_Another_Crop)
{
    andere_Standorte form(Location_Kind::Soil, {"Total content - North (T_N)"});
    form.show();
    EXPECT_EQ(Offered(form),
              (QStringList{"Total content - North (T_N)", "Total content - Central (T_C)",
                           "Total content - South (T_S)", "Porewater concentration - North (P_N)",
                           "Porewater concentration - Central (P_C)", "Porewater concentration - South (P_S)"}));
    Choose(form, "Location", "Total content - North (T_N)");
    Choose(form, "Location", "Total content - South (T_S)");

    Choose(form, "Crop", "Sunflower");

    EXPECT_EQ(form.Loc_Selected(), Names{"Total content - South (T_S)"});
    EXPECT_EQ(form.objectName(), "andere_Standorte_soil");
}

} // namespace

} // namespace orvel
