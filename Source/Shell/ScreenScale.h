// How large the window's elements are on screens of high resolution.
#pragma once

namespace Lorvane
{

// The scale for a screen of this logical resolution in dots per inch: quarters from 1 up. Screens tell values slightly
// beside 96 and its multiples; taken as they are, these would blur every line.
double ScaleForDotsPerInch(double dotsPerInch);

// Sets Qt's scale factor by the primary screen. To be called before the application object is made, with main's
// arguments. Leaves a scale alone that the user's environment sets.
void ScaleToScreen(int argc, char** argv);

} // namespace Lorvane
