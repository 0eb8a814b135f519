// Conversion of colour pixels of three bytes.
#include "TripleConversion.h"

#include <opencv2/imgproc.hpp>

#include <cassert>

namespace ZltApi::ImageTransform
{

void ConvertTriples(bool redFirst, const std::uint8_t* source, std::uint8_t* bgra, int width, int height)
{
    // OpenCV only reads the source.
    const cv::Mat from(height, width, CV_8UC3, const_cast<std::uint8_t*>(source));
    cv::Mat to(height, width, CV_8UC4, bgra);
    cv::cvtColor(from, to, redFirst ? cv::COLOR_RGB2BGRA : cv::COLOR_BGR2BGRA);
    assert(to.data == bgra);
}

} // namespace ZltApi::ImageTransform
