// A defective pixel with the neighbours that may stand in for it.
#include "DefectivePixelInfo.h"

#include "Exception.h"

namespace KTR::DPC
{

std::uint32_t DefectivePixelInfo::GetNBBitData(unsigned int bit) const
{
    return bit < 32 ? m_nbData >> bit & 1U : 0;
}

std::uint8_t DefectivePixelInfo::operator[](int index) const
{
    if (index < 0 || index > 3)
    {
        throw System::Exception("Index out of Bounds!", true);
    }
    return static_cast<std::uint8_t>(m_nbData >> 8 * index);
}

} // namespace KTR::DPC
