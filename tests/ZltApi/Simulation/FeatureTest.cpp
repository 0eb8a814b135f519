// The features of simulated cameras: types, ranges, access, and what a wrong call gives.
#include "TestRig.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <thread>

namespace Simulation
{

namespace
{

// The features of an Ostrel camera by type and access: r readable, w writable, s writable only without a stream.
struct Row
{
    ZltFeatureDataType type;
    const char* access;
    std::vector<const char*> names;
};

const Row Rows[] = {
    // clang-format off
    {ZltFeatureDataString, "r", {"DeviceVendorName", "DeviceModelName", "DeviceFamilyName", "DeviceSerialNumber",
                                 "DeviceID", "DeviceFirmwareVersion"}},
    {ZltFeatureDataCommand, "w", {"DeviceReset", "AcquisitionStart", "AcquisitionStop", "FileOperationExecute"}},
    {ZltFeatureDataInteger, "r", {"SensorWidth", "SensorHeight", "WidthMax", "HeightMax", "PayloadSize",
                                  "FileOperationResult", "FileSize"}},
    {ZltFeatureDataInteger, "rs", {"Width", "Height", "OffsetX", "OffsetY"}},
    {ZltFeatureDataInteger, "rw", {"FileAccessOffset", "FileAccessLength"}},
    {ZltFeatureDataBoolean, "rs", {"ReverseX", "ReverseY"}},
    {ZltFeatureDataEnumeration, "rs", {"PixelFormat"}},
    {ZltFeatureDataEnumeration, "r", {"FileOperationStatus", "FileProcessStatus", "FileStatus"}},
    {ZltFeatureDataEnumeration, "rw", {"ExposureAuto", "GainAuto", "AcquisitionMode", "CorrectionSelector",
                                       "CorrectionSet", "CorrectionSetDefault", "CorrectionMode", "FileSelector",
                                       "FileOperationSelector", "FileOpenMode"}},
    {ZltFeatureDataFloat, "rw", {"ExposureTime", "Gain", "BlackLevel", "Gamma", "AcquisitionFrameRate"}},
    {ZltFeatureDataFloat, "r", {"DeviceTemperature"}},
    {ZltFeatureDataRaw, "rw", {"FileAccessBuffer"}},
    // clang-format on
};

// Every typed operation on a feature; the number of those that fit its type.
int FittingCalls(ZltApi::Feature& feature)
{
    bool flag = false;
    std::int64_t integer = 0;
    double number = 0.0;
    std::string text;
    Bytes bytes;
    int fitting = 0;
    for (const ZltErrorType result :
         {feature.GetValue(flag), feature.GetValue(integer), feature.GetValue(number), feature.GetValue(text),
          feature.GetValue(bytes), feature.GetRange(integer, integer), feature.GetRange(number, number)})
    {
        EXPECT_TRUE(result == ZltErrorSuccess || result == ZltErrorWrongType) << result;
        fitting += result == ZltErrorSuccess ? 1 : 0;
    }
    return fitting;
}

void ExpectAccess(const ZltApi::CameraPtr& camera, bool streaming)
{
    for (const Row& row : Rows)
    {
        const std::string access = row.access;
        const bool isWritable = access.back() == 'w' || (access.back() == 's' && !streaming);
        for (const char* name : row.names)
        {
            bool readable = false;
            EXPECT_EQ(ZltErrorSuccess, FeatureOf(*camera, name)->IsReadable(readable));
            EXPECT_EQ(access[0] == 'r', readable) << name;
            EXPECT_EQ(isWritable, IsWritable(camera, name)) << name << streaming;
        }
    }
}

} // namespace

TEST(Features, Types)
{
    TestRig rig;
    const auto camera = rig.Opened();
    std::size_t count = 0;
    for (const Row& row : Rows)
    {
        const bool hasTwoForms = row.type == ZltFeatureDataInteger || row.type == ZltFeatureDataFloat ||
                                 row.type == ZltFeatureDataEnumeration; // value and range, or number and name
        for (const char* name : row.names)
        {
            const auto feature = FeatureOf(*camera, name);
            ZltFeatureDataType type = ZltFeatureDataUnknown;
            feature->GetDataType(type);
            EXPECT_EQ(row.type, type) << name;
            EXPECT_EQ(type == ZltFeatureDataCommand ? 0 : hasTwoForms ? 2 : 1, FittingCalls(*feature)) << name;
            EXPECT_TRUE(type == ZltFeatureDataCommand || feature->RunCommand() == ZltErrorWrongType) << name;
            ++count;
        }
    }
    std::vector<ZltApi::FeaturePtr> all;
    ASSERT_EQ(ZltErrorSuccess, camera->GetFeatures(all));
    EXPECT_EQ(count, all.size());
    EXPECT_EQ("7", Get<std::string>(camera, "DeviceSerialNumber"));
    EXPECT_EQ(ZltErrorInvalidAccess, Set(camera, "SensorWidth", std::int64_t{64}));
}

TEST(Features, AccessFollowsTheStream)
{
    TestRig rig;
    const auto camera = rig.Opened();
    ExpectAccess(camera, false);
    const auto log = std::make_shared<FrameLog>(camera);
    ASSERT_EQ(ZltErrorSuccess, camera->StartContinuousImageAcquisition(3, log, ZltApi::FrameAllocationAnnounced));
    ExpectAccess(camera, true);
    EXPECT_EQ(ZltErrorInvalidAccess, Set(camera, "Width", std::int64_t{32}));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "ExposureAuto", "Continuous"));
    EXPECT_FALSE(IsWritable(camera, "ExposureTime"));
    camera->StopContinuousImageAcquisition();
    EXPECT_TRUE(IsWritable(camera, "Width"));
}

