// The files that are compiled into the program: icons, fonts, translations.
#include "Resources.h"

#include <QtGlobal>

// Outside of every namespace, as the macro declares a function of the global one.
static void InitialiseCompiledFiles()
{
    Q_INIT_RESOURCE(lorvane);
}

namespace Lorvane
{

void InitialiseResources()
{
    InitialiseCompiledFiles();
}

} // namespace Lorvane
