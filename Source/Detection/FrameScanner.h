// The search for bright pixels in one frame.
#pragma once

#include "TemporaryDefectInfo.h"

#include <QImage>
#include <QList>

// Finds the pixels whose mean of red, green and blue, as QImage::pixel gives them, is at or above a threshold. Borrows
// the frame, which must not change meanwhile. 32-bit and 8-bit grey frames are read in place, at memory speed as long
// as candidates are few; all other formats go through QImage::pixel.
class FrameScanner
{
public:
    // Pixels that one step covers, so the work between two looks at a stop flag.
    static constexpr int BlockWidth = 256;

    FrameScanner(const QImage& image, int threshold);

    // Appends the candidates among the pixels x to x + BlockWidth - 1 of row y, from the left; pixels beyond the row's
    // end are left out.
    void ScanBlock(int x, int y, QList<TemporaryDefectInfo>& candidates) const;

private:
    const QImage& m_image;
    int m_leastSum;
};
