// The files that are compiled into the program: icons, fonts, translations.
#pragma once

namespace Lorvane
{

// Makes the compiled-in files readable under ":/icons", ":/fonts" and ":/translations". To be called once before the
// first of them is used; a second call does nothing.
void InitialiseResources();

} // namespace Lorvane
