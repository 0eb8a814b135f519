// What the targets of the defect formats share: refusals, and comparing lists, also in the order of a file.
#pragma once

#include "../FuzzTarget.h"

#include "DpcAdapterOstrel.h"
#include "Exception.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <algorithm>
#include <utility>

using namespace KTR::DPC;

constexpr std::uint16_t Width = 640;
constexpr std::uint16_t Height = 480;

// Runs what may refuse its input by an exception of ours.
template <typename Call> void MayRefuse(Call&& call)
{
    try
    {
        call();
    }
    catch (const KTR::System::Exception&) // NOLINT(bugprone-empty-catch): it has a text, always
    {
    }
}

// Runs what must take any input.
template <typename Call> auto NeverRefuses(Call&& call) noexcept
{
    return call();
}

// What a target of the formats does with its input, unless that is refused.
void FuzzOrRefuse(const Bytes& input);

void Fuzz(const Bytes& input)
{
    MayRefuse([&] { FuzzOrRefuse(input); });
}

// By row and column, as files hold them; what has the same place keeps its order.
inline SensorDefectList inFileOrder(SensorDefectList defects)
{
    const auto place = [](const SensorDefect& defect)
    {
        const auto* pixel = dynamic_cast<const PixelDefect*>(&defect);
        const auto* run = dynamic_cast<const PixelRowDefect*>(&defect);
        return pixel ? std::pair(pixel->getY(), pixel->getX())
               : run ? std::pair(run->getY(), run->getX())
                     : std::pair(dynamic_cast<const RowDefect&>(defect).getY(), std::uint32_t{0});
    };
    std::stable_sort(defects.begin(), defects.end(),
                     [&](const auto& left, const auto& right) { return place(*left) < place(*right); });
    return defects;
}

inline bool areEqual(const SensorDefectList& left, const SensorDefectList& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto& a, const auto& b) { return *a == *b; });
}
