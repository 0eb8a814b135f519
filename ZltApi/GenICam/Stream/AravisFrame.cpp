// One announced image buffer.
#include "Stream/AravisFrame.h"

#include <algorithm>
#include <cstring>

namespace GenICam
{

namespace
{

ZltApi::FrameStatus StatusOf(ArvBufferStatus status, bool isGigEVision)
{
    switch (status)
    {
    case ARV_BUFFER_STATUS_SUCCESS:
        return ZltApi::FrameStatusComplete;
    case ARV_BUFFER_STATUS_TIMEOUT:
    case ARV_BUFFER_STATUS_MISSING_PACKETS:
    case ARV_BUFFER_STATUS_WRONG_PACKET_ID:
        return ZltApi::FrameStatusIncomplete;
    case ARV_BUFFER_STATUS_SIZE_MISMATCH: // on USB it may also be less than expected, and Aravis does not tell which
        return isGigEVision ? ZltApi::FrameStatusTooSmall : ZltApi::FrameStatusIncomplete;
    default:
        return ZltApi::FrameStatusInvalid;
    }
}

std::uint64_t BytesOf(std::uint64_t pixels, std::uint32_t pixelFormat)
{
    const std::uint64_t bits = pixelFormat >> 16U & 0xFFU;
    return pixels / 8 * bits + (pixels % 8 * bits + 7) / 8;
}

// What the camera says that it has sent; nothing when it is no image.
ImageShape ShapeOf(ArvBuffer* buffer)
{
    const ArvBufferPayloadType payload = arv_buffer_get_payload_type(buffer);
    if ((payload != ARV_BUFFER_PAYLOAD_TYPE_IMAGE && payload != ARV_BUFFER_PAYLOAD_TYPE_EXTENDED_CHUNK_DATA) ||
        arv_buffer_get_n_parts(buffer) == 0)
    {
        return {};
    }
    return {static_cast<std::uint32_t>(arv_buffer_get_image_width(buffer)),
            static_cast<std::uint32_t>(arv_buffer_get_image_height(buffer)), arv_buffer_get_image_pixel_format(buffer)};
}

} // namespace

std::uint64_t ImageShape::Size() const
{
    return BytesOf(std::uint64_t{width} * height, pixelFormat);
}

AravisFrame::AravisFrame(std::size_t size, const ImageShape& expected, bool isGigEVision)
    : BasicFrame(size),
      m_buffer(arv_buffer_new(size, Data())),
      m_expected(expected),
      m_isGigEVision(isGigEVision)
{
}

void AravisFrame::Describe(std::uint64_t id)
{
    Content content{m_expected.width, m_expected.height, m_expected.pixelFormat, id,
                    StatusOf(arv_buffer_get_status(m_buffer.get()), m_isGigEVision)};
    Place place{0, Size()};
    if (content.status == ZltApi::FrameStatusComplete) // Aravis describes no others
    {
        const ImageShape shape = ShapeOf(m_buffer.get());
        content.status = FindImage(shape, place);
        if (content.status == ZltApi::FrameStatusComplete)
        {
            content.width = shape.width;
            content.height = shape.height;
            content.pixelFormat = shape.pixelFormat;
        }
    }
    SetContent(content, place.offset, place.size);
}

ZltApi::FrameStatus AravisFrame::FindImage(const ImageShape& shape, Place& place)
{
    size_t size = 0;
    const auto* const data = shape.Size() != 0
                                 ? static_cast<const unsigned char*>(arv_buffer_get_image_data(m_buffer.get(), &size))
                                 : nullptr;
    const auto offset = data != nullptr ? static_cast<std::uint64_t>(data - Data()) : Size() + 1;
    if (offset > Size() || size > Size() - offset)
    {
        return ZltApi::FrameStatusIncomplete;
    }
    int padding = 0;
    int linesBelow = 0;
    arv_buffer_get_image_padding(m_buffer.get(), &padding, &linesBelow);
    // A camera that sends more or less than it says must not lead anybody behind the end of the image.
    const std::uint64_t needed =
        shape.Size() + static_cast<std::uint64_t>(std::max(padding, 0)) * (shape.height - std::uint64_t{1});
    if (size < needed)
    {
        return needed > Size() ? ZltApi::FrameStatusTooSmall : ZltApi::FrameStatusIncomplete;
    }
    place = {offset, size};
    if (padding > 0)
    {
        // Lines that end within a byte are packed one into the next, and leave no place for padding.
        if (BytesOf(shape.width, shape.pixelFormat) * shape.height != shape.Size())
        {
            return ZltApi::FrameStatusInvalid;
        }
        RemovePadding(offset, shape, static_cast<std::uint64_t>(padding));
        place.size = shape.Size();
    }
    return ZltApi::FrameStatusComplete;
}

void AravisFrame::RemovePadding(std::uint64_t offset, const ImageShape& shape, std::uint64_t padding)
{
    const std::uint64_t line = shape.Size() / shape.height;
    unsigned char* const image = Data() + offset;
    for (std::uint64_t y = 1; y < shape.height; ++y)
    {
        std::memmove(image + y * line, image + y * (line + padding), line);
    }
}

} // namespace GenICam
