// Arbitrary bytes as a defect file inside a camera of the Ostrel family: never a crash, never a pixel outside the
// sensor, and what the camera accepts comes back when it is written again.
#include "CameraFiles.h"
#include "Firmware/Ostrel/OstrelFile.h"

void Fuzz(const Bytes& input)
{
    constexpr SensorSize Size{40, 32};
    for (const Mirroring mirroring : Mirrorings)
    {
        const auto pixels = DecodeOstrelFile(input, Size, mirroring);
        CheckInside(pixels, Size);
        const FileBytes again = EncodeOstrelFile(pixels, Size, true, true);
        assert(DecodeOstrelFile(again, Size, mirroring).size() == pixels.size());
    }
}
