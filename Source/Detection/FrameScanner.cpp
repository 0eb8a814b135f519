// The search for bright pixels in one frame.
#include "FrameScanner.h"

#include "DefectUiType.h"

#include <algorithm>
#include <array>

namespace
{

// Pixels that are tested together. A constant, so that the compiler turns the loops over them into vector code, and
// large enough that it does not unroll them before it does.
constexpr int GroupWidth = 64;
constexpr int MaximumSum = 3 * 255;

int ChannelSum(QRgb pixel)
{
    return static_cast<int>((pixel & 0xffu) + ((pixel >> 8) & 0xffu) + ((pixel >> 16) & 0xffu));
}

int ChannelSum(uchar grey)
{
    return 3 * grey;
}

// True when one pixel of the group has at least this sum; no branch in the loop.
bool GroupReaches(const QRgb* group, int leastSum)
{
    int signs = 0;
    for (int i = 0; i < GroupWidth; ++i)
    {
        signs |= leastSum - 1 - ChannelSum(group[i]);
    }
    return signs < 0;
}

bool GroupReaches(const uchar* group, int leastSum)
{
    uchar brightest = 0;
    for (int i = 0; i < GroupWidth; ++i)
    {
        brightest = std::max(brightest, group[i]);
    }
    return ChannelSum(brightest) >= leastSum;
}

template <typename PixelType>
void AppendBrightPixels(const PixelType* pixels, int count, int leastSum, int x, int y,
                        QList<TemporaryDefectInfo>& candidates)
{
    for (int first = 0; first < count; first += GroupWidth)
    {
        const int end = std::min(first + GroupWidth, count);
        if (end - first == GroupWidth && !GroupReaches(pixels + first, leastSum))
        {
            continue;
        }
        for (int i = first; i < end; ++i)
        {
            const int sum = ChannelSum(pixels[i]);
            if (sum >= leastSum)
            {
                candidates.append(TemporaryDefectInfo(x + i, y, 1, 1, DefectUiType::SinglePixel, sum / 3.0));
            }
        }
    }
}

} // namespace

// A mean of a whole sum over three is at or above a whole threshold exactly when the sum is at or above three times it,
// also after rounding: so whole numbers decide, and thresholds that no pixel or every pixel reaches need no range.
FrameScanner::FrameScanner(const QImage& image, int threshold)
    : m_image(image),
      m_leastSum(3 * std::clamp(threshold, 0, MaximumSum / 3 + 1))
{
}

void FrameScanner::ScanBlock(int x, int y, QList<TemporaryDefectInfo>& candidates) const
{
    const int count = std::min(BlockWidth, m_image.width() - x);
    switch (m_image.format())
    {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
        AppendBrightPixels(reinterpret_cast<const QRgb*>(m_image.constScanLine(y)) + x, count, m_leastSum, x, y,
                           candidates);
        return;
    case QImage::Format_Grayscale8:
        AppendBrightPixels(m_image.constScanLine(y) + x, count, m_leastSum, x, y, candidates);
        return;
    default:
        break;
    }
    std::array<QRgb, BlockWidth> pixels;
    for (int i = 0; i < count; ++i)
    {
        pixels[static_cast<std::size_t>(i)] = m_image.pixel(x + i, y);
    }
    AppendBrightPixels(pixels.data(), count, m_leastSum, x, y, candidates);
}
