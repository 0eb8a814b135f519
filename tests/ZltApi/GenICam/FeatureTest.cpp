// Features and memory of real cameras.
#include "Bench.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numeric>
#include <thread>

namespace GenICam
{

namespace
{

std::string Access(const ZltApi::FeaturePtr& feature)
{
    bool readable = false;
    bool writable = false;
    EXPECT_EQ(ZltErrorSuccess, feature->IsReadable(readable));
    EXPECT_EQ(ZltErrorSuccess, feature->IsWritable(writable));
    return std::string(readable ? "r" : "-") + (writable ? "w" : "-");
}

Bytes Pattern(std::size_t size, unsigned char first)
{
    Bytes bytes(size);
    std::iota(bytes.begin(), bytes.end(), first);
    return bytes;
}

} // namespace

TEST(GenICamFeature, ListInTheOrderOfTheCamera)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Opened();
    std::vector<ZltApi::FeaturePtr> features;
    ASSERT_EQ(ZltErrorSuccess, camera->GetFeatures(features));
    std::string list;
    for (const ZltApi::FeaturePtr& feature : features)
    {
        std::string name;
        ZltFeatureDataType type = ZltFeatureDataNone;
        feature->GetName(name);
        feature->GetDataType(type);
        list += name + " " + std::to_string(type) + " " + Access(feature) + "\n";
    }
    EXPECT_EQ("DeviceModelName 4 r-\nDeviceFamilyName 4 rw\nDeviceUserID 4 rw\nDeviceReset 6 -w\n"
              "SensorWidth 1 r-\nSensorHeight 1 r-\nWidth 1 rw\nHeight 1 rw\nPixelFormat 3 rw\nPayloadSize 1 r-\n"
              "AcquisitionMode 3 rw\nAcquisitionStart 6 -w\nAcquisitionStop 6 -w\nAcquisitionFramePeriod 1 rw\n"
              "ExposureTimeAbs 2 rw\nGainRaw 1 rw\nSharpness 1 --\nDefectMaskEnable 5 rw\nDefectMode 3 rw\n"
              "DefectThreshold 2 rw\nDefectTable 7 rw\nDefectScan 6 -w\nFileOperationExecute 6 -w\n"
              "FileAccessBuffer 7 rw\n"
              "Unreadable 2 r-\nChunkCounter 1 --\nImposedMode 3 r-\nTemperature 2 rw\nStepWithoutMinimum 2 rw\n"
              "StopFails 1 rw\n",
              list);
    ZltApi::FeaturePtr none;
    EXPECT_EQ(ZltErrorNotFound, camera->GetFeatureByName("GainMissing", none)) << "described but not implemented";
    EXPECT_EQ(ZltErrorNotFound, camera->GetFeatureByName("UnreadableCondition", none));
    EXPECT_EQ(ZltErrorNotFound, camera->GetFeatureByName("ExposureTime", none)) << "nothing is renamed";
    EXPECT_EQ(ZltErrorNotFound, camera->GetFeatureByName("DeviceControl", none)) << "a category";
    EXPECT_EQ(ZltErrorBadParameter, camera->GetFeatureByName(nullptr, none));
    EXPECT_FALSE(none);
    EXPECT_TRUE(FeatureOf(*camera, "TLParamsLocked")) << "outside the categories";
}

