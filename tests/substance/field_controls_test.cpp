#include "substance/field_controls.h"

#include "files/document_values.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvel {

TEST(Field_Controls, A_Box_Stands_For_The_Field_Of_The_Forms_Substance)
{
    const auto field = [](std::string_view form, std::string_view control, int substance, int row = 0) {
        const auto fields = Fields_Of_Form(form, substance, row);
        const auto found = std::ranges::find(fields, control, &Control_Field::Control);
        return found == fields.end() ? std::string() : found->Field;
    };

    EXPECT_EQ(field("Form_AS", "Text_koc0", 1), "Koc[1]");
    EXPECT_EQ(field("Form_MET", "text_uptkf", 4), "Plant_Uptake[4]");
    EXPECT_EQ(field("Form_AS", "Text_vol1_1", 1), "Vap_Press[1]");
    EXPECT_EQ(field("Form_MET", "Text_vol1_1", 4), ""); // volatilisation is that of the active substance
    EXPECT_EQ(field("deg_dat", "Text8", 2, 3), "Degradation[2][3].Deg_Q10");
    EXPECT_EQ(field("Plant_App", "S_plt_dk", 1), "Plant_Decay");
    EXPECT_EQ(field("Plant_App", "S_Hv", 1), "Hv");
    EXPECT_EQ(field("KOC_PH", "s_pKa", 3), "Sorp_pKa[3]");
    EXPECT_EQ(field("kin_Sorption", "s_kdes", 1), "K_des[1]");
}

TEST(Field_Controls, Every_Field_Is_One_Of_The_Document)
{
    for (const auto* form : {"Form_AS", "Form_MET", "deg_dat", "Plant_App", "KOC_PH", "kin_Sorption"}) {
        const auto fields = Fields_Of_Form(form, 1, 1);
        EXPECT_FALSE(fields.empty()) << form;
        for (const auto& [control, field] : fields)
            EXPECT_EQ(Why_Not_A_Pesticide_Field(field), "") << form << " " << control;
    }
}

} // namespace orvel
