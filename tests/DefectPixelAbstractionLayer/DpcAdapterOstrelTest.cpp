// The Ostrel adapter: what it says when a camera fails, and which calls it makes.
#include "DpcAdapterOstrel.h"
#include "AdapterCalls.h"
#include "FileCameras.h"
#include "ScopedOpenFile.h"

using namespace KTR::DPC;
using testing::ElementsAre;

namespace
{

// Answers the two questions of reading and writing as a derived adapter could.
struct TestAdapter final : DpcAdapterOstrel
{
    using DpcAdapterOstrel::DpcAdapterOstrel;
    bool IsCorrectionSetReadable(const CorrectionSetPtr& set) override { return set->getName() != "Secret"; }
    bool IsCorrectionSetWritable(const CorrectionSetPtr& set) override
    {
        return set->getName() == "Lost" || DpcAdapterOstrel::IsCorrectionSetWritable(set);
    }
};

struct DpcAdapterOstrelTest : AdapterTest<TestAdapter>
{
    DpcAdapterOstrelTest() : AdapterTest(makeOstrelCamera(), "User") {}
};

TEST_F(DpcAdapterOstrelTest, SaysWhatFailed)
{
    const std::string selector = "Set CorrectionSelector=DefectPixelCorrection", noFile = "Could not get file ";
    const std::string mode = "Could not set value of Correction mode for Correction Set User.\n";
    ExpectRefusals({
        {selector, sets, "Could not set CorrectionSelector: "},
        {selector, getDefault, "Could not set CorrectionSelector: "},
        {selector, on, "Could not set CorrectionSelector: "},
        {"Set CorrectionSet=User", on, "Could not set CorrectionSetSelector for CorrectionSetUser.\n"},
        {"List CorrectionSet", sets, "Could not get enum values of CorrectionSetSelect : "},
        {"Get CorrectionSetDefault", getDefault, "Could not get enum value of CorrectionSetDefault: "},
        {"List CorrectionSetDefault", setDefault, "Could not get enum values of CorrectionSetDefault: "},
        {"", setDefault, "The given CorrectionSet Lost is not valid for CorrectionSetDefault", "Lost"},
        {"Set CorrectionSetDefault=User", setDefault, "Could not set value of CorrectionSetDefault: "},
        {"Set CorrectionMode=On", on, mode},
        {"Set CorrectionMode=Off", off, mode},
        {"", read, "CorrectionSet Secret is not readable!", "Secret"},
        {"", read, noFile + "DefectPixelCorrection", "Lost"},
        {"", writable, noFile + "DefectPixelCorrection", "Gone"},
        {"", write, "The given correction set cannot be overwritten", "Preset"},
        {"", erase, "The given correction set cannot be overwritten", "Preset"},
        {"", write, noFile + "for correction set Lost", "Lost"},
        {"", space, noFile + "for correction set Lost", "Lost"},
        {"", restore, "RestoreFactorySettings is not available for Ostrel Cameras"},
    });
}

TEST_F(DpcAdapterOstrelTest, MovesOnlyTheSelectorsThatItNeeds)
{
    const std::string name = " DefectPixelCorrectionUser";
    on(user);
    EXPECT_THAT(log(), ElementsAre("Set CorrectionSelector=DefectPixelCorrection", "Set CorrectionSet=User",
                                   "Set CorrectionMode=On"));
    EXPECT_TRUE(adapter.IsCorrectionSetEnabled(user));
    EXPECT_FALSE(adapter.IsCorrectionSetEnabled(boost::make_shared<CorrectionSet>("Preset")));
    EXPECT_THAT(log(), testing::Each(testing::StartsWith("Get ")));
    camera->features.erase("CorrectionMode");
    EXPECT_FALSE(adapter.IsCorrectionSetEnabled(user)) << "a camera that cannot tell";
    camera->features["CorrectionSet"].unavailable = "User";
    EXPECT_FALSE(adapter.IsCorrectionSetAvailable(user));
    log();
    EXPECT_TRUE(adapter.ReadCorrectionSet(user).empty());
    EXPECT_THAT(log(), ElementsAre("GetFiles", "OpenRead" + name, "GetSize" + name, "Close" + name));
}

TEST_F(DpcAdapterOstrelTest, StoresWhatTheFamilyCanStore)
{
    adapter.WriteCorrectionSet(user, defectsOf("V3 P65543,65541")); // cut to 16 bits
    camera->features["ReverseX"] = {};
    EXPECT_EQ(adapter.ConvertDefectsListToBinary({}).size(), 52U + 3 * 80 + 8 + 3 * 34);
    camera->features.erase("ReverseX");
    camera->features["ReverseY"] = {};
    EXPECT_THROW(erase(user), KTR::System::Exception) << "no file for mirroring in y alone";
    EXPECT_EQ(text(adapter.ReadCorrectionSet(user)), "P7,5 ");
    for (const std::uint64_t sizeMax : {174U, 175U}) // an empty list takes 174 bytes, and a file may not be full
    {
        EXPECT_EQ(DpcAdapterOstrel(makeOstrelCamera(sizeMax)).IsSpaceSufficient(user, {}), sizeMax == 175);
    }
}

TEST(ScopedOpenFile, TellsTheFirstFailure)
{
    const auto camera = makeOstrelCamera();
    const auto file = camera->files.front();
    const auto open = [&] { return ScopedOpenFile(file, FileInterface::FileOpenMode::Read); };
    camera->log = {{}, "Close OtherUser"};
    EXPECT_EQ(FailureOf([&] { open()->Delete(); }), "Delete is not allowed now on the file OtherUser.");
    EXPECT_EQ(FailureOf([&] { open().Close(); }), "Refused: Close OtherUser");
    EXPECT_THAT(camera->log.calls, ElementsAre("OpenRead OtherUser", "Delete OtherUser", "Close OtherUser",
                                               "OpenRead OtherUser", "Close OtherUser"));
    EXPECT_DEATH(open(), "") << "a failure that nobody hears of";
}

} // namespace
