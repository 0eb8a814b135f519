// The established GigE adapter: packets, switches, and what it says when a camera is not as it should be.
#include "DpcAdapterEstablishedGigE.h"
#include "ClusterDefect.h"
#include "ColumnDefect.h"
#include "DefectText.h"
#include "Failure.h"
#include "MaskCamera.h"

#include <gmock/gmock.h>

using namespace KTR::DPC;
using testing::ElementsAre;

namespace
{

const std::vector<SensorDefectType> AllTypes = {SensorDefectType::Row,         SensorDefectType::Column,
                                                SensorDefectType::Pixel,       SensorDefectType::PixelRow,
                                                SensorDefectType::PixelColumn, SensorDefectType::Cluster};

SensorDefectList pixels(std::size_t count)
{
    SensorDefectList list;
    while (list.size() < count)
    {
        list.push_back(boost::make_shared<PixelDefect>(static_cast<std::uint32_t>(list.size()), 300));
    }
    return list;
}

struct DpcAdapterEstablishedGigETest : testing::Test
{
    boost::shared_ptr<MaskCamera> camera = boost::make_shared<MaskCamera>();
    DpcAdapterEstablishedGigE adapter{camera, {SensorDefectType::Pixel}};
    DpcAdapterEstablishedGigE anyKind{camera, AllTypes};
    DpcAdapter::CorrectionSetPtr set = adapter.GetDefaultCorrectionSet();

