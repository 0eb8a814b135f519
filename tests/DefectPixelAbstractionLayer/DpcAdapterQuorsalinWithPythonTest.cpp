// The adapter of the flash family: its talk with the camera, wrong answers at every place of it, and what it says then.
#include "DpcAdapterQuorsalinWithPython.h"
#include "DefectText.h"
#include "Failure.h"
#include "FlashCamera.h"

#include <boost/algorithm/string/join.hpp>
#include <gtest/gtest.h>

#include <functional>

using namespace KTR::DPC;

namespace
{

constexpr std::uint32_t User = 102101, Factory = 103100, Valid = 0xFFFFF800;

struct FlashAdapter : testing::Test
{
    boost::shared_ptr<FlashCamera> camera = boost::make_shared<FlashCamera>();
    DpcAdapterQuorsalinWithPython adapter{camera, std::chrono::milliseconds(0)};
    DpcAdapter::CorrectionSetPtr set = adapter.GetDefaultCorrectionSet();
    SensorDefectList one = defectsOf("P7,3"), row = defectsOf("P1,1 P2,1 P3,1 P4,1 P5,1");

    std::string talk(const std::function<void()>& call)
    {
        camera->log = {};
        call();
        return boost::algorithm::join(camera->log.calls, ",") + ",";
    }
};

TEST_F(FlashAdapter, TalksToTheCameraInOneOrder)
{
    const std::string status = "Read 1a0b0,", support = "Read 14000," + status, access = "Write 1a0b4=1532604,",
                      select = "Write 1a0bc=102101,", start = select + status + "Write 1a0b4=6," + status,
                      erase = access + "Write 1a0b4=5," + status + status,
                      upload = access + "Write 1a0ac=4104,Write 1a0b4=2,", download = "Read 1a0a4,Write 1a0a8=0,";
    const auto packets = [](const std::string& call)
    {
        std::string calls;
        for (int i = 0; i < 8; ++i)
        {
            calls += call + " 504,";
        }
        return calls + call + " 108,";
    };
    const std::string reading = start + download + packets("ReadMemory 1aa00");
    const std::string writing = status + upload + packets("WriteMemory 1a100") + status + status + status + reading;
    for (const auto& ahead : {std::string(), erase}) // nothing is erased twice
    {
        const std::string expected = boost::algorithm::join(std::vector{support, select, start, ahead, writing}, "");
        EXPECT_EQ(talk([&] { adapter.WriteCorrectionSet(set, one); }), expected);
    }
    EXPECT_EQ(talk([&] { EXPECT_EQ(text(adapter.ReadCorrectionSet(set)), "P7,3 "); }), support + reading);
    camera->flash[User].clear();
    camera->statuses = {Valid, Valid, Valid};
    EXPECT_TRUE(adapter.ReadCorrectionSet(set).empty()) << "a valid file without bytes";
    adapter.EraseCorrectionSet(set);
    EXPECT_EQ(camera->flash[User], camera->flash[Factory]);
}

TEST_F(FlashAdapter, NeverBelievesAWrongAnswer)
{
    const SensorDefectList many(150, one[0]);
    std::size_t refusals = 0, last = 0;
    for (std::size_t i = 0; i <= last; ++i)
    {
        camera->flash[User] = FlashCamera::Bytes(4104);
        camera->lieAt = i;
        camera->answers = 0;
        const bool refused = !FailureOf([&] { adapter.WriteCorrectionSet(set, many); }).empty();
        last = std::max(last, camera->answers);
        refusals += refused ? 1 : 0;
        camera->lieAt = SIZE_MAX;
        camera->statuses.clear();
        EXPECT_TRUE(refused || adapter.ReadCorrectionSet(set).size() == 150) << "answer " << i;
        adapter.WriteCorrectionSet(set, one);
        EXPECT_EQ(text(adapter.ReadCorrectionSet(set)), "P7,3 ") << "after the wrong answer " << i;
    }
    // Other capabilities do not matter, nor do statuses that are not the one they are compared with, either way.
    EXPECT_GT(refusals, last * 3 / 4);
}

TEST_F(FlashAdapter, SaysWhatFailed)
{
    using Call = std::function<void()>;
    const Call none, read = [&] { adapter.ReadCorrectionSet(set); };
    const Call restore = [&] { adapter.RestoreFactorySettings(set); };
    const auto write = [&](const SensorDefectList& list)
    { return [&, list] { adapter.WriteCorrectionSet(set, list); }; };
    const auto statuses = [&](std::deque<std::uint32_t> coming) { return [&, coming] { camera->statuses = coming; }; };
    const auto reg = [&](std::uint64_t at, std::uint32_t value)
    { return [&, at, value] { camera->registers[at] = value; }; };
    const auto size = [&](std::uint32_t file, std::size_t n)
    { return [&, file, n] { camera->flash[file].resize(n); }; };
    const auto refuse = [&](const char* call) { return [&, call] { camera->log.refused = call; }; };
    const auto programmed = [&](std::uint32_t status) { return [&, status] { camera->programming = {status}; }; };
    const auto erased = [&](std::uint32_t status) { return [&, status] { camera->erasing = {0xFE000000, status}; }; };
    SensorDefectList nine = row;
    nine.insert(nine.end(), row.begin(), row.end());
    for (const char* more : {"P0,1", "P6,1", "P7,1", "P8,1", "P9,1"})
    {
        nine.push_back(defectsOf(more)[0]);
    }
    const std::string unsupported = "Camera does not support Flash file access!";
    const std::string uploadFailed = "Flash Upload command failed. Flash File Status invalid.";
    const std::string invalid = "The given CorrectionSet is invalid!";
    const std::tuple<Call, Call, std::string> cases[] = {
        {reg(0x14000, ~(1U << 22)), read, unsupported},
        {statuses({0}), read, unsupported},
        {reg(0x14000, 0), write(one), "The camera does not support flash file access!"},
        {refuse("Write 1a0b4=6"), read, "Flash file error handling failed"},
        {refuse("Write 1a0b4=6"), write(one), "Failed to handle error status"},
        {statuses({0xFC000000, 0xFC000000, 0xFC000000}), read, "Flash status error"},
        {size(User, 4102), read, "fileSize no multiple of 4"},
        {[&] { camera->shortBy = 1; }, read, "Could not read data packet."},
        {refuse("Read 1a0a4"), read, "Refused: Read 1a0a4"},
        {erased(0xFC000000), write(one), "Flash Erase command failed. Flash File Status invalid."},
        {programmed(0xE0000000), write(one), uploadFailed},
        {programmed(0xFFFFF000), write(one), uploadFailed},
        {[&] { camera->noise = 1; }, write(one), "DPC data downloaded does not match the correction data saved! "},
        {none, write({}), invalid},
        {none, write(nine), invalid},
        {none, write(defectsOf("P641,1")), invalid},
        {none, write(defectsOf("P1,1 R1")), invalid},
        {none, write(SensorDefectList(201, one[0])), "Not enough flash memory for the given CorrectionSet!"},
        {[&] {
             (size(Factory, 0)(), statuses({Valid, Valid})());
         },
         restore, "Cannot upload empty file!"},
        {none, [&] { adapter.UploadFlashFile(User, 1532604, FlashCamera::Bytes(6)); },
         "File size is not multiple of 4."},
        {size(Factory, 5956), restore, "File too big! File size exceeds 5952"},
        {reg(0x1A0A0, 4351),
         [&]
         {
             DpcAdapterQuorsalinWithPython small(camera, std::chrono::milliseconds(0)); // no limit of the number
             small.WriteCorrectionSet(set, SensorDefectList(32, one[0]));
         },
         "File too big! File size exceeds 4351"},
    };
    for (const auto& [prepare, call, words] : cases)
    {
        const FlashCamera fresh;
        std::tie(camera->flash, camera->registers, camera->erasing, camera->programming, camera->log) =
            std::tie(fresh.flash, fresh.registers, fresh.erasing, fresh.programming, fresh.log);
        camera->flash[User] = FlashCamera::Bytes(4104);
        camera->statuses.clear();
        camera->shortBy = camera->noise = 0;
        prepare ? prepare() : void();
        EXPECT_EQ(FailureOf(call), words);
        EXPECT_EQ(camera->flash[User].empty(),
                  words.find("too big") + 1 || words.find("Erase") + 1 || words.find("File size") == 0)
            << words;
    }
}

} // namespace
