// A correction set as the window knows it: what the camera said about it when the sets were read.
#include "CorrectionSetData.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

namespace
{

// Stays a double: an exposure time of minutes in tenths of a microsecond is beyond an int.
double Tenths(double value)
{
    return std::trunc(value * 10.0);
}

} // namespace

CorrectionSetData::CorrectionSetData(const boost::shared_ptr<KTR::DPC::CorrectionSet>& set, bool writable,
                                     bool available, QObject* parent)
    : QObject(parent),
      KTR::DPC::CorrectionSet(*set),
      m_writable(writable),
      m_available(available)
{
}

std::unique_ptr<CorrectionSetData> CorrectionSetData::Copy() const
{
    auto copy = std::make_unique<CorrectionSetData>(boost::make_shared<KTR::DPC::CorrectionSet>(*this), m_writable,
                                                    m_available, nullptr);
    copy->m_dpcOn = m_dpcOn;
    copy->m_restoreDefSetAvailable = m_restoreDefSetAvailable;
    copy->m_empty = m_empty;
    return copy;
}

bool CorrectionSetData::IsEqual(const CorrectionSetData& other) const
{
    if (m_empty != other.m_empty || m_available != other.m_available || m_writable != other.m_writable ||
        getMetadataSize() != other.getMetadataSize())
    {
        return false;
    }
    const auto metadata = getAllMetadata();
    const bool sameMetadata = std::all_of(metadata.begin(), metadata.end(),
                                          [&other](const auto& entry)
                                          {
                                              const auto theirs = other.getMetadata(entry.first);
                                              return !theirs || Tenths(*theirs) == Tenths(entry.second);
                                          });
    return sameMetadata && getName() != other.getName();
}
