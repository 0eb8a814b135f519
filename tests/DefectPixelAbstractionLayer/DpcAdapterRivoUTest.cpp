// The Rivo U adapter: what it says when a camera fails, and which calls it makes.
#include "DpcAdapterRivoU.h"
#include "DefectText.h"
#include "Failure.h"
#include "OstrelCamera.h"

#include <gmock/gmock.h>

#include <functional>

using namespace KTR::DPC;
using testing::ElementsAre;

namespace
{

// Answers the question of reading as a derived adapter could.
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
    const std::string selector = "Set CorrectionSelector=DefectPixelCorrection";
    const std::string select = "Set CorrectionSetSelector=User";

    void SetUp() override { camera->log = {}; }
};

TEST_F(DpcAdapterRivoUTest, SaysWhatFailed)
{
    using Call = std::function<void()>;
    const Call setDefault = [&] { adapter.SetDefaultCorrectionSet(user); };
    const Call isOn = [&] { adapter.IsCorrectionSetEnabled(user); };
    const Call on = [&] { adapter.SetCorrectionSetEnabled(user, true); };
    const Call read = [&] { adapter.ReadCorrectionSet(user); };
    const Call write = [&] { adapter.WriteCorrectionSet(user, {}); };
    const Call space = [&] { adapter.IsSpaceSufficient(user, {}); };
    const Call erase = [&] { adapter.EraseCorrectionSet(user); };
    std::vector<std::tuple<std::string, Call, std::string>> cases = {
        {selector, setDefault, "Could not set CorrectionSelector: "},
        {"List CorrectionSetSelector", [&] { adapter.GetAvailableCorrectionSets(); },
         "Could not get enum values of CorrectionSetSelect: "},
        {"Get CorrectionSetDefault", [&] { adapter.GetDefaultCorrectionSet(); },
         "Could not get value of CorrectionSetDefault: "},
        {"List CorrectionSetDefault", setDefault, "Could not get enum values of CorrectionSetDefault: "},
        {"Set CorrectionSetDefault=User", setDefault, "Could not set value of CorrectionSetDefault: "},
        {"Get CorrectionMode", isOn, "Could not get value of CorrectionMode for CorrectionSet User.\n"},
        {"Set CorrectionMode=On", on, "Could not set value of CorrectionMode for CorrectionSet User.\n"},
    };
    for (const auto& call : {isOn, on, read, write, space, erase})
    {
        cases.emplace_back(select, call, "Could not set CorrectionSetSelector for CorrectionSetUser.\n");
    }
    for (const auto& [refused, call, words] : cases)
    {
        camera->log.refused = refused;
        EXPECT_EQ(FailureOf(call), words + "Refused: " + refused);
    }
    camera->log = {};
    EXPECT_EQ(FailureOf([&] { adapter.SetDefaultCorrectionSet(boost::make_shared<CorrectionSet>("Lost")); }),
              "The given CorrectionSet is not valid for CorrectionSetDefault");
    EXPECT_EQ(FailureOf([&] { adapter.RestoreFactorySettings(user); }),
              "RestoreFactorySettings is not supported by Rivo-U");
    EXPECT_EQ(FailureOf([&] { adapter.WriteCorrectionSet(user, defectsOf("V1")); }),
              "The given CorrectionSet Data is not valid!");
    camera->files.pop_back();
    EXPECT_EQ(FailureOf(read), "Could not get file DefectPixelCorrection");
    for (const auto& call : {write, space, erase})
    {
        EXPECT_EQ(FailureOf(call), "Could not get file for CorrectionSet User");
    }
    adapter.readable = false;
    EXPECT_EQ(FailureOf(read), "CorrectionSet User is not readable!");
    EXPECT_EQ(FailureOf(write), "CorrectionSet User is not writable!");
    EXPECT_EQ(FailureOf(space), "CorrectionSet User is not writable!");
    EXPECT_FALSE(adapter.IsCorrectionSetAvailable(user)) << "one answer decides all three";
}

TEST_F(DpcAdapterRivoUTest, SelectsTheSetBeforeItTouchesTheFileAndKnowsItsSize)
{
    const std::string name = " DefectPixelCorrection";
    const auto calls = [&] { return std::exchange(camera->log, CallLog()).calls; };
    adapter.EraseCorrectionSet(user);
    EXPECT_THAT(calls(), ElementsAre(selector, select, "GetFiles", "GetSize" + name)) << "an empty file is not opened";
    adapter.WriteCorrectionSet(user, defectsOf("P65543,5 R3")); // cut to 16 bits
    EXPECT_THAT(calls(), ElementsAre(selector, select, "GetFiles", "OpenWrite" + name, "Write" + name, "Close" + name));
    EXPECT_EQ(text(adapter.ReadCorrectionSet(user)), "R3 P7,5 ");
    calls();
    EXPECT_FALSE(adapter.IsCorrectionSetEnabled(user));
    EXPECT_THAT(calls(), ElementsAre(selector, select, "Get CorrectionMode"));
    EXPECT_TRUE(adapter.IsCorrectionSetWritable(boost::make_shared<CorrectionSet>("Factory")));
    for (const std::uint64_t sizeMax : {45, 46}) // an empty list takes 46 bytes
    {
        DpcAdapterRivoU small(makeRivoUCamera(sizeMax));
        EXPECT_EQ(small.IsSpaceSufficient(user, {}), sizeMax == 46);
        EXPECT_EQ(FailureOf([&] { small.WriteCorrectionSet(user, {}); }),
                  sizeMax == 46 ? "" : "Space is not sufficient: Max filesize: 45; Size of Defects: 46");
    }
    camera->features["ReverseX"] = camera->features["ReverseY"] = {};
    EXPECT_EQ(adapter.ConvertDefectsListToBinary({}).size(), 46U) << "it could not mirror then";
    EXPECT_EQ(DpcAdapterRivoU(camera).ConvertDefectsListToBinary({}).size(), 84U);
}

} // namespace
