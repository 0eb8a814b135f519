// The controller's way from a frame of the camera to the image buffer.
#include "AsynchronousCameraController.h"

#include "CameraFeatures.h"
#include "CameraStreamStateHolder.h"
#include "ImageDoubleBuffer.h"
#include "ZltApi/PixelFormat.h"
#include "ZltImageTransform/ZltImageTransform.h"

#include <cassert>

namespace
{

ZltImage Descriptor()
{
    ZltImage image{};
    image.Size = sizeof image;
    return image;
}

// Whether the frame is a complete one of an acquisition with this format and size, and holds all of its pixels. What an
// acquisition that has just ended announced may still come while the next one runs, so that the frame itself is asked.
bool HoldsImage(const ZltApi::Frame& frame, std::uint32_t format, std::uint32_t width, std::uint32_t height)
{
    ZltImage image = Descriptor();
    std::uint32_t frameFormat = 0;
    std::uint32_t frameWidth = 0;
    std::uint32_t frameHeight = 0;
    std::uint64_t bytes = 0;
    ZltApi::FrameStatus status = ZltApi::FrameStatusInvalid;
    return ZltSetImageInfoFromPixelFormat(format, width, height, &image) == ZltErrorSuccess &&
           frame.GetReceiveStatus(status) == ZltErrorSuccess && status == ZltApi::FrameStatusComplete &&
           frame.GetPixelFormat(frameFormat) == ZltErrorSuccess && frameFormat == format &&
           frame.GetWidth(frameWidth) == ZltErrorSuccess && frameWidth == width &&
           frame.GetHeight(frameHeight) == ZltErrorSuccess && frameHeight == height &&
           frame.GetBufferSize(bytes) == ZltErrorSuccess && bytes >= image.BufferSize;
}

} // namespace

void AsynchronousCameraController::OnFrameReady(int status)
{
    if (!m_streaming)
    {
        return;
    }
    const ZltApi::FramePtr frame = m_api.GetFrame();
    if (!frame)
    {
        return;
    }
    if (status == ZltApi::FrameStatusComplete && ShowFrame(*frame))
    {
        m_imageBuffer.Swap();
        Q_EMIT SendPixmapToArea();
    }
    m_api.QueueFrame(frame);
}

bool AsynchronousCameraController::ShowFrame(ZltApi::Frame& frame)
{
    unsigned char* source = nullptr;
    if (frame.GetImage(source) != ZltErrorSuccess || source == nullptr)
    {
        return false;
    }
    m_imageBuffer.Lock();
    if (!m_streaming) // A stop on the GUI thread in this very moment leaves null images.
    {
        m_imageBuffer.Unlock();
        return false;
    }
    QImage& back = *m_imageBuffer.Back();
    if (back.isNull())
    {
        return false; // Cannot be while streaming. Nobody may flip or replace such images: the lock stays taken.
    }
    const unsigned int format = m_api.GetPixelFormat();
    // A start in this very moment leaves images of another size.
    const bool fits =
        back.width() == m_api.GetWidth() && back.height() == m_api.GetHeight() &&
        HoldsImage(frame, format, static_cast<std::uint32_t>(back.width()), static_cast<std::uint32_t>(back.height()));
    if (fits)
    {
        Convert(source, format, back);
    }
    m_imageBuffer.Unlock();
    return fits;
}

void AsynchronousCameraController::Convert(unsigned char* source, unsigned int format, QImage& image)
{
    if (!m_debayering)
    {
        switch (format)
        {
        case ZltPixelFormatBayerGR8:
        case ZltPixelFormatBayerRG8:
        case ZltPixelFormatBayerGB8:
        case ZltPixelFormatBayerBG8:
            TransformBayer8Image(source, image);
            return;
        case ZltPixelFormatBayerGR10:
        case ZltPixelFormatBayerRG10:
        case ZltPixelFormatBayerGB10:
        case ZltPixelFormatBayerBG10:
            TransformBayer10Image(source, image);
            return;
        case ZltPixelFormatBayerGR12:
        case ZltPixelFormatBayerRG12:
        case ZltPixelFormatBayerGB12:
        case ZltPixelFormatBayerBG12:
            TransformBayer12Image(source, image);
            return;
        case ZltPixelFormatBayerGR12Packed:
        case ZltPixelFormatBayerRG12Packed:
        case ZltPixelFormatBayerGB12Packed:
        case ZltPixelFormatBayerBG12Packed:
            TransformBayer12PackedImage(source, image);
            return;
        default:
            break;
        }
    }
    CopyToImage(source, format, image, nullptr);
}

// A mosaic as grey values is read exactly as a mono image of the same depth and packing.

void AsynchronousCameraController::TransformBayer8Image(unsigned char* source, QImage& img)
{
    CopyMosaic(source, ZltPixelFormatMono8, img);
}

void AsynchronousCameraController::TransformBayer10Image(unsigned char* source, QImage& img)
{
    CopyMosaic(source, ZltPixelFormatMono10, img);
}

void AsynchronousCameraController::TransformBayer12Image(unsigned char* source, QImage& img)
{
    CopyMosaic(source, ZltPixelFormatMono12, img);
}

void AsynchronousCameraController::TransformBayer12PackedImage(unsigned char* source, QImage& img)
{
    CopyMosaic(source, ZltPixelFormatMono12Packed, img);
}

void AsynchronousCameraController::CopyMosaic(unsigned char* source, unsigned int monoFormat, QImage& img)
{
    const int count = m_api.GetWidth() * m_api.GetHeight();
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED // byteCount: the text of the assertion is known to users
        assert(img.byteCount() == count * 4);
    QT_WARNING_POP
    CopyToImage(source, monoFormat, img, nullptr);
}

void AsynchronousCameraController::CopyToImage(unsigned char* buffer, unsigned int format, QImage& image,
                                               const float* colorMatrix)
{
    const auto width = static_cast<std::uint32_t>(m_api.GetWidth());
    const auto height = static_cast<std::uint32_t>(m_api.GetHeight());
    ZltImage source = Descriptor();
    ZltImage destination = Descriptor();
    if (ZltSetImageInfoFromPixelFormat(format, width, height, &source) != ZltErrorSuccess ||
        image.format() != QImage::Format_RGB32 || image.bytesPerLine() != m_api.GetWidth() * 4 ||
        image.height() != m_api.GetHeight() ||
        ZltSetImageInfoFromString("BGRA32", width, height, &destination) != ZltErrorSuccess)
    {
        return;
    }
    source.Data = buffer;
    destination.Data = image.bits();
    ZltTransformInfo matrix{};
    if (colorMatrix == nullptr)
    {
        ZltImageTransform(&source, &destination, nullptr, 0);
    }
    else if (ZltSetColorCorrectionMatrix3x3(colorMatrix, &matrix) == ZltErrorSuccess)
    {
        ZltImageTransform(&source, &destination, &matrix, 1);
    }
}

void AsynchronousCameraController::SetDebayeringOnOff(bool on)
{
    const CameraStreamStateHolder holder(*this);
    m_debayering = on;
}

void AsynchronousCameraController::SetPixelFormat(const QString& name)
{
    if (!CheckIfCamerasAreOnTheList())
    {
        return;
    }
    const CameraStreamStateHolder holder(*this);
    const ZltApi::FeaturePtr feature = CameraFeatures::Find(CurrentCamera(), "PixelFormat");
    if (feature)
    {
        feature->SetValue(name.toStdString().c_str());
    }
}
