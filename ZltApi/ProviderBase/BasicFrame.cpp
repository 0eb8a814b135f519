// One announced image buffer.
#include "BasicFrame.h"

namespace ProviderBase
{

BasicFrame::BasicFrame(std::uint64_t size) : m_bytes(static_cast<std::size_t>(size)), m_imageSize(size) {}

void BasicFrame::SetContent(const Content& content)
{
    SetContent(content, 0, Size());
}

void BasicFrame::SetContent(const Content& content, std::uint64_t offset, std::uint64_t size)
{
    m_content = content;
    m_offset = offset;
    m_imageSize = size;
}

ZltErrorType BasicFrame::GetImage(unsigned char*& image)
{
    image = m_bytes.data() + m_offset;
    return ZltErrorSuccess;
}

ZltErrorType BasicFrame::GetReceiveStatus(ZltApi::FrameStatus& status) const
{
    status = m_content.status;
    return ZltErrorSuccess;
}

ZltErrorType BasicFrame::GetBufferSize(std::uint64_t& bytes) const
{
    bytes = m_imageSize;
    return ZltErrorSuccess;
}

ZltErrorType BasicFrame::GetWidth(std::uint32_t& width) const
{
    width = m_content.width;
    return ZltErrorSuccess;
}

ZltErrorType BasicFrame::GetHeight(std::uint32_t& height) const
{
    height = m_content.height;
    return ZltErrorSuccess;
}

ZltErrorType BasicFrame::GetPixelFormat(std::uint32_t& format) const
{
    format = m_content.pixelFormat;
    return ZltErrorSuccess;
}

ZltErrorType BasicFrame::GetFrameID(std::uint64_t& id) const
{
    id = m_content.id;
    return ZltErrorSuccess;
}

} // namespace ProviderBase
