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
    : m_bytes(size),
      m_buffer(arv_buffer_new(size, m_bytes.data())),
      m_image(m_bytes.data()),
      m_imageSize(size),
      m_expected(expected),
      m_shape(expected)
{
}

void AravisFrame::Describe(std::uint64_t id)
{
    m_id = id;
    m_status = StatusOf(arv_buffer_get_status(m_buffer.get()));
    m_image = m_bytes.data();
    m_imageSize = m_bytes.size();
    m_shape = m_expected;
    // A camera that sends more or less than it says must not lead anybody behind the end of the image.
    if (m_status == ZltApi::FrameStatusComplete && (!DescribeImage() || m_imageSize < m_shape.Size()))
    {
        m_status = m_shape.Size() > m_bytes.size() ? ZltApi::FrameStatusTooSmall : ZltApi::FrameStatusIncomplete;
    }
}

// Aravis describes complete images only.
bool AravisFrame::DescribeImage()
{
    ArvBuffer* const buffer = m_buffer.get();
    const ArvBufferPayloadType payload = arv_buffer_get_payload_type(buffer);
    if ((payload != ARV_BUFFER_PAYLOAD_TYPE_IMAGE && payload != ARV_BUFFER_PAYLOAD_TYPE_EXTENDED_CHUNK_DATA) ||
        arv_buffer_get_n_parts(buffer) == 0)
    {
        return false;
    }
    size_t size = 0;
    const auto* const data = static_cast<const unsigned char*>(arv_buffer_get_image_data(buffer, &size));
    const auto offset = data != nullptr ? static_cast<std::uint64_t>(data - m_bytes.data()) : m_bytes.size() + 1;
    if (offset > m_bytes.size() || size > m_bytes.size() - offset)
    {
        return false;
    }
    m_image = m_bytes.data() + offset;
    m_imageSize = size;
    m_shape = {static_cast<std::uint32_t>(arv_buffer_get_image_width(buffer)),
               static_cast<std::uint32_t>(arv_buffer_get_image_height(buffer)),
               arv_buffer_get_image_pixel_format(buffer)};
    return true;
}

ZltErrorType AravisFrame::GetImage(unsigned char*& image)
{
    image = m_image;
    return ZltErrorSuccess;
}

ZltErrorType AravisFrame::GetReceiveStatus(ZltApi::FrameStatus& status) const
{
    status = m_status;
    return ZltErrorSuccess;
}

ZltErrorType AravisFrame::GetBufferSize(std::uint64_t& bytes) const
{
    bytes = m_imageSize;
    return ZltErrorSuccess;
}

ZltErrorType AravisFrame::GetWidth(std::uint32_t& width) const
{
    width = m_shape.width;
    return ZltErrorSuccess;
}

ZltErrorType AravisFrame::GetHeight(std::uint32_t& height) const
{
    height = m_shape.height;
    return ZltErrorSuccess;
}

ZltErrorType AravisFrame::GetPixelFormat(std::uint32_t& format) const
{
    format = m_shape.pixelFormat;
    return ZltErrorSuccess;
}

ZltErrorType AravisFrame::GetFrameID(std::uint64_t& id) const
{
    id = m_id;
    return ZltErrorSuccess;
}

} // namespace GenICam
