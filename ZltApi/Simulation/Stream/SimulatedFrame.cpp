// Access to an image buffer.
#include "Stream/SimulatedFrame.h"

namespace Simulation
{

SimulatedFrame::SimulatedFrame(std::uint64_t size) : m_bytes(static_cast<std::size_t>(size)) {}

ZltErrorType SimulatedFrame::GetImage(unsigned char*& image)
{
    image = m_bytes.data();
    return ZltErrorSuccess;
}

ZltErrorType SimulatedFrame::GetReceiveStatus(ZltApi::FrameStatus& status) const
{
    status = m_content.status;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedFrame::GetBufferSize(std::uint64_t& bytes) const
{
    bytes = m_bytes.size();
    return ZltErrorSuccess;
}

ZltErrorType SimulatedFrame::GetWidth(std::uint32_t& width) const
{
    width = m_content.width;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedFrame::GetHeight(std::uint32_t& height) const
{
    height = m_content.height;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedFrame::GetPixelFormat(std::uint32_t& format) const
{
    format = m_content.pixelFormat;
    return ZltErrorSuccess;
}

ZltErrorType SimulatedFrame::GetFrameID(std::uint64_t& id) const
{
    id = m_content.id;
    return ZltErrorSuccess;
}

} // namespace Simulation
