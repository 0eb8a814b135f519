// One announced image buffer.
#pragma once

#include "ZltApi/Camera.h"

#include <cstdint>
#include <vector>

namespace ProviderBase
{

// The stream that owns the buffer writes it before it hands the frame out, and not again until it is queued.
class BasicFrame : public ZltApi::Frame
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

    explicit BasicFrame(std::uint64_t size); // bytes

    unsigned char* Data() { return m_bytes.data(); }
    std::uint64_t Size() const { return m_bytes.size(); }
    // The image is the whole buffer.
    void SetContent(const Content& content);
    // The image is a part of the buffer, from an offset, both in bytes.
    void SetContent(const Content& content, std::uint64_t offset, std::uint64_t size);

    ZltErrorType GetImage(unsigned char*& image) final;
    ZltErrorType GetReceiveStatus(ZltApi::FrameStatus& status) const final;
    ZltErrorType GetBufferSize(std::uint64_t& bytes) const final;
    ZltErrorType GetWidth(std::uint32_t& width) const final;
    ZltErrorType GetHeight(std::uint32_t& height) const final;
    ZltErrorType GetPixelFormat(std::uint32_t& format) const final;
    ZltErrorType GetFrameID(std::uint64_t& id) const final;

private:
    std::vector<unsigned char> m_bytes;
    Content m_content;
    std::uint64_t m_offset = 0;
    std::uint64_t m_imageSize = 0;
};

} // namespace ProviderBase
