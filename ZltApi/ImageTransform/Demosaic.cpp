// Colour interpolation of Bayer mosaics.
#include "Demosaic.h"

#include "PixelRuns.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cassert>

namespace ZltApi::ImageTransform
{

namespace
{

constexpr int Blue = 0;
constexpr int Green = 1;
constexpr int Red = 2;

// The four pixels of which a mosaic repeats, row by row.
struct Tile
{
    int Colors[4];
    int Conversion; // OpenCV's own

    int ColorAt(int x, int y) const { return Colors[(y & 1) * 2 + (x & 1)]; }
};

Tile TileOf(Mosaic mosaic)
{
    switch (mosaic)
    {
    case Mosaic::GR:
        return {{Green, Red, Blue, Green}, cv::COLOR_BayerGRBG2BGRA};
    case Mosaic::GB:
        return {{Green, Blue, Red, Green}, cv::COLOR_BayerGBRG2BGRA};
    case Mosaic::BG:
        return {{Blue, Green, Green, Red}, cv::COLOR_BayerBGGR2BGRA};
    default:
        return {{Red, Green, Green, Blue}, cv::COLOR_BayerRGGB2BGRA};
    }
}

// Of at most four bytes, for which the product is exact. Of none: the other value.
std::uint8_t RoundedMean(unsigned sum, unsigned count, std::uint8_t ofNone)
{
    constexpr unsigned Reciprocals[] = {0, 65536, 32768, 21846, 16384};
    return count == 0 ? ofNone : static_cast<std::uint8_t>((sum + count / 2) * Reciprocals[count] >> 16U);
}

class PixelInterpolator
{
public:
    PixelInterpolator(const Tile& tile, const std::uint8_t* source, std::uint8_t* bgra, int width, int height)
        : m_tile(tile),
          m_source(source),
          m_bgra(bgra),
          m_width(width),
          m_height(height)
    {
    }

    // Fetches the memory at the left end of a row, and so that at the right end of the one above.
    void Prefetch(int y) const
    {
        const std::ptrdiff_t pixel = std::ptrdiff_t{y} * m_width;
        __builtin_prefetch(m_source + pixel);
        __builtin_prefetch(m_bgra + pixel * static_cast<std::ptrdiff_t>(BgraBytes), 1);
    }

    void Interpolate(int x, int y) const
    {
        const bool up = y > 0;
        const bool down = y + 1 < m_height;
        const std::ptrdiff_t width = m_width;
        const std::uint8_t* const own = m_source + y * width + x;
        const std::uint8_t* const above = own - (up ? width : 0);
        const std::uint8_t* const below = own + (down ? width : 0);
        const std::ptrdiff_t left = x > 0 ? -1 : 0;
        const std::ptrdiff_t right = x + 1 < m_width ? 1 : 0;
        const unsigned rows = (up ? 1U : 0U) + (down ? 1U : 0U);
        const unsigned columns = (left != 0 ? 1U : 0U) + (right != 0 ? 1U : 0U);

        // Where a neighbour is missing its place holds the pixel itself or one beside it, and is masked.
        const unsigned hasLeft = left != 0 ? 0xFFU : 0U;
        const unsigned hasRight = right != 0 ? 0xFFU : 0U;
        const unsigned hasUp = up ? 0xFFU : 0U;
        const unsigned hasDown = down ? 0xFFU : 0U;
        const unsigned horizontal = (own[left] & hasLeft) + (own[right] & hasRight);
        const unsigned vertical = (*above & hasUp) + (*below & hasDown);
        const unsigned diagonal = (above[left] & hasUp & hasLeft) + (above[right] & hasUp & hasRight) +
                                  (below[left] & hasDown & hasLeft) + (below[right] & hasDown & hasRight);

        std::uint8_t* const pixel = m_bgra + (y * width + x) * static_cast<std::ptrdiff_t>(BgraBytes);
        const int color = m_tile.ColorAt(x, y);
        pixel[color] = *own;
        if (color == Green)
        {
            pixel[m_tile.ColorAt(x + 1, y)] = RoundedMean(horizontal, columns, *own);
            pixel[m_tile.ColorAt(x, y + 1)] = RoundedMean(vertical, rows, *own);
        }
        else
        {
            pixel[Green] = RoundedMean(horizontal + vertical, rows + columns, *own);
            pixel[Red - color] = RoundedMean(diagonal, rows * columns, *own);
        }
        pixel[3] = 255;
    }

private:
    const Tile& m_tile;
    const std::uint8_t* m_source;
    std::uint8_t* m_bgra;
    int m_width;
    int m_height;
};

} // namespace

void Demosaic(Mosaic mosaic, const std::uint8_t* source, std::uint8_t* bgra, int width, int height)
{
    const Tile tile = TileOf(mosaic);
    const PixelInterpolator interpolator(tile, source, bgra, width, height);
    const bool hasInside = width > 2 && height > 2;
    if (hasInside)
    {
        // OpenCV only reads the source. It would copy the border from the pixels inside, which hides a defect there.
        const cv::Mat from(height, width, CV_8UC1, const_cast<std::uint8_t*>(source));
        cv::Mat to(height, width, CV_8UC4, bgra);
        cv::cvtColor(from, to, tile.Conversion);
        assert(to.data == bgra);
    }
    constexpr int RowsAhead = 16;
    for (int y = 0; y < height; ++y)
    {
        if (y + RowsAhead < height)
        {
            interpolator.Prefetch(y + RowsAhead);
        }
        const bool isBorderRow = !hasInside || y == 0 || y == height - 1;
        const int step = isBorderRow ? 1 : width - 1;
        for (int x = 0; x < width; x += step)
        {
            interpolator.Interpolate(x, y);
        }
    }
}

} // namespace ZltApi::ImageTransform
