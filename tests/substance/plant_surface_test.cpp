#include "substance/plant_surface.h"

#include "pesticide_session.h"

namespace orvel {

using Plant_Surface = Pesticide_Session;

TEST_F(Plant_Surface, Opens_With_The_Defaults_Of_A_New_Document)
{
    EXPECT_EQ(Load_Plant(Document), (Plant_Entry{"0.0693", "0.5", "0", "0.0693", "0", "500", "0.03", "98400"}));
}

TEST_F(Plant_Surface, Stores_All_And_Marks_The_Document)
{
    Accept_Plant(The_Session, {"0.1", "0.2", "0.3", "0.4", "0.5", "600", "0.04", "abc"});

    EXPECT_EQ(Document.Plant_Decay, Variant("0.1"));
    EXPECT_EQ(Document.Plant_Washoff, Variant("0.2"));
    EXPECT_EQ(Document.Plant_Filtration, 0.3);
    EXPECT_EQ(Document.Plant_Penetration, 0.4);
    EXPECT_EQ(Document.Plant_Photodeg, 0.5);
    EXPECT_EQ(Document.Plant_Ref_Rad, 600);
    EXPECT_EQ(Document.Plant_Laminar, 0.04);
    EXPECT_EQ(Document.Hv, 0);
    EXPECT_TRUE(The_Session.Program.PSM_Changed);
}

TEST_F(Plant_Surface, Shows_The_Filtration_For_Exponential_Interception_Only)
{
    EXPECT_TRUE(Shows_Filtration(Application_Method::Exponential));
    for (const auto method : {Application_Method::Soil, Application_Method::Linear, Application_Method::Manually})
        EXPECT_FALSE(Shows_Filtration(method));
}

} // namespace orvel
