#pragma once

namespace orvel {

// Draws boxes, round buttons and fields with outlines that are seen on a dark ground, where the desktop's own style
// makes them darker than the ground. A light palette is drawn as ever. To be called once, when the application is
// there.
void Show_Outlines_In_The_Dark();

} // namespace orvel
