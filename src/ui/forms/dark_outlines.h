#pragma once

namespace orvel {

// Gives check boxes, radio buttons and fields outlines that are visible on a dark background, where the desktop's own
// style draws them darker than the background. With a light palette nothing changes. Call once, after the application
// object exists.
void Show_Outlines_In_The_Dark();

} // namespace orvel
