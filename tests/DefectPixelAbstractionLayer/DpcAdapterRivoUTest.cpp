// The Rivo U adapter: what it says when a camera fails, and which calls it makes.
#include "DpcAdapterRivoU.h"
#include "AdapterCalls.h"
#include "DefectText.h"
#include "OstrelCamera.h"

#include <gmock/gmock.h>

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
    AdapterCalls calls{adapter, *camera};
    DpcAdapter::CorrectionSetPtr user = boost::make_shared<CorrectionSet>("User");
    const std::string selector = "Set CorrectionSelector=DefectPixelCorrection";
    const std::string select = "Set CorrectionSetSelector=User";

    void SetUp() override { camera->log = {}; }
};

TEST_F(DpcAdapterRivoUTest, SaysWhatFailed)
{
    const std::string mode = " value of CorrectionMode for CorrectionSet User.\n";
    std::vector<AdapterCalls::Refusal> cases = {
        {selector, calls.setDefault, "User", "Could not set CorrectionSelector: "},
        {"List CorrectionSetSelector", calls.sets, "User", "Could not get enum values of CorrectionSetSelect: "},
        {"Get CorrectionSetDefault", calls.getDefault, "User", "Could not get value of CorrectionSetDefault: "},
        {"List CorrectionSetDefault", calls.setDefault, "User", "Could not get enum values of CorrectionSetDefault: "},
        {"Set CorrectionSetDefault=User", calls.setDefault, "User", "Could not set value of CorrectionSetDefault: "},
        {"Get CorrectionMode", calls.isOn, "User", "Could not get" + mode},
        {"Set CorrectionMode=On", calls.on, "User", "Could not set" + mode},
        {"", calls.setDefault, "Lost", "The given CorrectionSet is not valid for CorrectionSetDefault"},
        {"", calls.restore, "User", "RestoreFactorySettings is not supported by Rivo-U"},
    };
    for (const auto& call : {calls.isOn, calls.on, calls.read, calls.write, calls.space, calls.erase})
    {
        cases.push_back({select, call, "User", "Could not set CorrectionSetSelector for CorrectionSetUser.\n"});
    }
    calls.ExpectRefusals(cases);
    EXPECT_EQ(FailureOf([&] { adapter.WriteCorrectionSet(user, defectsOf("V1")); }),
              "The given CorrectionSet Data is not valid!");
    camera->files.pop_back();
    const std::string noFile = "Could not get file for CorrectionSet User";
    calls.ExpectRefusals({{"", calls.read, "User", "Could not get file DefectPixelCorrection"},
                          {"", calls.write, "User", noFile},
                          {"", calls.space, "User", noFile},
                          {"", calls.erase, "User", noFile}});
    adapter.readable = false;
    calls.ExpectRefusals({{"", calls.read, "User", "CorrectionSet User is not readable!"},
                          {"", calls.write, "User", "CorrectionSet User is not writable!"},
                          {"", calls.space, "User", "CorrectionSet User is not writable!"}});
    EXPECT_FALSE(adapter.IsCorrectionSetAvailable(user)) << "one answer decides all three";
}

TEST_F(DpcAdapterRivoUTest, SelectsTheSetBeforeItTouchesTheFileAndKnowsItsSize)
{
    const std::string name = " DefectPixelCorrection";
    const auto log = [&] { return std::exchange(camera->log, CallLog()).calls; };
    adapter.EraseCorrectionSet(user);
    EXPECT_THAT(log(), ElementsAre(selector, select, "GetFiles", "GetSize" + name)) << "an empty file is not opened";
    adapter.WriteCorrectionSet(user, defectsOf("P65543,5 R3")); // cut to 16 bits
    EXPECT_THAT(log(), ElementsAre(selector, select, "GetFiles", "OpenWrite" + name, "Write" + name, "Close" + name));
    EXPECT_EQ(text(adapter.ReadCorrectionSet(user)), "R3 P7,5 ");
    log();
    EXPECT_FALSE(adapter.IsCorrectionSetEnabled(user));
    EXPECT_THAT(log(), ElementsAre(selector, select, "Get CorrectionMode"));
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
