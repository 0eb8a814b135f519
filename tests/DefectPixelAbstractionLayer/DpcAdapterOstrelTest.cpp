// The Ostrel adapter: what it says when a camera fails, and which calls it makes.
#include "DpcAdapterOstrel.h"
#include "AdapterCalls.h"
#include "DefectText.h"
#include "OstrelCamera.h"
#include "ScopedOpenFile.h"

#include <gmock/gmock.h>

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

struct DpcAdapterOstrelTest : testing::Test
{
    boost::shared_ptr<MemoryCamera> camera = makeOstrelCamera();
    TestAdapter adapter{camera};
    AdapterCalls calls{adapter, *camera};
    DpcAdapter::CorrectionSetPtr user = boost::make_shared<CorrectionSet>("User");

    void SetUp() override { camera->log = {}; }
};

TEST_F(DpcAdapterOstrelTest, SaysWhatFailed)
{
    const std::string selector = "Set CorrectionSelector=DefectPixelCorrection";
    calls.ExpectRefusals({
        {selector, calls.sets, "User", "Could not set CorrectionSelector: "},
        {selector, calls.getDefault, "User", "Could not set CorrectionSelector: "},
        {selector, calls.on, "User", "Could not set CorrectionSelector: "},
        {"Set CorrectionSet=User", calls.on, "User", "Could not set CorrectionSetSelector for CorrectionSetUser.\n"},
        {"List CorrectionSet", calls.sets, "User", "Could not get enum values of CorrectionSetSelect : "},
        {"Get CorrectionSetDefault", calls.getDefault, "User", "Could not get enum value of CorrectionSetDefault: "},
        {"List CorrectionSetDefault", calls.setDefault, "User", "Could not get enum values of CorrectionSetDefault: "},
        {"", calls.setDefault, "Lost", "The given CorrectionSet Lost is not valid for CorrectionSetDefault"},
        {"Set CorrectionSetDefault=User", calls.setDefault, "User", "Could not set value of CorrectionSetDefault: "},
        {"Set CorrectionMode=On", calls.on, "User",
         "Could not set value of Correction mode for Correction Set User.\n"},
        {"Set CorrectionMode=Off", calls.off, "User",
         "Could not set value of Correction mode for Correction Set User.\n"},
        {"", calls.read, "Secret", "CorrectionSet Secret is not readable!"},
        {"", calls.read, "Lost", "Could not get file DefectPixelCorrection"},
        {"", calls.writable, "Gone", "Could not get file DefectPixelCorrection"},
        {"", calls.write, "Preset", "The given correction set cannot be overwritten"},
        {"", calls.erase, "Preset", "The given correction set cannot be overwritten"},
        {"", calls.write, "Lost", "Could not get file for correction set Lost"},
        {"", calls.space, "Lost", "Could not get file for correction set Lost"},
        {"", calls.restore, "User", "RestoreFactorySettings is not available for Ostrel Cameras"},
    });
}

TEST_F(DpcAdapterOstrelTest, MovesOnlyTheSelectorsThatItNeeds)
{
    adapter.SetCorrectionSetEnabled(user, true);
    EXPECT_THAT(camera->log.calls, ElementsAre("Set CorrectionSelector=DefectPixelCorrection", "Set CorrectionSet=User",
                                               "Set CorrectionMode=On"));
    camera->log = {};
    EXPECT_TRUE(adapter.IsCorrectionSetEnabled(user));
    EXPECT_FALSE(adapter.IsCorrectionSetEnabled(boost::make_shared<CorrectionSet>("Preset")));
    EXPECT_THAT(camera->log.calls, testing::Each(testing::StartsWith("Get ")));
    camera->features.erase("CorrectionMode");
    EXPECT_FALSE(adapter.IsCorrectionSetEnabled(user)) << "a camera that cannot tell";
    camera->features["CorrectionSet"].unavailable = "User";
    EXPECT_FALSE(adapter.IsCorrectionSetAvailable(user));
    camera->log = {};
    EXPECT_TRUE(adapter.ReadCorrectionSet(user).empty());
    const std::string name = " DefectPixelCorrectionUser";
    EXPECT_THAT(camera->log.calls, ElementsAre("GetFiles", "OpenRead" + name, "GetSize" + name, "Close" + name));
}

TEST_F(DpcAdapterOstrelTest, StoresWhatTheFamilyCanStore)
{
    adapter.WriteCorrectionSet(user, defectsOf("V3 P65543,65541")); // cut to 16 bits
    EXPECT_EQ(text(adapter.ReadCorrectionSet(user)), "P7,5 ");
    EXPECT_THAT(adapter.GetAvailableDefectTypes(),
                ElementsAre(SensorDefectType::Pixel, SensorDefectType::Row, SensorDefectType::PixelRow));

    camera->features["ReverseX"] = {};
    EXPECT_EQ(adapter.ConvertDefectsListToBinary({}).size(), 52U + 3 * 80 + 8 + 3 * 34);
    camera->features.erase("ReverseX");
    camera->features["ReverseY"] = {};
    EXPECT_THROW(adapter.EraseCorrectionSet(user), KTR::System::Exception) << "no file for mirroring in y alone";
    EXPECT_EQ(adapter.ReadCorrectionSet(user).size(), 1U);

    EXPECT_FALSE(DpcAdapterOstrel(makeOstrelCamera(174)).IsSpaceSufficient(user, {})) << "a file of just this size";
    EXPECT_TRUE(DpcAdapterOstrel(makeOstrelCamera(175)).IsSpaceSufficient(user, {}));
}

TEST(ScopedOpenFile, ClosesOnEveryWayOut)
{
    const auto camera = makeOstrelCamera();
    const auto file = camera->files.front();
    camera->log.failAt = 0;
    EXPECT_THROW(ScopedOpenFile(file, FileInterface::FileOpenMode::Read), KTR::System::Exception);
    EXPECT_THAT(camera->log.calls, testing::SizeIs(1)) << "nothing to close";
    camera->log.failAt = 2;
    EXPECT_THROW(ScopedOpenFile(file, FileInterface::FileOpenMode::Read)->GetSize(), KTR::System::Exception);
    EXPECT_FALSE(file->IsOpen());
    camera->log = {};
    camera->log.refused = "Close " + file->GetName();
    EXPECT_EQ(FailureOf([&] { ScopedOpenFile(file, FileInterface::FileOpenMode::Read)->Delete(); }),
              "Delete is not allowed now on the file OtherUser.")
        << "the first of two failures";
    EXPECT_EQ(FailureOf([&] { ScopedOpenFile(file, FileInterface::FileOpenMode::Read).Close(); }),
              "Refused: Close OtherUser");
    EXPECT_THAT(camera->log.calls, ElementsAre("OpenRead OtherUser", "Delete OtherUser", "Close OtherUser",
                                               "OpenRead OtherUser", "Close OtherUser"));
    EXPECT_DEATH(ScopedOpenFile(file, FileInterface::FileOpenMode::Read), "") << "a failure that nobody hears of";
}

} // namespace
