// Logarithmic mapping between exposure times and slider positions.
#include "ExposureScale.h"

#include <algorithm>
#include <cmath>

namespace
{

// Exposures are shown with three decimals.
constexpr double SmallestShownExposure = 0.001;

} // namespace

void ExposureScale::SetRange(double minimum, double maximum, int firstPosition, int lastPosition)
{
    m_minimum = minimum;
    m_maximum = maximum;
    m_logarithmOfMinimum = std::log(minimum > 0.0 ? minimum : SmallestShownExposure);
    m_logarithmOfMaximum = std::log(maximum > 0.0 ? maximum : SmallestShownExposure);
    m_firstPosition = firstPosition;
    m_lastPosition = lastPosition;
}

int ExposureScale::PositionOf(double exposure) const
{
    if (!HasExtent() || !(exposure > m_minimum) || !(exposure > 0.0))
    {
        return m_firstPosition;
    }
    if (exposure >= m_maximum)
    {
        return m_lastPosition;
    }
    const double position = m_firstPosition + (std::log(exposure) - m_logarithmOfMinimum) / GetStep();
    return static_cast<int>(
        std::clamp(position, static_cast<double>(m_firstPosition), static_cast<double>(m_lastPosition)));
}

double ExposureScale::ValueAt(int position) const
{
    if (!HasExtent() || position <= m_firstPosition)
    {
        return m_minimum;
    }
    return std::exp((position - m_firstPosition) * GetStep() + m_logarithmOfMinimum);
}

bool ExposureScale::HasExtent() const
{
    return m_lastPosition > m_firstPosition && m_logarithmOfMaximum > m_logarithmOfMinimum &&
           std::isfinite(m_logarithmOfMaximum);
}

double ExposureScale::GetStep() const
{
    return (m_logarithmOfMaximum - m_logarithmOfMinimum) / (m_lastPosition - m_firstPosition);
}
