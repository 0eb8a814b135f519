// The Rivo U adapter: what it says when a camera fails, and which calls it makes.
#include "DpcAdapterRivoU.h"
#include "AdapterCalls.h"
#include "FileCameras.h"

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

struct DpcAdapterRivoUTest : AdapterTest<TestAdapter>
{
    DpcAdapterRivoUTest() : AdapterTest(makeRivoUCamera(), "User") {}
    const std::string selector = "Set CorrectionSelector=DefectPixelCorrection";
    const std::string select = "Set CorrectionSetSelector=User";
};

TEST_F(DpcAdapterRivoUTest, SaysWhatFailed)
{
    const std::string mode = " value of CorrectionMode for CorrectionSet User.\n";
    const std::string noFile = "Could not get file for CorrectionSet User";
    ExpectRefusals({
        {selector, setDefault, "Could not set CorrectionSelector: "},
        {"List CorrectionSetSelector", sets, "Could not get enum values of CorrectionSetSelect: "},
        {"Get CorrectionSetDefault", getDefault, "Could not get value of CorrectionSetDefault: "},
        {"List CorrectionSetDefault", setDefault, "Could not get enum values of CorrectionSetDefault: "},
        {"Set CorrectionSetDefault=User", setDefault, "Could not set value of CorrectionSetDefault: "},
        {"Get CorrectionMode", isOn, "Could not get" + mode},
        {"Set CorrectionMode=On", on, "Could not set" + mode},
        {"", setDefault, "The given CorrectionSet is not valid for CorrectionSetDefault", "Lost"},
        {"", restore, "RestoreFactorySettings is not supported by Rivo-U"},
        {"", [&](auto& set) { adapter.WriteCorrectionSet(set, defectsOf("V1")); },
         "The given CorrectionSet Data is not valid!"},
    });
    for (const auto& call : {isOn, on, read, write, space, erase})
    {
        ExpectRefusals({{select, call, "Could not set CorrectionSetSelector for CorrectionSetUser.\n"}});
    }
    camera->files.pop_back();
    ExpectRefusals({{"", read, "Could not get file DefectPixelCorrection"},
                    {"", write, noFile},
                    {"", space, noFile},
                    {"", erase, noFile}});
    adapter.readable = false;
    ExpectRefusals({{"", read, "CorrectionSet User is not readable!"},
                    {"", write, "CorrectionSet User is not writable!"},
                    {"", space, "CorrectionSet User is not writable!"}});
    EXPECT_FALSE(adapter.IsCorrectionSetAvailable(user)) << "one answer decides all three";
}

TEST_F(DpcAdapterRivoUTest, SelectsTheSetBeforeItTouchesTheFileAndKnowsItsSize)
{
    write(user);
    log();
    erase(user);
    EXPECT_THAT(log(), ElementsAre(selector, select, "GetFiles", "GetSize DefectPixelCorrection",
                                   "OpenWrite DefectPixelCorrection", "Write DefectPixelCorrection",
                                   "Close DefectPixelCorrection"));
    adapter.WriteCorrectionSet(user, defectsOf("P65543,5 R3")); // cut to 16 bits
    EXPECT_EQ(text(adapter.ReadCorrectionSet(user)), "R3 P7,5 ");
    EXPECT_TRUE(adapter.IsCorrectionSetWritable(boost::make_shared<CorrectionSet>("Factory")));
    for (const std::uint64_t sizeMax : {45U, 46U}) // an empty list takes 46 bytes
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