TEST(Features, Values)
{
    TestRig rig;
    const auto camera = rig.Opened();
    using Integer = std::int64_t;
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "Width", Integer{66}));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "Width", Integer{33})) << "off the increment";
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "OffsetX", Integer{2})) << "no room beside the full width";
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "Width", Integer{32}));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "OffsetX", Integer{20}));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "Width", Integer{46}));
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
    bool available = true;
    const auto selector = FeatureOf(*camera, "CorrectionSelector");
    EXPECT_EQ(ZltErrorSuccess, selector->IsValueAvailable("FixedPatternNoiseCorrection", available));
    EXPECT_FALSE(available);
    ZltApi::FeaturePtr none;
    EXPECT_EQ(ZltErrorNotFound, camera->GetFeatureByName("Nothing", none));
    EXPECT_EQ(ZltErrorBadParameter, camera->GetFeatureByName(nullptr, none));
    Bytes memory(4);
    EXPECT_EQ(ZltErrorNotSupported, camera->ReadMemory(0, memory));
}

TEST(Features, PixelFormatsTurnWithTheImage)
{
    TestRig rig(R"({"filter": "BayerRG", "reverseY": false})");
    const auto camera = rig.Opened();
    const auto formats = FeatureOf(*camera, "PixelFormat");
    const auto available = [&]
    {
        std::set<std::string> names;
        std::vector<std::string> all;
        EXPECT_EQ(ZltErrorSuccess, formats->GetValues(all));
        for (const std::string& name : all)
        {
            bool isAvailable = false;
            ZltApi::EnumEntryPtr entry;
            std::int64_t number = 0;
            formats->IsValueAvailable(name.c_str(), isAvailable);
            EXPECT_EQ(ZltErrorSuccess, formats->GetEntry(entry, name.c_str()));
            entry->GetValue(number);
            EXPECT_EQ(isAvailable ? ZltErrorSuccess : ZltErrorInvalidValue, formats->SetValue(number)) << name;
            names.insert(isAvailable ? name : std::string());
        }
        return names;
    };
    const auto upright = available();
    EXPECT_EQ(1U, upright.count("BayerRG12"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "PixelFormat", "BayerRG12"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "ReverseX", true));
    EXPECT_EQ("BayerGR12", Get<std::string>(camera, "PixelFormat"));
    EXPECT_EQ(0x01100010, Get<std::int64_t>(camera, "PixelFormat"));
    EXPECT_EQ(0U, available().count("BayerRG12"));
}

TEST(Features, PlainCameraHasNoCorrection)
{
    TestRig rig(R"({"firmware": "plain", "adjustsPacketSize": true})");
    const auto camera = rig.Opened();
    ZltApi::FeaturePtr feature;
    EXPECT_EQ(ZltErrorNotFound, camera->GetFeatureByName("CorrectionMode", feature));
    EXPECT_EQ(64U * 48U, Grab(camera).front().image.size());

    std::vector<ZltApi::StreamPtr> streams;
    ASSERT_EQ(ZltErrorSuccess, camera->GetStreams(streams));
    const auto adjust = FeatureOf(*streams.at(0), "GVSPAdjustPacketSize");
    bool done = true;
    ASSERT_EQ(ZltErrorSuccess, adjust->RunCommand());
    EXPECT_EQ(ZltErrorSuccess, adjust->IsCommandDone(done));
    EXPECT_FALSE(done) << "a command that takes its time";
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_TRUE(adjust->IsCommandDone(done) == ZltErrorSuccess && done);
    camera->Close();
    EXPECT_EQ(ZltErrorDeviceNotOpen, adjust->RunCommand());
}

} // namespace Simulation
