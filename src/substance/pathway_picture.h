#pragma once

#include "core/session.h"

#include <cstdint>
#include <string>

namespace orvel {

// What the picture of the degradation scheme shows: captions, colours, pens, clickable parts, and the position of an
// arrow's window. The flags come from Update_Pathway.

struct Scheme_Colour {
    std::uint8_t Red = 0, Green = 0, Blue = 0;
    bool operator==(const Scheme_Colour&) const = default;
};

struct Arrow_Look {
    int Width = 1; // line width
    Scheme_Colour Pen;
    bool operator==(const Arrow_Look&) const = default;
};

struct Box_Look {
    Scheme_Colour Back;
    bool Hand_Pointer = false; // pointer over an absent substance
    bool operator==(const Box_Look&) const = default;
};

// The lines of arrow t, 1 to 29: wide and red if active, thin and black otherwise.
Arrow_Look Look_Of_Arrow(const Pesticide_Document& document, int t);

// The box of substance i, 1 to 9: light yellow if present, light red otherwise.
Box_Look Look_Of_Box(const Pesticide_Document& document, int i);

// The label of an arrow; empty for reserved arrows and invalid numbers.
std::string Arrow_Label(int t);

// False for reserved arrows: they have no head to click.
bool Arrow_Is_Clickable(int t);

// The caption of the transformation window.
std::string Transformation_Caption(int t);

// The caption of a box when the scheme opens: the substance name, or the default caption, which for a metabolite begins
// with a blank.
std::string Opening_Box_Caption(const Pesticide_Document& document, int i);

// The caption of a box after an edit: the name, or the default name if it was cleared.
std::string Box_Caption(const Pesticide_Document& document, int i);

// The position of an arrow's window in twips relative to the clicked arrow: beside it, higher for the second
// generation, and to the left where it would leave the picture.
struct Twips {
    int Left = 0, Top = 0;
    bool operator==(const Twips&) const = default;
};
Twips Transformation_Spot(int t, Twips arrow, int arrow_width, int window_width);

// Only arrows of the active substance have soil photolysis: the windows of all others are smaller.
bool Shows_Photolysis(int t);

} // namespace orvel