    void SetUp() override { camera->log = {}; }
};

TEST_F(DpcAdapterEstablishedGigETest, WritesPacketsAndReadsInPieces)
{
    const struct
    {
        std::size_t count;
        std::vector<std::string> writes, reads;
    } cases[] = {
        {0, {"WriteMemory 0x19300 8"}, {}},
        {1, {"WriteMemory 0x19300 16"}, {"ReadMemory 0x19300 8"}},
        {31, {"WriteMemory 0x19300 256"}, {"ReadMemory 0x19300 248"}},
        {32, {"WriteMemory 0x19300 256", "WriteMemory 0x193f8 16"}, {"ReadMemory 0x19300 256"}},
        {33, {"WriteMemory 0x19300 256", "WriteMemory 0x193f8 24"}, {"ReadMemory 0x19300 256", "ReadMemory 0x19400 8"}},
        {62,
         {"WriteMemory 0x19300 256", "WriteMemory 0x193f8 256"},
         {"ReadMemory 0x19300 256", "ReadMemory 0x19400 240"}},
    };
    const Bytes packetEnd(8, 0xFF), tableEnd = fromHex("FFFFFFFF00000000");
    for (auto [count, writes, reads] : cases)
    {
        camera->log = {};
        camera->packets.clear();
        const auto list = pixels(count);
        adapter.WriteCorrectionSet(set, list);
        EXPECT_EQ(camera->log.calls, writes);
        for (const Bytes& packet : camera->packets)
        {
            EXPECT_EQ(Bytes(packet.end() - 8, packet.end()), &packet == &camera->packets.back() ? tableEnd : packetEnd);
        }
        const auto image = encodeDefectTable(list, 640, 480);
        EXPECT_TRUE(std::equal(image.begin(), image.end(), camera->memory.begin())) << count;
        camera->log = {};
        EXPECT_EQ(text(adapter.ReadCorrectionSet(set)), text(list));
        reads.insert(reads.begin(), "ReadRegister 0x19104 4");
        EXPECT_EQ(camera->log.calls, reads);
    }
    camera->log = {};
    adapter.EraseCorrectionSet(set);
    EXPECT_THAT(camera->log.calls, ElementsAre("WriteMemory 0x19300 8"));
    EXPECT_TRUE(adapter.ReadCorrectionSet(set).empty());
}

TEST_F(DpcAdapterEstablishedGigETest, MeasuresAsTheCameraDoes)
{
    const auto row = boost::make_shared<RowDefect>(1);
    const auto column = boost::make_shared<ColumnDefect>(1);
    const auto cluster = boost::make_shared<ClusterDefect>(1, 1, 2, 2);
    const std::pair<SensorDefectList, std::uint32_t> cases[] = {
        {{}, 0}, {pixels(7), 7}, {{row, column}, 3}, {{cluster, pixels(1)[0]}, 3}, {{cluster, cluster, row, row}, 7}};
    for (const auto& [list, units] : cases)
    {
        for (const auto capacity : {units, units - 1})
        {
            camera->capacity = capacity;
            EXPECT_EQ(DpcAdapterEstablishedGigE(camera, AllTypes).IsSpaceSufficient(set, list), capacity >= units);
        }
    }
}

TEST_F(DpcAdapterEstablishedGigETest, SwitchesByTheEntriesOfTheCamera)
{
    using Names = MemoryCamera::Names;
    const std::string feature = "feature\"DefectMaskEnable\".";
    const std::pair<Names, std::string> cases[] = {
        {{"Off", "On"}, ""},
        {{"Disabled", "Enabled"}, ""},
        {{"On", "Off"}, "Invalid enum values for " + feature},
        {{"Off", "Enabled"}, "Invalid enum values for " + feature},
        {{"Off"}, "Invalid enum value count for " + feature},
        {{"Off", "On", "Auto"}, "Invalid enum value count for " + feature},
    };
    for (const auto& [entries, refusal] : cases)
    {
        const auto other = boost::make_shared<MaskCamera>(entries);
        const auto use = [&]
        {
            DpcAdapterEstablishedGigE otherAdapter(other, {SensorDefectType::Pixel});
            for (const bool on : {true, false})
            {
                otherAdapter.SetCorrectionSetEnabled(set, on);
                EXPECT_EQ(other->features["DefectMaskEnable"].text, other->features["DefectMaskEnable"].entries[on]);
                EXPECT_EQ(otherAdapter.IsCorrectionSetEnabled(set), on);
            }
        };
        EXPECT_EQ(FailureOf(use), refusal);
    }
    const auto refused = [&] { DpcAdapterEstablishedGigE(camera, AllTypes); };
    camera->listsNothing = true;
    EXPECT_EQ(FailureOf(refused), "Camera is not supported. Feature\"DefectMaskEnable\" is missing.");
    camera->features.erase("DefectMaskEnable");
    EXPECT_EQ(FailureOf(refused), "The camera has no feature DefectMaskEnable.") << "the camera's own words";
}

TEST_F(DpcAdapterEstablishedGigETest, SaysWhatFailed)
{
    const auto tall = boost::make_shared<PixelColumnDefect>(1, 1, 2);
    const auto wide = boost::make_shared<PixelRowDefect>(1, 1, 2);
    const auto refusal = [&](const std::function<void()>& call) { return FailureOf(call); };
    EXPECT_EQ(refusal([&] { adapter.WriteCorrectionSet(set, {tall}); }), "Given CorrectionSet is invalid!");
    EXPECT_EQ(refusal([&] { adapter.WriteCorrectionSet(set, pixels(1001)); }), "Space is not sufficient!");
    EXPECT_EQ(refusal([&] { adapter.WriteCorrectionSet(set, {boost::make_shared<PixelDefect>(0xFFFFFFFF, 1)}); }),
              "A defect has coordinates that the camera's table cannot hold.");
    for (const SensorDefectList& list : {SensorDefectList{tall}, SensorDefectList{wide}})
    {
        EXPECT_EQ(refusal([&] { anyKind.IsSpaceSufficient(set, list); }),
                  "Unsupported Defect Type (PixelRow or PixelColumn)!");
    }
    EXPECT_EQ(refusal([&] { adapter.RestoreFactorySettings(set); }), "RestoreFactorySettings is not supported!");
    EXPECT_TRUE(camera->log.calls.empty()) << "refused without a word to the camera";

    camera->log.refused = "ReadMemory 0x19300 8";
    camera->count = 1;
    EXPECT_EQ(refusal([&] { adapter.ReadCorrectionSet(set); }), "Refused: ReadMemory 0x19300 8");
    camera->log = {};
    EXPECT_EQ(refusal([&] { adapter.ReadCorrectionSet(set); }), "Could not identify sensor defect type")
        << "a count beyond the table's end";
    camera->shortBy = 8;
    EXPECT_EQ(refusal([&] { adapter.ReadCorrectionSet(set); }),
              "The camera gave 0 instead of 8 bytes of its defect table at 0x19300.");
    camera->count = 640 * 480 + 1;
    EXPECT_EQ(refusal([&] { adapter.ReadCorrectionSet(set); }),
              "The camera claims 307201 defects, but its sensor has 640 x 480 pixels.");
}

} // namespace
