// Takes single frames from an open camera.
#pragma once

#include "ApiController.h"
#include "CameraAbstraction.h"

#include <QImage>

namespace CommandLine
{

// Frames that pass before one counts as settled: exposure, gain and corrections that were just set reach the image
// late.
constexpr int SettlingFrames = 4;

// Switches to a pixel format with one byte for each sensor pixel, mosaic untouched: the present one if it is such a
// format, else the camera's first 8-bit Bayer format, else "Mono8". Throws KTR::System::Exception when it has none.
void SelectEightBitFormat(KTR::DPC::CameraAbstraction& camera);

// Streams until the given number of complete frames has come and returns the last one, one grey value for each sensor
// pixel, as QImage::Format_Grayscale8. The camera is in an 8-bit raw format. Throws KTR::System::Exception when the
// stream cannot be started or frames stay away.
QImage GrabFrame(ApiController& api, KTR::DPC::CameraAbstraction& camera, int frames);

} // namespace CommandLine
