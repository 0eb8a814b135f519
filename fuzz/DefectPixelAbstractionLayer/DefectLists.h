// Comparing lists of defects, also in the order in which the Ostrel and Rivo U files hold them.
#pragma once

#include "DpcAdapterOstrel.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <algorithm>
#include <utility>

// By row and column; what has the same place keeps its order.
inline KTR::DPC::SensorDefectList inFileOrder(KTR::DPC::SensorDefectList defects)
{
    using namespace KTR::DPC;
    const auto place = [](const SensorDefect& defect)
    {
        if (const auto* pixel = dynamic_cast<const PixelDefect*>(&defect))
        {
            return std::pair(pixel->getY(), pixel->getX());
        }
        if (const auto* run = dynamic_cast<const PixelRowDefect*>(&defect))
        {
            return std::pair(run->getY(), run->getX());
        }
        return std::pair(dynamic_cast<const RowDefect&>(defect).getY(), std::uint32_t{0});
    };
    std::stable_sort(defects.begin(), defects.end(),
                     [&](const auto& left, const auto& right) { return place(*left) < place(*right); });
    return defects;
}

inline bool areEqual(const KTR::DPC::SensorDefectList& left, const KTR::DPC::SensorDefectList& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto& a, const auto& b) { return *a == *b; });
}
