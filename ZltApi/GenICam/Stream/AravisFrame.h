// One announced image buffer.
#pragma once

#include "Aravis/ObjectPtr.h"
#include "BasicFrame.h"

#include <arv.h>

#include <cstdint>

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
class AravisFrame final : public ProviderBase::BasicFrame
{
public:
    // The size in bytes, and what is expected to arrive.
    AravisFrame(std::size_t size, const ImageShape& expected, bool isGigEVision);

    ArvBuffer* Buffer() const { return m_buffer.get(); }
    // Takes over what has arrived. The number is the frame's in its acquisition.
    void Describe(std::uint64_t id);

private:
    // Where the image lies in the buffer, in bytes.
    struct Place
    {
        std::uint64_t offset = 0;
        std::uint64_t size = 0;
    };

    // Finds a complete image and closes the gaps between its lines; tells why when there is none.
    ZltApi::FrameStatus FindImage(const ImageShape& shape, Place& place);
    void RemovePadding(std::uint64_t offset, const ImageShape& shape, std::uint64_t padding);

    const ObjectPtr<ArvBuffer> m_buffer;
    const ImageShape m_expected;
    const bool m_isGigEVision;
};

} // namespace GenICam
