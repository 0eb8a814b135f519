// Numbers the frames of one acquisition.
#pragma once

#include <cstdint>
#include <optional>

namespace GenICam
{

// GigE Vision cameras count from 1 to 65535 and then from 1 again, or in 64 bits; others count from 0. The numbers that
// come out begin with 0 and leave out one for each frame that was lost.
class FrameCounter
{
public:
    std::uint64_t Next(std::uint64_t cameraId)
    {
        constexpr std::uint64_t LastShortId = 0xFFFF;
        if (m_last)
        {
            const std::uint64_t last = *m_last;
            const bool isRestarted = cameraId < last && last <= LastShortId;
            m_number += cameraId > last ? cameraId - last : isRestarted ? LastShortId - last + cameraId : 1;
        }
        m_last = cameraId;
        return m_number;
    }

private:
    std::optional<std::uint64_t> m_last;
    std::uint64_t m_number = 0;
};

} // namespace GenICam
