// Arbitrary bytes as a defect file inside a camera of the flash family: never a crash, never a pixel outside the
// sensor, and a correction that stays within the frame.
#include "Firmware/Flash/FlashFile.h"

#include <algorithm>
#include <cassert>

using namespace Simulation;

namespace
{

constexpr SensorSize Size{40, 32};

void use(const FileBytes& file)
{
    const auto pixels = DecodeFlashFile(file, Size);
    if (!pixels)
    {
        return;
    }
    assert(std::all_of(pixels->begin(), pixels->end(),
                       [](const MaskedPixel& pixel)
                       { return pixel.position.x < Size.width && pixel.position.y < Size.height; }));
    std::vector<std::uint16_t> frame(Size.width * Size.height, 7);
    CorrectionMap(Size.width, Size.height, *pixels).Apply(frame);
    assert(std::all_of(frame.begin(), frame.end(), [](std::uint16_t value) { return value == 7; }));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FileBytes bytes(data, data + size);
    use(bytes);
    // As the records of a file whose head is right.
    FileBytes file = EncodeFlashFile({}, Size, ColorFilter::Mono);
    file[12] = static_cast<unsigned char>(size / 8);
    file[13] = static_cast<unsigned char>(size / 8 >> 8);
    file.insert(file.end(), bytes.begin(), bytes.end());
    use(file);
    std::vector<PixelPosition> pixels;
    for (std::size_t i = 0; i + 1 < size; i += 2)
    {
        pixels.push_back({data[i] % Size.width, data[i + 1] % Size.height});
    }
    const auto again = DecodeFlashFile(EncodeFlashFile(pixels, Size, ColorFilter::BayerRG), Size);
    assert(again && again->size() <= pixels.size());
    return 0;
}
