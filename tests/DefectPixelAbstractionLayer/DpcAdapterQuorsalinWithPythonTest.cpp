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
    SensorDefectList one = defectsOf("P7,3");

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

TEST(FlashAdapterFailures, AreTold)
{
    using Adapter = DpcAdapterQuorsalinWithPython;
    using Camera = FlashCamera;
    const auto refused = [](const char* call) { return [=](Camera& c) { c.log.refused = call; }; };
    const auto set = boost::make_shared<CorrectionSet>("Defect Pixel List");
    const auto read = [&](Adapter& a) { a.ReadCorrectionSet(set); };
    const auto restore = [&](Adapter& a) { a.RestoreFactorySettings(set); };
    const auto write = [&](const SensorDefectList& list)
    { return [&, list](Adapter& a) { a.WriteCorrectionSet(set, list); }; };
    const auto one = defectsOf("P7,3");
    const auto writeOne = write(one);
    const char* ten = "P1,1 P2,1 P3,1 P4,1 P5,1 P1,1 P2,1 P3,1 P4,1 P5,1 P0,1 P6,1 P7,1 P8,1 P9,1"; // beside each other
    const std::string unsupported = "Camera does not support Flash file access!";
    const std::string uploadFailed = "Flash Upload command failed. Flash File Status invalid.";
    const std::string invalid = "The given CorrectionSet is invalid!";
    const std::tuple<std::function<void(Camera&)>, std::function<void(Adapter&)>, std::string> cases[] = {
        {[](Camera& c) { c.registers[0x14000] = ~(1U << 22); }, read, unsupported},
        {[](Camera& c) { c.statuses = {0}; }, read, unsupported},
        {[](Camera& c) { c.registers[0x14000] = 0; }, writeOne, "The camera does not support flash file access!"},
        {refused("Write 1a0b4=6"), read, "Flash file error handling failed"},
        {refused("Write 1a0b4=6"), writeOne, "Failed to handle error status"},
        {[](Camera& c) {
             c.statuses = {0xFC000000, 0xFC000000, 0xFC000000};
         },
         read, "Flash status error"},
        {[](Camera& c) { c.flash[User].resize(4102); }, read, "fileSize no multiple of 4"},
        {[](Camera& c) { c.shortBy = 1; }, read, "Could not read data packet."},
        {refused("Read 1a0a4"), read, "Refused: Read 1a0a4"},
        {[](Camera& c) { c.erasing.back() = 0xFC000000; }, writeOne,
         "Flash Erase command failed. Flash File Status invalid."},
        {[](Camera& c) { c.programming = {0xE0000000}; }, writeOne, uploadFailed},
        {[](Camera& c) { c.programming = {0xFFFFF000}; }, writeOne, uploadFailed},
        {[](Camera& c) { c.noise = 1; }, writeOne, "DPC data downloaded does not match the correction data saved! "},
        {{}, write({}), invalid},
        {{}, write(defectsOf(ten)), invalid},
        {{}, write(defectsOf("P641,1")), invalid},
        {{}, write(defectsOf("P1,1 R1")), invalid},
        {{}, write(SensorDefectList(201, one[0])), "Not enough flash memory for the given CorrectionSet!"},
        {[](Camera& c) {
             c.flash[Factory].clear(), c.statuses = {Valid, Valid};
         },
         restore, "Cannot upload empty file!"},
        {{},
         [](Adapter& a) { a.UploadFlashFile(User, 1532604, FlashCamera::Bytes(6)); },
         "File size is not multiple of 4."},
        {[](Camera& c) { c.flash[Factory].resize(5956); }, restore, "File too big! File size exceeds 5952"},
        {[](Camera& c) { c.registers[0x1A0A0] = 4351; }, write(SensorDefectList(32, one[0])), // no limit of the number
         "File too big! File size exceeds 4351"},
    };
    for (const auto& [prepare, call, words] : cases)
    {
        const auto camera = boost::make_shared<FlashCamera>();
        camera->flash[User] = FlashCamera::Bytes(4104);
        prepare ? prepare(*camera) : void();
        Adapter adapter(camera, std::chrono::milliseconds(0));
        EXPECT_EQ(FailureOf([&, &c = call] { c(adapter); }), words);
        const auto tells = [&, &w = words](const char* part) { return w.find(part) != std::string::npos; };
        EXPECT_EQ(camera->flash[User].empty(), tells("too big") || tells("Erase") || tells("of 4.")) << words;
    }
}

} // namespace
