// Arbitrary bytes as a dataset file inside a camera of the Tamorin Pro family: never a crash, never a pixel outside the
// sensor.
#include "Firmware/TamorinPro/TamorinProFile.h"

#include <cassert>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace Simulation;
    constexpr std::uint32_t width = 40;
    constexpr std::uint32_t height = 32;
    const auto dataset = DecodeTamorinProFile(FileBytes(data, data + size), width, height);
    if (dataset)
    {
        for (const PixelPosition& pixel : dataset->pixels)
        {
            assert(pixel.x < width && pixel.y < height);
        }
        // What the camera accepts comes back when it is written again.
        const auto again = DecodeTamorinProFile(EncodeTamorinProFile(*dataset, width, height), width, height);
        assert(again && again->pixels.size() == dataset->pixels.size() && again->exposureUs == dataset->exposureUs);
    }
    return 0;
}
