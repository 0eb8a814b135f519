// Colour correction by a 3 x 3 matrix.
#include "ColorMatrix.h"

#include "PixelRuns.h"

#include <opencv2/core/hal/intrin.hpp>

#include <cstring>

namespace ZltApi::ImageTransform
{

namespace
{

constexpr std::size_t StepPixels = 16;

// 16 values of one channel as numbers.
struct Numbers
{
    cv::v_float32x4 Quarter[4];
};

Numbers ToNumbers(const cv::v_uint8x16& bytes)
{
    cv::v_uint16x8 half[2];
    cv::v_expand(bytes, half[0], half[1]);
    Numbers numbers;
    for (std::size_t i = 0; i < 2; ++i)
    {
        cv::v_uint32x4 low;
        cv::v_uint32x4 high;
        cv::v_expand(half[i], low, high);
        numbers.Quarter[2 * i] = cv::v_cvt_f32(cv::v_reinterpret_as_s32(low));
        numbers.Quarter[2 * i + 1] = cv::v_cvt_f32(cv::v_reinterpret_as_s32(high));
    }
    return numbers;
}

// Clamped before it is rounded: large numbers have no integer.
cv::v_uint8x16 RowTimes(const float* row, const Numbers& red, const Numbers& green, const Numbers& blue)
{
    cv::v_int32x4 rounded[4];
    for (int i = 0; i < 4; ++i)
    {
        const cv::v_float32x4 product = red.Quarter[i] * cv::v_setall_f32(row[0]) +
                                        green.Quarter[i] * cv::v_setall_f32(row[1]) +
                                        blue.Quarter[i] * cv::v_setall_f32(row[2]);
        rounded[i] = cv::v_round(cv::v_min(cv::v_max(product, cv::v_setzero_f32()), cv::v_setall_f32(255)));
    }
    return cv::v_pack_u(cv::v_pack(rounded[0], rounded[1]), cv::v_pack(rounded[2], rounded[3]));
}

void ApplyToStep(const float (&matrix)[9], std::uint8_t* bgra)
{
    cv::v_uint8x16 blueBytes;
    cv::v_uint8x16 greenBytes;
    cv::v_uint8x16 redBytes;
    cv::v_uint8x16 alpha;
    cv::v_load_deinterleave(bgra, blueBytes, greenBytes, redBytes, alpha);
    const Numbers red = ToNumbers(redBytes);
    const Numbers green = ToNumbers(greenBytes);
    const Numbers blue = ToNumbers(blueBytes);
    cv::v_store_interleave(bgra, RowTimes(matrix + 6, red, green, blue), RowTimes(matrix + 3, red, green, blue),
                           RowTimes(matrix, red, green, blue), cv::v_setall_u8(255));
}

} // namespace

void ApplyColorMatrix(const float (&matrix)[9], std::uint8_t* bgra, std::size_t pixels)
{
    for (; pixels >= StepPixels; pixels -= StepPixels)
    {
        ApplyToStep(matrix, bgra);
        bgra += StepPixels * BgraBytes;
    }
    std::uint8_t last[StepPixels * BgraBytes] = {};
    std::memcpy(last, bgra, pixels * BgraBytes);
    ApplyToStep(matrix, last);
    std::memcpy(bgra, last, pixels * BgraBytes);
}

} // namespace ZltApi::ImageTransform
