// Arbitrary bytes as a defect file inside a camera of the Ostrel family: never a crash, never a pixel outside the
// sensor.
#include "Firmware/Ostrel/OstrelFile.h"

#include <cassert>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace Simulation;
    constexpr SensorSize sensor{40, 32};
    const FileBytes file(data, data + size);
    // Lists that the camera accepts come back when they are written again.
    for (const Mirroring mirroring : {Mirroring{false, false}, {true, false}, {false, true}, {true, true}})
    {
        const auto pixels = DecodeOstrelFile(file, sensor, mirroring);
        for (const PixelPosition& pixel : pixels)
        {
            assert(pixel.x < sensor.width && pixel.y < sensor.height);
        }
        const auto again = DecodeOstrelFile(EncodeOstrelFile(pixels, sensor, true, true), sensor, mirroring);
        assert(again.size() == pixels.size());
    }
    return 0;
}
