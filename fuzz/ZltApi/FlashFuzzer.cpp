// Arbitrary bytes as a defect file inside a camera of the flash family: never a crash, never a pixel outside the
// sensor, and a correction that stays within the frame.
#include "CameraFiles.h"
#include "Firmware/Flash/FlashFile.h"

namespace
{

constexpr SensorSize Size{40, 32};

void use(const FileBytes& file)
{
    const auto pixels = DecodeFlashFile(file, Size).value_or(std::vector<MaskedPixel>());
    for (const MaskedPixel& pixel : pixels)
    {
        CheckInside({pixel.position}, Size);
    }
    std::vector<std::uint16_t> frame(Size.width * Size.height, 7);
    CorrectionMap(Size.width, Size.height, pixels).Apply(frame);
    assert(frame == std::vector<std::uint16_t>(Size.width * Size.height, 7));
}

} // namespace

void Fuzz(const Bytes& input)
{
    use(input);
    // As the records of a file whose head is right.
    FileBytes file = EncodeFlashFile({}, Size, ColorFilter::Mono);
    file[12] = static_cast<unsigned char>(input.size() / 8);
    file[13] = static_cast<unsigned char>(input.size() / 8 >> 8);
    file.insert(file.end(), input.begin(), input.end());
    use(file);
    std::vector<PixelPosition> pixels;
    for (std::size_t i = 0; i + 1 < input.size(); i += 2)
    {
        pixels.push_back({input[i] % Size.width, input[i + 1] % Size.height});
    }
    const auto again = DecodeFlashFile(EncodeFlashFile(pixels, Size, ColorFilter::BayerRG), Size);
    assert(again && again->size() <= pixels.size());
}
