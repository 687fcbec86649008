#include "substance/pathway_picture.h"

#include "substance/pathway.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr Scheme_Colour Active_Arrow = {0xE0, 0x22, 0x02};
constexpr Scheme_Colour Black = {};
constexpr Scheme_Colour Present_Box = {0xFE, 0xFC, 0xD6};
constexpr Scheme_Colour Absent_Box = {0xFF, 0x80, 0x80};

constexpr int Raised_By = 2800;
constexpr int Last_Level_Arrow = 20;
constexpr int Opens_To_The_Left[] = {4, 5, 14, 16, 17, 19, 21, 26, 29};

} // namespace

Arrow_Look Look_Of_Arrow(const Pesticide_Document& document, int t)
{
    return document.Trans_Active.at(static_cast<std::size_t>(t)) ? Arrow_Look{3, Active_Arrow} : Arrow_Look{1, Black};
}

Box_Look Look_Of_Box(const Pesticide_Document& document, int i)
{
    return document.Met_Present.at(static_cast<std::size_t>(i)) ? Box_Look{Present_Box, false}
                                                                : Box_Look{Absent_Box, true};
}

std::string Arrow_Label(int t)
{
    return t >= 1 && t <= Last_Transformation ? std::string(Arrow_Of(t).Label) : "";
}

bool Arrow_Is_Clickable(int t)
{
    return !Arrow_Label(t).empty();
}

std::string Transformation_Caption(int t)
{
    return "Transformation " + Arrow_Label(t);
}

std::string Opening_Box_Caption(const Pesticide_Document& document, int i)
{
    const auto caption = Box_Caption(document, i);
    return document.Substance_Name[i].empty() && i > 1 ? " " + caption : caption;
}

std::string Box_Caption(const Pesticide_Document& document, int i)
{
    const auto& name = document.Substance_Name.at(static_cast<std::size_t>(i));
    return name.empty() ? std::string(Default_Substance_Name[i]) : name;
}

Twips Transformation_Spot(int t, Twips arrow, int arrow_width, int window_width)
{
    const bool to_the_left = std::ranges::find(Opens_To_The_Left, t) != std::end(Opens_To_The_Left);
    return {to_the_left ? arrow.Left - window_width : arrow.Left + arrow_width,
            t <= Last_Level_Arrow ? arrow.Top : arrow.Top - Raised_By};
}

bool Shows_Photolysis(int t)
{
    return t <= Rows_Of_Substance(1);
}

} // namespace orvel
