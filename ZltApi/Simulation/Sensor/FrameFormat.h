// From raw counts to the bytes that leave the camera.
#pragma once

#include "ColorFilter.h"

#include <cstdint>
#include <vector>

namespace Simulation
{

// The region of the mirrored image that a frame shows. All in pixels.
struct FrameGeometry
{
    std::uint32_t sensorWidth;
    std::uint32_t sensorHeight;
    std::uint32_t offsetX = 0;
    std::uint32_t offsetY = 0;
    std::uint32_t width;
    std::uint32_t height;
    bool reverseX = false;
    bool reverseY = false;
};

// Pixel formats that FormatFrame makes for an image of that mosaic, as PFNC codes, the 8-bit raw form first.
std::vector<std::uint32_t> FrameFormats(ColorFilter filter);

// Bytes of one frame; 0 for a format that FormatFrame does not make.
std::uint64_t FrameSize(std::uint32_t pixelFormat, std::uint32_t width, std::uint32_t height);

// Cuts the region at the offset out of the mirrored image, interpolates colours where the format asks for it and scales
// to the format's depth. raw is sensorWidth x sensorHeight in sensor coordinates behind the sensor's own filter; bytes
// holds size bytes, at least FrameSize. Pixels run on from line to line, without padding. YUV is BT.601 over the full
// range. Returns false, with nothing written, when the format cannot be made of this sensor, the region leaves the
// sensor, or size is too small. A raw Bayer format can be made when it names the mosaic that begins at the region's
// first pixel: that of MirroredFilter, with even offsets.
bool FormatFrame(const std::vector<std::uint16_t>& raw, ColorFilter filter, const FrameGeometry& geometry,
                 std::uint32_t pixelFormat, unsigned char* bytes, std::uint64_t size);

} // namespace Simulation
