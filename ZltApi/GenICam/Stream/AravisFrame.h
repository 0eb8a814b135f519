// One announced image buffer.
#pragma once

#include "Aravis/ObjectPtr.h"
#include "ZltApi/Camera.h"

#include <arv.h>

#include <cstdint>
#include <vector>

namespace GenICam
{

struct ImageShape
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t pixelFormat = 0;

    // In bytes; bits 16 to 23 of a pixel format hold the bits of a pixel.
    std::uint64_t Size() const;
};

// Aravis writes it while it is queued; what it holds is described before it goes to the host.
class AravisFrame final : public ZltApi::Frame
{
public:
    // The size in bytes, and what is expected to arrive.
    AravisFrame(std::size_t size, const ImageShape& expected);

    ArvBuffer* Buffer() const { return m_buffer.get(); }
    // Takes over what has arrived. The number is the frame's in its acquisition.
    void Describe(std::uint64_t id);

    ZltErrorType GetImage(unsigned char*& image) override;
    ZltErrorType GetReceiveStatus(ZltApi::FrameStatus& status) const override;
    ZltErrorType GetBufferSize(std::uint64_t& bytes) const override;
    ZltErrorType GetWidth(std::uint32_t& width) const override;
    ZltErrorType GetHeight(std::uint32_t& height) const override;
    ZltErrorType GetPixelFormat(std::uint32_t& format) const override;
    ZltErrorType GetFrameID(std::uint64_t& id) const override;

private:
    bool DescribeImage();

    std::vector<unsigned char> m_bytes;
    const ObjectPtr<ArvBuffer> m_buffer;
    unsigned char* m_image = nullptr;
    std::uint64_t m_imageSize = 0;
    const ImageShape m_expected;
    ImageShape m_shape;
    std::uint64_t m_id = 0;
    ZltApi::FrameStatus m_status = ZltApi::FrameStatusInvalid;
};

} // namespace GenICam