TEST(GenICamFeature, ValuesRangesAndRefusals)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Opened();
    using Integer = std::int64_t;
    EXPECT_EQ("Bench Family", Get<std::string>(camera, "DeviceFamilyName"));
    EXPECT_EQ(2048, Get<Integer>(camera, "SensorWidth"));
    const std::tuple<const char*, Integer, ZltErrorType> integers[] = {
        {"Width", 64, ZltErrorSuccess},           {"Width", 2048, ZltErrorSuccess},
        {"Width", 2052, ZltErrorInvalidValue},    {"Width", 12, ZltErrorInvalidValue},
        {"Width", 66, ZltErrorInvalidValue},      {"SensorWidth", 64, ZltErrorInvalidAccess},
        {"Sharpness", 1, ZltErrorInvalidAccess},  {"ExposureTimeAbs", 100, ZltErrorWrongType},
        {"DeviceUserID", 1, ZltErrorWrongType},   {"PixelFormat", 0x01080009, ZltErrorSuccess},
        {"PixelFormat", 1, ZltErrorInvalidValue}, {"PixelFormat", 0x01100005, ZltErrorInvalidValue},
        {"GainRaw", 7, ZltErrorSuccess},          {"Sharpness", 9, ZltErrorSuccess}};
    for (const auto& [feature, value, result] : integers)
    {
        EXPECT_EQ(result, Set(camera, feature, value)) << feature << ' ' << value;
        EXPECT_TRUE(result != ZltErrorSuccess || value == Get<Integer>(camera, feature)) << feature;
    }
    const std::tuple<double, ZltErrorType, double> floats[] = {{5000, ZltErrorSuccess, 5000},
                                                               {7004, ZltErrorSuccess, 7000},
                                                               {100000, ZltErrorSuccess, 100000},
                                                               {100001, ZltErrorInvalidValue, 100000},
                                                               {std::nan(""), ZltErrorInvalidValue, 100000}};
    for (const auto& [value, result, read] : floats)
    {
        EXPECT_EQ(result, Set(camera, "ExposureTimeAbs", value)) << value;
        EXPECT_EQ(read, Get<double>(camera, "ExposureTimeAbs")) << value;
    }
    // Least, most and step, and what the two calls say.
    const auto range = [&](const char* name, auto low)
    {
        auto high = low;
        auto step = low;
        const ZltApi::FeaturePtr feature = FeatureOf(*camera, name);
        const ZltErrorType result = feature->GetRange(low, high);
        const ZltErrorType stepped = feature->GetIncrement(step);
        return std::tuple(result, low, high, stepped, step);
    };
    constexpr ZltErrorType Good = ZltErrorSuccess;
    EXPECT_EQ(std::tuple(Good, 16, 2048, Good, 4), range("Width", Integer{}));
    EXPECT_EQ(ZltErrorWrongType, std::get<0>(range("Width", 0.0)));
    EXPECT_EQ(Good, std::get<0>(range("PayloadSize", Integer{}))) << "a formula without limits";
    EXPECT_EQ(std::tuple(Good, 10.0, 100000.0, Good, 10.0), range("ExposureTimeAbs", 0.0));
    EXPECT_EQ(ZltErrorNotSupported, std::get<3>(range("DefectThreshold", 0.0)));
    EXPECT_EQ(ZltErrorNotSupported, std::get<3>(range("Temperature", 0.0))) << "a formula is no step";
    double unreadable = 0.0;
    EXPECT_EQ(ZltErrorUnexpectedFault, FeatureOf(*camera, "Unreadable")->GetValue(unreadable));
    for (const auto& [name, value] : {std::pair("Temperature", 55.5), std::pair("StepWithoutMinimum", 2.75)})
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, name, value));
        EXPECT_DOUBLE_EQ(value, Get<double>(camera, name));
    }
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "DefectThreshold", -0.1));
    EXPECT_EQ(-0.1, Get<double>(camera, "DefectThreshold"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "DefectMaskEnable", true));
    EXPECT_TRUE(Get<bool>(camera, "DefectMaskEnable"));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "DeviceUserID", "Line 7"));
    EXPECT_EQ("Line 7", Get<std::string>(camera, "DeviceUserID"));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "DeviceUserID", "longer than sixteen"));
}

