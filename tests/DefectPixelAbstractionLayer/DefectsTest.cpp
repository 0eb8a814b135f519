// Defect records, correction sets and the byte builder.
#include "ClusterDefect.h"
#include "ColumnDefect.h"
#include "CorrectionSet.h"
#include "DataHelper.h"
#include "Exception.h"
#include "PixelColumnDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

using namespace KTR::DPC;
using Pixels = std::vector<PixelDefect>;

TEST(SensorDefect, EqualsOnlyTheSameKindWithTheSameFields)
{
    const PixelDefect a(1, 2);
    const PixelDefect b(2, 1);
    const SensorDefectList defects = {// in order of the kinds' numbers, then two that differ in one field
                                      boost::make_shared<RowDefect>(5),
                                      boost::make_shared<ColumnDefect>(5),
                                      boost::make_shared<PixelDefect>(5, 5),
                                      boost::make_shared<PixelRowDefect>(5, 5, 5),
                                      boost::make_shared<PixelColumnDefect>(5, 5, 5),
                                      boost::make_shared<ClusterDefect>(Pixels{a, a, b}),
                                      boost::make_shared<PixelRowDefect>(5, 5, 6),
                                      boost::make_shared<PixelColumnDefect>(5, 6, 5)};
    for (std::size_t i = 0; i < defects.size(); ++i)
    {
        EXPECT_TRUE(i >= 6 || static_cast<std::size_t>(defects[i]->GetSensorDefectType()) == i) << i;
        for (std::size_t j = 0; j < defects.size(); ++j)
        {
            EXPECT_EQ(*defects[i] == *defects[j], i == j) << i << " and " << j;
        }
    }
    EXPECT_TRUE(*defects[5] == ClusterDefect({b, b, a})) << "neither order nor multiplicity counts";
    EXPECT_FALSE(*defects[5] == ClusterDefect({a, b})) << "the number of pixels counts";
    EXPECT_TRUE(ClusterDefect(10, 20, 3, 2) == ClusterDefect(Pixels(6, PixelDefect(10, 20))));
    EXPECT_TRUE(ClusterDefect(1, 1, 0, 5).getPixels().empty());
}

TEST(CorrectionSet, EqualsWhenNoSharedKeyDiffers)
{
    CorrectionSet gain1("a");
    EXPECT_EQ(gain1.getMetadata("Gain"), std::nullopt);
    gain1.setMetadata("Gain", 1);
    CorrectionSet other("a");
    EXPECT_TRUE(gain1 != other) << "the number of keys counts";
    other.setMetadata("Temperature", 2);
    EXPECT_TRUE(gain1 == other) << "a missing key does not";
    other.clearAllMetadata();
    other.setMetadata("Gain", 2);
    EXPECT_TRUE(gain1 != other);
    EXPECT_TRUE(CorrectionSet("a") != CorrectionSet("b"));
}

TEST(DataHelper, PushesAndReadsInOppositeOrders)
{
    for (const bool order : {false, true})
    {
        DataHelper pushed(order);
        pushed.pushBack8(0x01);
        pushed.pushBack16(0x0203);
        pushed.pushBack32(0x04050607);
        pushed.pushBack64(0x08090A0B0C0D0E0F);
        pushed.append({0x10});
        const std::vector<std::uint8_t> first = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
        const std::vector<std::uint8_t> last = {1, 3, 2, 7, 6, 5, 4, 15, 14, 13, 12, 11, 10, 9, 8, 16};
        EXPECT_EQ(pushed.getData(), order ? first : last);
        const DataHelper reader(order ? last : first, order);
        EXPECT_EQ(reader.read16(1), 0x0203);
        EXPECT_EQ(reader.read32(3), 0x04050607U);
        EXPECT_EQ(reader.read64(7), 0x08090A0B0C0D0E0FU);
        EXPECT_EQ(reader.read8(15), 0x10);
        EXPECT_THROW(reader.read16(15), KTR::System::Exception);
        EXPECT_THROW(reader.read32(0xFFFFFFFE), KTR::System::Exception);
        EXPECT_THROW(DataHelper(order).read8(0), KTR::System::Exception);
    }
}
