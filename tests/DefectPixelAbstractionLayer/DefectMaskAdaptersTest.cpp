// The adapters of the established GigE cameras: packets, switches, and what they say when a camera is wrong.
#include "DefectText.h"
#include "DpcAdapterEstablishedGigE.h"
#include "DpcAdapterLoadDefects.h"
#include "Failure.h"
#include "FileCameras.h"
#include "MaskCamera.h"

#include <gmock/gmock.h>

#include <functional>

using namespace KTR::DPC;
using testing::ElementsAre;

namespace
{

constexpr std::uint64_t Columns = 0x19108;
const std::vector<SensorDefectType> AllTypes = {SensorDefectType::Row,         SensorDefectType::Column,
                                                SensorDefectType::Pixel,       SensorDefectType::PixelRow,
                                                SensorDefectType::PixelColumn, SensorDefectType::Cluster};

struct DefectMaskAdapters : testing::Test
{
    boost::shared_ptr<MaskCamera> camera = boost::make_shared<MaskCamera>(MaskCamera::Rectangles, "DefectMaskEnable");
    boost::shared_ptr<MaskCamera> masking = boost::make_shared<MaskCamera>(Columns, "DefectMaskColumnEnable");
    DpcAdapterEstablishedGigE rectangles{camera, {SensorDefectType::Pixel}};
    DpcAdapterLoadDefects columns{masking};
    DpcAdapter::CorrectionSetPtr set = rectangles.GetDefaultCorrectionSet();

