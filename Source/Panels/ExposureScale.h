// Logarithmic mapping between exposure times and slider positions.
#pragma once

// Equal steps of the position are equal ratios of the exposure, which gives fine control at short times. A range
// without extent (or none set yet) has one position, the first, and one value, the minimum.
class ExposureScale
{
public:
    // Exposures in the camera's unit, microseconds; positions as the slider has them. A minimum of 0 or below has no
    // logarithm: the scale then begins at the smallest exposure that the panel can show, and only its first position
    // stands for the minimum.
    void SetRange(double minimum, double maximum, int firstPosition, int lastPosition);

    // Truncated, and limited to the positions of the range.
    int PositionOf(double exposure) const;
    // The first position gives the minimum itself, the last one the maximum but for rounding.
    double ValueAt(int position) const;

    double GetMinimum() const { return m_minimum; }
    double GetMaximum() const { return m_maximum; }

private:
    bool HasExtent() const;
    double GetStep() const;

    double m_minimum = 0.0;
    double m_maximum = 0.0;
    double m_logarithmOfMinimum = 0.0;
    double m_logarithmOfMaximum = 0.0;
    int m_firstPosition = 0;
    int m_lastPosition = 0;
};
