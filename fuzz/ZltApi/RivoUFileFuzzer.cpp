// Arbitrary bytes as a defect file inside a camera of the Rivo U family: never a crash, never a pixel outside the
// sensor.
#include "Firmware/RivoU/RivoUFile.h"

#include <cassert>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace Simulation;
    constexpr SensorSize sensor{41, 35};
    constexpr Mirroring ways[] = {{false, false}, {true, false}, {false, true}, {true, true}};
    const FileBytes file(data, data + size);
    // Lists that the camera accepts come back when they are written again.
    for (const Mirroring able : ways)
    {
        for (const Mirroring mirroring : ways)
        {
            const auto pixels = DecodeRivoUFile(file, sensor, able, mirroring);
            for (const PixelPosition& pixel : pixels)
            {
                assert(pixel.x < sensor.width && pixel.y < sensor.height);
            }
            const auto again = DecodeRivoUFile(EncodeRivoUFile(pixels, sensor, able), sensor, able, mirroring);
            assert(again.size() == pixels.size());
        }
    }
    return 0;
}