    void SetUp() override { camera->log = masking->log = {}; }
};

TEST_F(DefectMaskAdapters, MoveTheirTablesInPieces)
{
    const std::tuple<std::uint32_t, MemoryCamera::Names, MemoryCamera::Names> cases[] = {
        {0, {"Write 19300 8"}, {"Read 19104 4"}},
        {31, {"Write 19300 256"}, {"Read 19104 4", "Read 19300 248"}},
        {32, {"Write 19300 256", "Write 193f8 16"}, {"Read 19104 4", "Read 19300 256"}},
        {33, {"Write 19300 256", "Write 193f8 24"}, {"Read 19104 4", "Read 19300 256", "Read 19400 8"}},
        {62, {"Write 19300 256", "Write 193f8 256"}, {"Read 19104 4", "Read 19300 256", "Read 19400 240"}},
    };
    for (const auto& [count, writes, reads] : cases)
    {
        camera->log = {};
        camera->packets.clear();
        const auto list = pixels(count);
        rectangles.WriteCorrectionSet(set, list);
        EXPECT_EQ(std::exchange(camera->log, CallLog()).calls, writes);
        for (const Bytes& packet : camera->packets)
        {
            const bool isLast = &packet == &camera->packets.back();
            EXPECT_EQ(Bytes(packet.end() - 8, packet.end()), isLast ? MaskCamera::End : Bytes(8, 0xFF));
        }
        EXPECT_EQ(text(rectangles.ReadCorrectionSet(set)), text(list));
        EXPECT_EQ(camera->log.calls, reads);
    }
    for (const auto& [list, write, read] : {std::tuple("", "Write 19108 0", "Read 19108 0"),
                                            {"P1,2 ", "Write 19108 6", "Read 19108 8"},
                                            {"P1,2 C5,2,3 V9 ", "Write 19108 18", "Read 19108 20"}})
    {
        columns.WriteCorrectionSet(set, defectsOf(list));
        EXPECT_EQ(text(columns.ReadCorrectionSet(set)), list);
        EXPECT_THAT(std::exchange(masking->log, CallLog()).calls, ElementsAre(write, "Read 19104 4", read));
    }
}

TEST_F(DefectMaskAdapters, MeasureAsTheCameraDoes)
{
    for (const auto& [list, units] : {std::pair("P1,1 P1,1", 2), {"R1 V1", 3}, {"K1,1,2 K1,1,2 R1 V1", 7}})
    {
        for (const auto capacity : {units, units - 1})
        {
            camera->WriteMemory(0x19100, {0, 0, 0, static_cast<std::uint8_t>(capacity)});
            DpcAdapterEstablishedGigE adapter(camera, AllTypes);
            EXPECT_EQ(adapter.IsSpaceSufficient(set, defectsOf(list)), capacity == units) << list;
        }
    }
}

TEST_F(DefectMaskAdapters, SwitchByTheFeatureOfTheCamera)
{
    const std::string values = "Invalid enum values for feature\"DefectMaskEnable\".";
    const std::string count = "Invalid enum value count for feature\"DefectMaskEnable\".";
    const std::pair<MemoryCamera::Names, std::string> cases[] = {
        {{"Off", "On"}, ""}, {{"Disabled", "Enabled"}, ""}, {{"On", "Off"}, values}, {{"Off", "Enabled"}, values},
        {{"Off"}, count},    {{"Off", "On", "Auto"}, count}};
    for (const auto& [entries, refusal] : cases)
    {
        const auto other = boost::make_shared<MaskCamera>(MaskCamera::Rectangles, "DefectMaskEnable", entries);
        const auto use = [&]
        {
            DpcAdapterEstablishedGigE(other, AllTypes).SetCorrectionSetEnabled(set, true);
            EXPECT_EQ(other->features["DefectMaskEnable"].text, other->features["DefectMaskEnable"].entries[1]);
        };
        EXPECT_EQ(FailureOf(use), refusal);
    }
    DpcAdapterLoadDefects(camera).SetCorrectionSetEnabled(set, true);
    EXPECT_TRUE(rectangles.IsCorrectionSetEnabled(set)) << "the same switch, when there is no other";
}

TEST_F(DefectMaskAdapters, SayWhatFailed)
{
    const auto bare = makeOstrelCamera();
    DpcAdapterEstablishedGigE anyKind(camera, AllTypes);
    rectangles.WriteCorrectionSet(set, pixels(1));
    columns.WriteCorrectionSet(set, pixels(1));
    const auto write = [&](DpcAdapter& adapter, const SensorDefectList& list)
    { return [&, list] { adapter.WriteCorrectionSet(set, list); }; };
    const auto read = [&](DpcAdapter& adapter, std::size_t shortBy, std::uint8_t count)
    {
        return [&, shortBy, count]
        {
            camera->shortBy = masking->shortBy = shortBy;
            *camera->at(0x19105) = *masking->at(0x19107) = count;
            adapter.ReadCorrectionSet(set);
        };
    };
    EXPECT_TRUE(columns.IsSpaceSufficient(set, SensorDefectList(64, pixels(1)[0])));
    const std::string runs = "Unsupported Defect Type (PixelRow or PixelColumn)!";
    const std::string missing = "Camera is not supported. Feature\"DefectMask";
    const std::string noRestoring = "RestoreFactorySettings is not supported!";
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] { DpcAdapterEstablishedGigE(bare, AllTypes); }, missing + "Enable\" is missing."},
        {[&] { DpcAdapterLoadDefects{bare}; }, missing + "ColumnEnable\" or \"DefectMaskEnable\" is missing."},
        {[&] { DpcAdapterEstablishedGigE(masking, AllTypes); }, "The camera has no feature DefectMaskEnable."},
        {write(rectangles, defectsOf("C1,1,2")), "Given CorrectionSet is invalid!"},
        {write(rectangles, pixels(1001)), "Space is not sufficient!"},
        {write(rectangles, defectsOf("P4294967295,1")),
         "A defect has coordinates that the camera's table cannot hold."},
        {write(anyKind, defectsOf("P1,1 C1,1,2")), runs},
        {write(anyKind, defectsOf("L1,1,2")), runs},
        {write(columns, defectsOf("V3 V4")), "Cannot Write CorrectionSet: NOT VALID!"},
        {write(columns, SensorDefectList(65, pixels(1)[0])), "Cannot Write CorrectionSet: NOT ENOUGH SPACE!"},
        {[&] { rectangles.RestoreFactorySettings(set); }, noRestoring},
        {[&] { columns.RestoreFactorySettings(set); }, noRestoring},
        {[&] { columns.EraseCorrectionSet(set); }, "Erase is not supported!"},
        {read(rectangles, 8, 0), "The camera gave 0 instead of 8 bytes of its defect table at 0x19300."},
        {read(columns, 8, 1), "The camera gave 0 instead of 8 bytes of its defect table."},
        {read(rectangles, 0, 5), "The camera claims 327681 defects, but its sensor has 640 x 480 pixels."},
        {read(columns, 0, 65), "The camera claims 65 defects, but its table holds only 64."},
    };
    for (const auto& [call, words] : cases)
    {
        EXPECT_EQ(FailureOf(call), words);
    }
}

} // namespace
