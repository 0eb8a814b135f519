// How large the window's elements are on screens of high resolution.
#include "ScreenScale.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <vector>

namespace Lorvane
{

double ScaleForDotsPerInch(double dotsPerInch)
{
    constexpr double UnscaledDotsPerInch = 96;
    constexpr double StepsPerUnit = 4;
    return std::max(1.0, std::round(dotsPerInch / UnscaledDotsPerInch * StepsPerUnit) / StepsPerUnit);
}

void ScaleToScreen(int argc, char** argv)
{
    for (const char* variable : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_AUTO_SCREEN_SCALE_FACTOR"})
    {
        if (!qEnvironmentVariableIsEmpty(variable))
        {
            return;
        }
    }
    double scale = 1;
    {
        // Only an application knows the screen; this one takes Qt's options out of a copy of the arguments.
        std::vector<char*> arguments(argv, argv + argc + 1);
        const QGuiApplication probe(argc, arguments.data());
        scale = ScaleForDotsPerInch(QGuiApplication::primaryScreen()->logicalDotsPerInch());
    }
    if (scale > 1)
    {
        qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
    }
}

} // namespace Lorvane