TEST(GenICamFeature, EnumerationsAndCommands)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Opened();
    const ZltApi::FeaturePtr format = FeatureOf(*camera, "PixelFormat");
    std::vector<std::string> names;
    EXPECT_EQ(ZltErrorSuccess, format->GetValues(names));
    EXPECT_EQ((std::vector<std::string>{"Mono8", "BayerRG8", "Mono12"}), names);
    const ZltApi::FeaturePtr mode = FeatureOf(*camera, "DefectMode");
    ZltApi::EnumEntryPtr entry;
    std::int64_t number = 0;
    EXPECT_EQ(ZltErrorSuccess, mode->GetEntry(entry, "On"));
    EXPECT_EQ(1, (entry->GetValue(number), number));
    EXPECT_EQ(ZltErrorNotFound, mode->GetEntry(entry, "Auto"));
    for (const bool isAvailable : {false, true})
    {
        EXPECT_EQ(ZltErrorSuccess, Set(camera, "GainRaw", std::int64_t{isAvailable}));
        bool available = !isAvailable;
        EXPECT_EQ(ZltErrorSuccess, mode->IsValueAvailable("On", available));
        EXPECT_EQ(isAvailable, available);
        EXPECT_EQ(isAvailable ? ZltErrorSuccess : ZltErrorInvalidValue, mode->SetValue("On"));
    }
    EXPECT_EQ("On", Get<std::string>(camera, "DefectMode"));
    EXPECT_EQ(ZltErrorWrongType, FeatureOf(*camera, "Width")->GetValues(names));

    const ZltApi::FeaturePtr scan = FeatureOf(*camera, "DefectScan");
    bool done = true;
    EXPECT_EQ(ZltErrorSuccess, scan->RunCommand());
    EXPECT_EQ(ZltErrorSuccess, scan->IsCommandDone(done));
    EXPECT_FALSE(done);
    EXPECT_EQ(ZltErrorSuccess, camera->WriteMemory(0x8020, Bytes(4))); // the camera has finished
    EXPECT_EQ(ZltErrorSuccess, scan->IsCommandDone(done));
    EXPECT_TRUE(done);
    EXPECT_EQ(ZltErrorWrongType, format->RunCommand());
    // What is read behind a file operation counts at once: the command takes as long as the camera does.
    std::atomic<bool> finished{false};
    std::thread cameraWork(
        [&]
        {
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
            finished = true;
            camera->WriteMemory(0x8028, Bytes(4));
        });
    EXPECT_EQ(ZltErrorSuccess, RunCommand(camera, "FileOperationExecute"));
    EXPECT_TRUE(finished);
    cameraWork.join();
}

TEST(GenICamMemory, AnyLengthAtAnyAddress)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Opened();
    for (const std::size_t size : {0U, 1U, 3U, 4U, 6U, 511U, 512U, 513U, 4001U, 20000U})
    {
        for (const std::uint64_t address : {0x9000U, 0x9001U, 0x9003U})
        {
            ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(0x8FF0, Bytes(21000, 0xEE)));
            const Bytes data = Pattern(size, static_cast<unsigned char>(address + size));
            ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(address, data));
            Bytes read(size + 2);
            ASSERT_EQ(ZltErrorSuccess, camera->ReadMemory(address - 1, read));
            Bytes expected(size + 2, 0xEE);
            std::copy(data.begin(), data.end(), expected.begin() + 1);
            EXPECT_EQ(expected, read) << size << " bytes at " << address;
        }
    }
    Bytes data(8);
    EXPECT_EQ(ZltErrorBadParameter, camera->ReadMemory(0xFFFFFFFC, data)) << "behind the end of the address space";
    EXPECT_EQ(ZltErrorBadParameter, camera->WriteMemory(0xFFFFFFFFFFFFFFFC, data));
}

TEST(GenICamMemory, RawRegisters)
{
    Bench bench;
    const ZltApi::CameraPtr camera = bench.Opened();
    // Two pixels and a piece of a row in big-endian numbers, and the end mark: not one byte may change its place.
    const Bytes table = {0x01, 0x02, 0x03, 0x04, 0, 1, 0, 1, 0x07, 0xFF, 0,    0,    0, 1, 0, 1,
                         0,    9,    0,    8,    0, 7, 0, 1, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0};
    ASSERT_EQ(ZltErrorSuccess, camera->WriteMemory(0x9000, table));
    Bytes read = Get<Bytes>(camera, "DefectTable");
    ASSERT_EQ(2000U, read.size());
    EXPECT_EQ(table, Bytes(read.begin(), read.begin() + 32));
    EXPECT_EQ(ZltErrorSuccess, camera->WriteMemory(0xA000, Bytes(68, 0xEE)));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileAccessBuffer", Pattern(5, 1))) << "the last block of a file";
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileAccessBuffer", Pattern(64, 1)));
    EXPECT_EQ(Pattern(64, 1), Get<Bytes>(camera, "FileAccessBuffer"));
    EXPECT_EQ(ZltErrorInvalidValue, Set(camera, "FileAccessBuffer", Pattern(65, 1)));
    Bytes behind(4);
    ASSERT_EQ(ZltErrorSuccess, camera->ReadMemory(0xA040, behind));
    EXPECT_EQ(Bytes(4, 0xEE), behind);
}

} // namespace GenICam
