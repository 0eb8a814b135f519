// Arbitrary bytes as a defect file inside a camera of the Rivo U family: never a crash, never a pixel outside the
// sensor, and what the camera accepts comes back when it is written again.
#include "CameraFiles.h"
#include "Firmware/RivoU/RivoUFile.h"

void Fuzz(const Bytes& input)
{
    constexpr SensorSize Size{41, 35};
    for (const Mirroring able : Mirrorings)
    {
        for (const Mirroring mirroring : Mirrorings)
        {
            const auto pixels = DecodeRivoUFile(input, Size, able, mirroring);
            CheckInside(pixels, Size);
            const FileBytes again = EncodeRivoUFile(pixels, Size, able);
            assert(DecodeRivoUFile(again, Size, able, mirroring).size() == pixels.size());
        }
    }
}
