// One announced image buffer.
#include "Stream/AravisFrame.h"

namespace GenICam
{

namespace
{

ZltApi::FrameStatus StatusOf(ArvBufferStatus status)
{
    switch (status)
    {
    case ARV_BUFFER_STATUS_SUCCESS:
        return ZltApi::FrameStatusComplete;
    case ARV_BUFFER_STATUS_TIMEOUT:
    case ARV_BUFFER_STATUS_MISSING_PACKETS:
    case ARV_BUFFER_STATUS_WRONG_PACKET_ID:
        return ZltApi::FrameStatusIncomplete;
    case ARV_BUFFER_STATUS_SIZE_MISMATCH:
        return ZltApi::FrameStatusTooSmall;
    default:
        return ZltApi::FrameStatusInvalid;
    }
}

} // namespace

std::uint64_t ImageShape::Size() const
{
    const std::uint64_t pixels = std::uint64_t{width} * height;
    const std::uint64_t bits = pixelFormat >> 16U & 0xFFU;
    return pixels / 8 * bits + (pixels % 8 * bits + 7) / 8;
}

AravisFrame::AravisFrame(std::size_t size, const ImageShape& expected)
    : BasicFrame(size),
      m_buffer(arv_buffer_new(size, Data())),
      m_expected(expected)
{
}

void AravisFrame::Describe(std::uint64_t id)
{
    Content content{m_expected.width, m_expected.height, m_expected.pixelFormat, id,
                    StatusOf(arv_buffer_get_status(m_buffer.get()))};
    Place place{0, Size()};
    if (content.status == ZltApi::FrameStatusComplete) // Aravis describes no others
    {
        content.status = FindImage(content, place);
    }
    SetContent(content, place.offset, place.size);
}

ZltApi::FrameStatus AravisFrame::FindImage(Content& content, Place& place)
{
    ArvBuffer* const buffer = m_buffer.get();
    const ArvBufferPayloadType payload = arv_buffer_get_payload_type(buffer);
    if ((payload != ARV_BUFFER_PAYLOAD_TYPE_IMAGE && payload != ARV_BUFFER_PAYLOAD_TYPE_EXTENDED_CHUNK_DATA) ||
        arv_buffer_get_n_parts(buffer) == 0)
    {
        return ZltApi::FrameStatusIncomplete;
    }
    size_t size = 0;
    const auto* const data = static_cast<const unsigned char*>(arv_buffer_get_image_data(buffer, &size));
    const auto offset = data != nullptr ? static_cast<std::uint64_t>(data - Data()) : Size() + 1;
    if (offset > Size() || size > Size() - offset)
    {
        return ZltApi::FrameStatusIncomplete;
    }
    // A camera that sends more or less than it says must not lead anybody behind the end of the image.
    const ImageShape shape{static_cast<std::uint32_t>(arv_buffer_get_image_width(buffer)),
                           static_cast<std::uint32_t>(arv_buffer_get_image_height(buffer)),
                           arv_buffer_get_image_pixel_format(buffer)};
    if (size < shape.Size())
    {
        return shape.Size() > Size() ? ZltApi::FrameStatusTooSmall : ZltApi::FrameStatusIncomplete;
    }
    content.width = shape.width;
    content.height = shape.height;
    content.pixelFormat = shape.pixelFormat;
    place = {offset, size};
    return ZltApi::FrameStatusComplete;
}

} // namespace GenICam
