// The Rivo U adapter: what it says when a camera fails, and which calls it makes.
#include "DpcAdapterRivoU.h"
#include "ColumnDefect.h"
#include "DefectText.h"
#include "Failure.h"
#include "RivoUCamera.h"

#include <gmock/gmock.h>

#include <functional>

using namespace KTR::DPC;
using testing::ElementsAre;

namespace
{

// Answers the two questions of reading and writing as a derived adapter could.
struct TestAdapter final : DpcAdapterRivoU
{
    using DpcAdapterRivoU::DpcAdapterRivoU;
    bool IsCorrectionSetReadable(const CorrectionSetPtr& set) override
    {
        return readable && DpcAdapterRivoU::IsCorrectionSetReadable(set);
    }
    bool readable = true;
};

struct DpcAdapterRivoUTest : testing::Test
{
    boost::shared_ptr<MemoryCamera> camera = makeRivoUCamera();
    TestAdapter adapter{camera};
    DpcAdapter::CorrectionSetPtr user = boost::make_shared<CorrectionSet>("User");
    DpcAdapter::CorrectionSetPtr lost = boost::make_shared<CorrectionSet>("Lost");

    void SetUp() override { camera->log = {}; }
};

TEST_F(DpcAdapterRivoUTest, SaysWhatFailed)
{
    const std::function<void()> sets = [&] { adapter.GetAvailableCorrectionSets(); };
    const std::function<void()> getDefault = [&] { adapter.GetDefaultCorrectionSet(); };
    const std::function<void()> setDefault = [&] { adapter.SetDefaultCorrectionSet(user); };
    const std::function<void()> isOn = [&] { adapter.IsCorrectionSetEnabled(user); };
    const std::function<void()> on = [&] { adapter.SetCorrectionSetEnabled(user, true); };
    const std::function<void()> read = [&] { adapter.ReadCorrectionSet(user); };
    const std::function<void()> write = [&] { adapter.WriteCorrectionSet(user, {}); };
    const std::function<void()> space = [&] { adapter.IsSpaceSufficient(user, {}); };
    const std::function<void()> erase = [&] { adapter.EraseCorrectionSet(user); };
    const std::string selector = "Set CorrectionSelector=DefectPixelCorrection";
    const std::string set = "Set CorrectionSetSelector=User";
    const std::string notOn = "Could not set value of CorrectionMode for CorrectionSet User.\n";
    std::vector<std::tuple<std::string, std::function<void()>, std::string>> cases = {
        {"List CorrectionSetSelector", sets, "Could not get enum values of CorrectionSetSelect: "},
        {"Get CorrectionSetDefault", getDefault, "Could not get value of CorrectionSetDefault: "},
        {"List CorrectionSetDefault", setDefault, "Could not get enum values of CorrectionSetDefault: "},
        {"Set CorrectionSetDefault=User", setDefault, "Could not set value of CorrectionSetDefault: "},
        {"Get CorrectionMode", isOn, "Could not get value of CorrectionMode for CorrectionSet User.\n"},
        {"Set CorrectionMode=On", on, notOn},
        {"Set CorrectionMode=Off", [&] { adapter.SetCorrectionSetEnabled(user, false); }, notOn},
    };
    for (const auto& call : {sets, getDefault, setDefault})
    {
        cases.emplace_back(selector, call, "Could not set CorrectionSelector: ");
    }
    for (const auto& call : {isOn, on, read, write, space, erase})
    {
        cases.emplace_back(selector, call, "Could not set CorrectionSelector: ");
        cases.emplace_back(set, call, "Could not set CorrectionSetSelector for CorrectionSetUser.\n");
    }
    for (const auto& [refused, call, words] : cases)
    {
        camera->log.refused = refused;
        EXPECT_EQ(FailureOf(call), words + "Refused: " + refused);
    }
    camera->log = {};
    EXPECT_EQ(FailureOf([&] { adapter.SetDefaultCorrectionSet(lost); }),
              "The given CorrectionSet is not valid for CorrectionSetDefault");
    EXPECT_EQ(FailureOf([&] { adapter.RestoreFactorySettings(user); }),
              "RestoreFactorySettings is not supported by Rivo-U");
    EXPECT_EQ(FailureOf([&] { adapter.WriteCorrectionSet(user, {boost::make_shared<ColumnDefect>(1)}); }),
              "The given CorrectionSet Data is not valid!");
    camera->files.pop_back();
    for (const auto& [call, words] : {std::pair(read, "Could not get file DefectPixelCorrection"),
                                      {write, "Could not get file for CorrectionSet User"},
                                      {space, "Could not get file for CorrectionSet User"},
                                      {erase, "Could not get file for CorrectionSet User"}})
    {
        EXPECT_EQ(FailureOf(call), words);
    }
    adapter.readable = false;
    EXPECT_EQ(FailureOf(read), "CorrectionSet User is not readable!");
    EXPECT_EQ(FailureOf(write), "CorrectionSet User is not writable!");
    EXPECT_EQ(FailureOf(space), "CorrectionSet User is not writable!");
    EXPECT_FALSE(adapter.IsCorrectionSetAvailable(user)) << "one answer decides all three";
}

TEST_F(DpcAdapterRivoUTest, SelectsTheSetBeforeItTouchesTheFile)
{
    const std::string selector = "Set CorrectionSelector=DefectPixelCorrection";
    const std::string set = "Set CorrectionSetSelector=User";
    const std::string name = " DefectPixelCorrection";
    const auto calls = [&] { return std::exchange(camera->log, CallLog()).calls; };
    EXPECT_TRUE(adapter.ReadCorrectionSet(user).empty());
    EXPECT_THAT(calls(), ElementsAre(selector, set, "GetFiles", "GetSize" + name)) << "an empty file is not opened";
    adapter.EraseCorrectionSet(user);
    EXPECT_THAT(calls(), ElementsAre(selector, set, "GetFiles", "GetSize" + name));
    adapter.WriteCorrectionSet(user, {boost::make_shared<PixelDefect>(0x10007, 5), boost::make_shared<RowDefect>(3)});
    EXPECT_THAT(calls(), ElementsAre(selector, set, "GetFiles", "OpenWrite" + name, "Write" + name, "Close" + name));
    EXPECT_EQ(text(adapter.ReadCorrectionSet(user)), "R3 P7,5 ");
    EXPECT_THAT(calls(), ElementsAre(selector, set, "GetFiles", "GetSize" + name, "OpenRead" + name, "Read" + name,
                                     "Close" + name));
    adapter.EraseCorrectionSet(user);
    EXPECT_TRUE(camera->files.back()->content.empty());
    calls();
    EXPECT_FALSE(adapter.IsCorrectionSetEnabled(user));
    EXPECT_THAT(calls(), ElementsAre(selector, set, "Get CorrectionMode"));
    EXPECT_TRUE(adapter.IsCorrectionSetWritable(boost::make_shared<CorrectionSet>("Factory")));
    EXPECT_TRUE(calls().empty());
}

TEST_F(DpcAdapterRivoUTest, KnowsTheCameraAsItWasAndTheSizeToTheByte)
{
    camera->features["ReverseX"] = camera->features["ReverseY"] = {};
    EXPECT_EQ(adapter.ConvertDefectsListToBinary({}).size(), 46U) << "it could not mirror then";
    EXPECT_EQ(DpcAdapterRivoU(camera).ConvertDefectsListToBinary({}).size(), 84U);
    for (const std::uint64_t sizeMax : {45, 46})
    {
        DpcAdapterRivoU small(makeRivoUCamera(sizeMax));
        const std::string words = "Space is not sufficient: Max filesize: 45; Size of Defects: 46";
        EXPECT_EQ(small.IsSpaceSufficient(user, {}), sizeMax == 46);
        EXPECT_EQ(FailureOf([&] { small.WriteCorrectionSet(user, {}); }), sizeMax == 46 ? "" : words);
    }
}

} // namespace
