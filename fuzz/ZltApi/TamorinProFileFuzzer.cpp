// Arbitrary bytes as a dataset file inside a camera of the Tamorin Pro family: never a crash, never a pixel outside the
// sensor, and what the camera accepts comes back when it is written again.
#include "CameraFiles.h"
#include "Firmware/TamorinPro/TamorinProFile.h"

void Fuzz(const Bytes& input)
{
    if (const auto dataset = DecodeTamorinProFile(input, 40, 32))
    {
        CheckInside(dataset->pixels, {40, 32});
        const auto again = DecodeTamorinProFile(EncodeTamorinProFile(*dataset, 40, 32), 40, 32);
        assert(again && again->pixels.size() == dataset->pixels.size() && again->exposureUs == dataset->exposureUs);
    }
}
