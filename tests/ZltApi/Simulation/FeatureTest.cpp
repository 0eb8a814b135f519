// The features of simulated cameras: types, ranges, access, and what a wrong call gives.
#include "TestRig.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Simulation
{

namespace
{

bool IsReadable(const ZltApi::CameraPtr& camera, const char* name)
{
    bool readable = false;
    EXPECT_EQ(ZltErrorSuccess, FeatureOf(*camera, name)->IsReadable(readable));
    return readable;
}

} // namespace

TEST(Features, AccessFollowsTheStream)
{
    TestRig rig;
    const auto camera = rig.Opened();
    const auto log = std::make_shared<FrameLog>(camera);
    for (const bool streaming : {false, true, false})
    {
        ASSERT_TRUE(!streaming || Start(camera, log) == ZltErrorSuccess);
        for (const char* name : {"Width", "Height", "OffsetX", "OffsetY", "ReverseX", "ReverseY", "PixelFormat"})
        {
            EXPECT_EQ(!streaming, IsWritable(camera, name)) << name;
        }
        EXPECT_EQ(streaming ? ZltErrorInvalidAccess : ZltErrorSuccess, Set(camera, "Width", std::int64_t{32}));
        for (const char* name : {"Gain", "ExposureTime", "CorrectionMode", "FileAccessBuffer"})
        {
            EXPECT_TRUE(IsWritable(camera, name) && IsReadable(camera, name)) << name;
        }
        camera->StopContinuousImageAcquisition();
    }
    EXPECT_FALSE(IsReadable(camera, "DeviceReset") || IsWritable(camera, "SensorWidth"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "ExposureAuto", "Continuous"));
    EXPECT_FALSE(IsWritable(camera, "ExposureTime"));
}

TEST(Features, Values)
{
    TestRig rig;
    const auto camera = rig.Opened();
    using Integer = std::int64_t;
    const std::tuple<const char*, Integer, ZltErrorType> sizes[] = {
        {"Width", 66, ZltErrorInvalidValue},
        {"OffsetX", 2, ZltErrorInvalidValue}, // no room beside the full width
        {"Width", 32, ZltErrorSuccess},
        {"OffsetX", 20, ZltErrorSuccess},
        {"Width", 46, ZltErrorInvalidValue}};
    for (const auto& [name, value, result] : sizes)
    {
        EXPECT_EQ(result, Set(camera, name, value)) << name << ' ' << value;
    }
    EXPECT_EQ(32 * 48, Get<Integer>(camera, "PayloadSize"));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "Gain", 24.1));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "Gain", std::nan("")));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "Gain", 3.14));
    EXPECT_NEAR(3.1, Get<double>(camera, "Gain"), 1e-9) << "rounded to the increment";
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "ExposureTime", 10'000'000.0));
    EXPECT_NEAR(0.1, Get<double>(camera, "AcquisitionFrameRate"), 1e-9) << "a long exposure lowers the rate";
    EXPECT_EQ(ZltErrorBadParameter, FeatureOf(*camera, "PixelFormat")->SetValue(nullptr));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "CorrectionSelector", "FixedPatternNoiseCorrection"));

    double increment = 0.0;
    EXPECT_EQ(ZltErrorSuccess, FeatureOf(*camera, "ExposureTime")->GetIncrement(increment));
    EXPECT_EQ(1.0, increment);
    EXPECT_EQ(ZltErrorNotSupported, FeatureOf(*camera, "Gamma")->GetIncrement(increment));
    ZltApi::FeaturePtr none;
    EXPECT_EQ(ZltErrorBadParameter, camera->GetFeatureByName(nullptr, none));
}

TEST(Features, PixelFormatsTurnWithTheImage)
{
    TestRig rig(R"({"filter": "BayerRG", "reverseY": false})");
    const auto camera = rig.Opened();
    const auto formats = FeatureOf(*camera, "PixelFormat");
    for (const auto& [name, isUpright] : {std::pair("BayerRG12", true), {"BayerGR12", false}})
    {
        bool isAvailable = !isUpright;
        ZltApi::EnumEntryPtr entry;
        std::int64_t number = 0;
        EXPECT_EQ(ZltErrorSuccess, formats->IsValueAvailable(name, isAvailable));
        EXPECT_EQ(isUpright, isAvailable);
        EXPECT_EQ(ZltErrorSuccess, formats->GetEntry(entry, name));
        EXPECT_EQ(isUpright ? ZltErrorSuccess : ZltErrorInvalidValue,
                  formats->SetValue((entry->GetValue(number), number)));
    }
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "PixelFormat", "BayerRG12"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "ReverseX", true));
    EXPECT_EQ("BayerGR12", Get<std::string>(camera, "PixelFormat"));
    EXPECT_EQ(0x01100010, Get<std::int64_t>(camera, "PixelFormat"));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "PixelFormat", "BayerRG12"));
}

} // namespace Simulation
