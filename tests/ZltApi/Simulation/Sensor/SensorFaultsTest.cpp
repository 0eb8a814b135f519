// The layout of seeded faults.
#include "SensorFaults.h"

#include <gtest/gtest.h>

namespace Simulation
{

TEST(SensorFaultsTest, StaysOnSmallSensors)
{
    for (std::uint32_t variant = 0; variant < 2000; ++variant)
    {
        const std::uint32_t width = 1 + variant % 20;
        const std::uint32_t height = 1 + variant / 20 % 20;
        for (const PixelFault& fault : SeedFaults(width, height, variant))
        {
            EXPECT_TRUE(fault.x < width && fault.y < height) << width << " x " << height << ", seed " << variant;
        }
    }
}

} // namespace Simulation
