// The adapter of the flash family: its talk with the camera, wrong answers at every place of it, and what it says then.
#include "DpcAdapterQuorsalinWithPython.h"
#include "DefectText.h"
#include "Failure.h"
#include "FlashCamera.h"

#include <gmock/gmock.h>

#include <functional>

using namespace KTR::DPC;

namespace
{

constexpr std::uint32_t User = 102101, Factory = 103100;
const std::string EraseFailed = "Flash Erase command failed. Flash File Status invalid.";
const std::string UploadFailed = "Flash Upload command failed. Flash File Status invalid.";

struct FlashAdapter : testing::Test
{
    boost::shared_ptr<FlashCamera> camera = boost::make_shared<FlashCamera>();
    DpcAdapterQuorsalinWithPython adapter{camera, std::chrono::milliseconds(0)};
    DpcAdapter::CorrectionSetPtr set = adapter.GetDefaultCorrectionSet();
    SensorDefectList one = defectsOf("P7,3");

    void SetUp() override { camera->log = {}; }
};

TEST_F(FlashAdapter, TalksToTheCameraInOneOrder)
{
    const std::vector<std::string> support = {"Read 14000", "Read 1a0b0"};
    const std::vector<std::string> select = {"Write 1a0bc=102101", "Read 1a0b0", "Write 1a0b4=6", "Read 1a0b0"};
    const std::vector<std::string> erase = {"Write 1a0b4=1532604", "Write 1a0b4=5", "Read 1a0b0", "Read 1a0b0"};
    const std::vector<std::string> upload = {"Read 1a0b0", "Write 1a0b4=1532604", "Write 1a0ac=4104", "Write 1a0b4=2"};
    const std::vector<std::string> wait(3, "Read 1a0b0");
    const std::vector<std::string> download = {"Read 1a0a4", "Write 1a0a8=0"};
    const auto packets = [](const std::string& call)
    {
        std::vector<std::string> calls(8, call + " 504");
        calls.push_back(call + " 108");
        return calls;
    };
    const auto join = [](const std::vector<std::vector<std::string>>& parts)
    {
        std::vector<std::string> all;
        for (const auto& part : parts)
        {
            all.insert(all.end(), part.begin(), part.end());
        }
        return all;
    };
    for (const bool erased : {true, false})
    {
        adapter.WriteCorrectionSet(set, one);
        EXPECT_EQ(std::exchange(camera->log, CallLog()).calls, join({support,
                                                                     {select[0]},
                                                                     select,
                                                                     erased ? std::vector<std::string>() : erase,
                                                                     upload,
                                                                     packets("WriteMemory 1a100"),
                                                                     wait,
                                                                     select,
                                                                     download,
                                                                     packets("ReadMemory 1aa00")}));
    }
    EXPECT_EQ(text(adapter.ReadCorrectionSet(set)), "P7,3 ");
    EXPECT_EQ(std::exchange(camera->log, CallLog()).calls,
              join({support, select, download, packets("ReadMemory 1aa00")}));
    EXPECT_EQ(camera->flash[User].size(), 4104U);
    camera->statuses = {0xFFFFF800, 0xFFFFF800, 0xFFFFF800};
    camera->flash[User].clear();
    EXPECT_TRUE(adapter.ReadCorrectionSet(set).empty()) << "a valid file without bytes";
    adapter.EraseCorrectionSet(set);
    EXPECT_EQ(camera->flash[User], camera->flash[Factory]);
}

TEST_F(FlashAdapter, NeverBelievesAWrongAnswer)
{
    const auto many = [&]
    {
        SensorDefectList list;
        for (std::uint32_t i = 0; i < 150; ++i)
        {
            list.push_back(boost::make_shared<PixelDefect>(i * 3 % 640, i));
        }
        return list;
    }();
    std::size_t refusals = 0, last = 0;
    for (std::size_t i = 0; i <= last; ++i)
    {
        camera->flash[User] = Bytes(4104);
        camera->lieAt = i;
        camera->answers = 0;
        const auto failure = FailureOf([&] { adapter.WriteCorrectionSet(set, many); });
        last = std::max(last, camera->answers);
        refusals += failure.empty() ? 0 : 1;
        camera->lieAt = SIZE_MAX;
        camera->statuses.clear();
        const auto stored = failure.empty() ? text(adapter.ReadCorrectionSet(set)) : text(many);
        EXPECT_EQ(stored, text(many)) << "answer " << i;
        adapter.WriteCorrectionSet(set, one);
        EXPECT_EQ(text(adapter.ReadCorrectionSet(set)), "P7,3 ") << "after the wrong answer " << i;
    }
    // But for the other capabilities, and for statuses that are only compared with one that they are not.
    EXPECT_GT(refusals, last * 3 / 4);
}

TEST_F(FlashAdapter, SaysWhatFailed)
{
    using Statuses = std::deque<std::uint32_t>;
    const auto write = [&](const SensorDefectList& list)
    { return [&, list] { adapter.WriteCorrectionSet(set, list); }; };
    const auto after = [&](std::function<void()> prepare, std::function<void()> call)
    {
        return [=]
        {
            prepare();
            call();
        };
    };
    const auto statuses = [&](const Statuses& coming) { return [&, coming] { camera->statuses = coming; }; };
    const auto reg = [&](std::uint64_t address, std::uint32_t value)
    { return [&, address, value] { camera->registers[address] = value; }; };
    const std::function<void()> read = [&] { adapter.ReadCorrectionSet(set); };
    const std::function<void()> restore = [&] { adapter.RestoreFactorySettings(set); };
    const auto factory = [&](std::size_t size) { return [&, size] { camera->flash[Factory].resize(size); }; };
    const auto refuse = [&](const char* call) { return [&, call] { camera->log.refused = call; }; };
    const auto programmed = [&](std::uint32_t status) { return [&, status] { camera->programming = {status}; }; };
    const auto erased = [&](const Statuses& coming) { return [&, coming] { camera->erasing = coming; }; };
    SensorDefectList row;
    for (std::uint32_t x = 0; x < 9; ++x)
    {
        row.push_back(boost::make_shared<PixelDefect>(x + 50, 1));
    }
    const std::string invalid = "The given CorrectionSet is invalid!";
    const std::pair<std::function<void()>, std::string> cases[] = {
        {after(reg(0x14000, ~(1U << 22)), read), "Camera does not support Flash file access!"},
        {after(statuses({0}), read), "Camera does not support Flash file access!"},
        {after(reg(0x14000, 0), write(one)), "The camera does not support flash file access!"},
        {after(refuse("Write 1a0b4=6"), read), "Flash file error handling failed"},
        {after(refuse("Write 1a0b4=6"), write(one)), "Failed to handle error status"},
        {after(statuses({0xFC000000, 0xFC000000, 0xFC000000}), read), "Flash status error"},
        {after([&] { camera->flash[User].resize(4102); }, read), "fileSize no multiple of 4"},
        {after([&] { camera->shortBy = 1; }, read), "Could not read data packet."},
        {after(refuse("Read 1a0a4"), read), "Refused: Read 1a0a4"},
        {after(erased({0xFE000000, 0xFC000000}), write(one)), EraseFailed},
        {after(programmed(0xE0000000), write(one)), UploadFailed},
        {after(programmed(0xFFFFF000), write(one)), UploadFailed},
        {after([&] { camera->noise = 1; }, write(one)),
         "DPC data downloaded does not match the correction data saved! "},
        {after([&] { camera->features["SensorType"].text = "Other"; },
               [&] { DpcAdapterQuorsalinWithPython(camera).IsCorrectionSetValid(set, one); }),
         "Unknown Sensor Type!"},
        {write({}), invalid},
        {write(row), invalid},
        {write(defectsOf("P641,1")), invalid},
        {write(defectsOf("P1,1 R1")), invalid},
        {write(SensorDefectList(201, one[0])), "Not enough flash memory for the given CorrectionSet!"},
        {after(statuses({0xFFFFF800, 0xFFFFF800}), after(factory(0), restore)), "Cannot upload empty file!"},
        {after(refuse("Read 1a0a0"), [&] { DpcAdapterQuorsalinWithPython{camera}; }), "Refused: Read 1a0a0"},
        {after(factory(5956), restore), "File too big! File size exceeds 5952"},
        {after([&] { camera->registers[0x1A0A0] = 4351; },
               [&]
               {
                   DpcAdapterQuorsalinWithPython small(camera, std::chrono::milliseconds(0));
                   EXPECT_TRUE(small.IsSpaceSufficient(set, row)) << "hardly any flash: no limit of the number";
                   EXPECT_EQ(FailureOf([&] { small.WriteCorrectionSet(set, SensorDefectList(32, one[0])); }),
                             "File too big! File size exceeds 4351");
                   EXPECT_TRUE(camera->flash[User].empty()) << "the old list is gone by then";
               }),
         ""},
    };
    for (const auto& [call, words] : cases)
    {
        const FlashCamera fresh;
        camera->flash = fresh.flash;
        camera->flash[User] = Bytes(4104);
        camera->registers = fresh.registers;
        camera->features = fresh.features;
        std::tie(camera->erasing, camera->programming) = std::tie(fresh.erasing, fresh.programming);
        camera->statuses.clear();
        camera->shortBy = camera->noise = 0;
        camera->log = {};
        EXPECT_EQ(FailureOf(call), words) << &words - &cases[0].second;
    }
}

} // namespace
