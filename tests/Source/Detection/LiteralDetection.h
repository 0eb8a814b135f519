// The detection in its plain form: pixel by pixel, with the real list and its iterators, at any cost.
#pragma once

#include "TemporaryDefectInfo.h"

#include <QImage>
#include <QList>

#include <vector>

// The yardstick of the fast detection, and what both start from.
struct LiteralDetection
{
    QImage image;
    int threshold = 40;
    int width = 0;
    int height = 0;
    std::vector<int> supported;
    QList<TemporaryDefectInfo> defects;

    void Run();
};
