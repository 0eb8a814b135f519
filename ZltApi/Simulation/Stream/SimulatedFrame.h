// One announced image buffer of a simulated camera.
#pragma once

#include "ZltApi/Camera.h"

#include <cstdint>
#include <vector>

namespace Simulation
{

// The stream that owns the buffer writes it before it hands the frame out, and not again until it is queued.
class SimulatedFrame final : public ZltApi::Frame
{
public:
    // What the stream fills in for each exposure.
    struct Content
    {
        std::uint32_t width = 0;
        std::uint32_t height = 0;
        std::uint32_t pixelFormat = 0;
        std::uint64_t id = 0;
        ZltApi::FrameStatus status = ZltApi::FrameStatusInvalid;
    };

    explicit SimulatedFrame(std::uint64_t size); // bytes

    unsigned char* Data() { return m_bytes.data(); }
    std::uint64_t Size() const { return m_bytes.size(); }
    void SetContent(const Content& content) { m_content = content; }

    ZltErrorType GetImage(unsigned char*& image) override;
    ZltErrorType GetReceiveStatus(ZltApi::FrameStatus& status) const override;
    ZltErrorType GetBufferSize(std::uint64_t& bytes) const override;
    ZltErrorType GetWidth(std::uint32_t& width) const override;
    ZltErrorType GetHeight(std::uint32_t& height) const override;
    ZltErrorType GetPixelFormat(std::uint32_t& format) const override;
    ZltErrorType GetFrameID(std::uint64_t& id) const override;

private:
    std::vector<unsigned char> m_bytes;
    Content m_content;
};

} // namespace Simulation
