// Defect records and correction sets.
#include "CorrectionSet.h"
#include "DefectText.h"

#include <gtest/gtest.h>

using namespace KTR::DPC;
using Pixels = std::vector<PixelDefect>;

TEST(SensorDefect, EqualsOnlyTheSameKindWithTheSameFields)
{
    // In order of the kinds' numbers, then some that differ in one field.
    const auto defects =
        defectsOf("R5 V5 P5,5 L5,5,5 C5,5,5 K5,5,5 R6 V6 P6,5 P5,6 L6,5,5 L5,6,5 L5,5,6 C6,5,5 C5,6,5");
    for (std::size_t i = 0; i < defects.size(); ++i)
    {
        EXPECT_TRUE(i >= 6 || static_cast<std::size_t>(defects[i]->GetSensorDefectType()) == i) << i;
        for (std::size_t j = 0; j < defects.size(); ++j)
        {
            EXPECT_EQ(*defects[i] == *defects[j], i == j) << i << " and " << j;
        }
    }
    const PixelDefect a(1, 2), b(2, 1);
    EXPECT_TRUE(ClusterDefect(Pixels{a, a, b}) == ClusterDefect({b, b, a})) << "neither order nor multiplicity counts";
    EXPECT_FALSE(ClusterDefect(Pixels{a, a, b}) == ClusterDefect({a, b})) << "the number of pixels counts";
    EXPECT_TRUE(ClusterDefect(10, 20, 3, 2) == ClusterDefect(Pixels(6, PixelDefect(10, 20))));
}

TEST(CorrectionSet, EqualsWhenNoSharedKeyDiffers)
{
    CorrectionSet gain1("a"), other("a");
    gain1.setMetadata("Gain", 1);
    EXPECT_TRUE(gain1 != other) << "the number of keys counts";
    other.setMetadata("Temperature", 2);
    EXPECT_TRUE(gain1 == other) << "a missing key does not";
    other.clearAllMetadata();
    other.setMetadata("Gain", 2);
    EXPECT_TRUE(gain1 != other);
    EXPECT_TRUE(CorrectionSet("a") != CorrectionSet("b"));
}
