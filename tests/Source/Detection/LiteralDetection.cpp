// The detection in its plain form: pixel by pixel, with the real list and its iterators, at any cost.
#include "LiteralDetection.h"

#include <QPoint>

#include <algorithm>

namespace
{

double Luminance(QRgb pixel)
{
    return 0.299 * qRed(pixel) + 0.587 * qGreen(pixel) + 0.114 * qBlue(pixel);
}

bool Keeps(const QImage& image, int x, int y)
{
    const QPoint points[] = {{x, y}, {x, y - 1}, {x - 1, y}, {x + 1, y}, {x, y + 1}};
    bool keep = true;
    const double own = Luminance(image.pixel(x, y));
    double mean = 0;
    for (const QPoint& point : points)
    {
        mean += Luminance(image.pixel(point));
    }
    mean /= 5.0;
    for (int i = 1; i < 5; ++i)
    {
        if (image.rect().contains(points[i]))
        {
            if (Luminance(image.pixel(points[i])) > own)
            {
                keep = false; // NOLINT(clang-analyzer-deadcode.DeadStores): part of the definition
            }
            keep = own > mean;
        }
    }
    return keep;
}

void CheckIfRun(LiteralDetection& run, TemporaryDefectInfo& d, bool isRow)
{
    const auto place = isRow ? &TemporaryDefectInfo::x : &TemporaryDefectInfo::y;
    const auto length = isRow ? &TemporaryDefectInfo::width : &TemporaryDefectInfo::height;
    const auto find = [&](int c)
    {
        return std::find_if(run.defects.begin(), run.defects.end(),
                            [&](const TemporaryDefectInfo& e)
                            { return e.x == (isRow ? c : d.x) && e.y == (isRow ? d.y : c); });
    };
    int c = d.*place;
    for (auto e = find(--c); e != run.defects.end(); e = find(--c))
    {
        (*e).*place = d.*place;
        d.*place = c;
        d.type = isRow ? 2 : 1;
    }
    c = d.*place;
    for (auto e = find(++c); e != run.defects.end(); e = find(++c))
    {
        ++(d.*length);
        d.type = isRow ? 2 : 1;
        run.defects.erase(e);
    }
    if (d.*length == (isRow ? run.width : run.height))
    {
        d.type = isRow ? 5 : 4;
    }
}

void Walk(LiteralDetection& run, bool isRow)
{
    if (std::count(run.supported.begin(), run.supported.end(), isRow ? 2 : 1) > 0)
    {
        for (auto it = run.defects.begin(); it < run.defects.end(); ++it)
        {
            CheckIfRun(run, *it, isRow);
        }
    }
}

} // namespace

void LiteralDetection::Run()
{
    defects.detach(); // iterators live through removals only in a list that is not shared
    for (int i = 0; i < image.width() * image.height(); ++i)
    {
        const QPoint point(i % image.width(), i / image.width());
        const QRgb pixel = image.pixel(point);
        const double mean = (qRed(pixel) + qGreen(pixel) + qBlue(pixel)) / 3.0;
        if (mean >= threshold)
        {
            defects.append(TemporaryDefectInfo(point.x(), point.y(), 1, 1, 0, mean));
        }
    }
    for (int pass = 0; pass < 2; ++pass)
    {
        for (auto it = defects.constBegin(); it < defects.constEnd(); ++it)
        {
            if (!Keeps(image, it->x, it->y))
            {
                defects.removeAt(static_cast<int>(it - defects.constBegin()));
            }
        }
    }
    Walk(*this, true);
    Walk(*this, false);
}
