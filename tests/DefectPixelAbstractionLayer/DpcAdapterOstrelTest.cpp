// The Ostrel adapter: what it says when a camera fails, and which calls it makes.
#include "DpcAdapterOstrel.h"
#include "ColumnDefect.h"
#include "Exception.h"
#include "OstrelCamera.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "ScopedOpenFile.h"

#include <gmock/gmock.h>

#include <functional>

using namespace KTR::DPC;
using testing::ElementsAre;
using testing::IsEmpty;

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

class DpcAdapterOstrelTest : public testing::Test
{
protected:
    const boost::shared_ptr<MemoryCamera> m_camera = makeOstrelCamera();
    TestAdapter m_adapter{m_camera};
    DpcAdapter::CorrectionSetPtr m_user = boost::make_shared<CorrectionSet>("User");
};

TEST_F(DpcAdapterOstrelTest, SaysWhatFailed)
{
    using Set = DpcAdapter::CorrectionSetPtr;
    auto& a = m_adapter;
    const std::string selector = "Set CorrectionSelector=DefectPixelCorrection";
    const auto getSets = [&](const Set&) { a.GetAvailableCorrectionSets(); };
    const auto getDefault = [&](const Set&) { a.GetDefaultCorrectionSet(); };
    const auto setDefault = [&](const Set& set) { a.SetDefaultCorrectionSet(set); };
    const auto enable = [&](const Set& set) { a.SetCorrectionSetEnabled(set, true); };
    const auto disable = [&](const Set& set) { a.SetCorrectionSetEnabled(set, false); };
    const auto available = [&](const Set& set) { a.IsCorrectionSetAvailable(set); };
    const auto read = [&](const Set& set) { a.ReadCorrectionSet(set); };
    const auto writable = [&](const Set& set) { a.IsCorrectionSetWritable(set); };
    const auto write = [&](const Set& set) { a.WriteCorrectionSet(set, {}); };
    const auto space = [&](const Set& set) { a.IsSpaceSufficient(set, {}); };
    const auto erase = [&](Set set) { a.EraseCorrectionSet(set); };
    const auto restore = [&](const Set& set) { a.RestoreFactorySettings(set); };
    const struct
    {
        std::string refused; // the camera's call that fails, whose words follow the text
        std::function<void(const Set&)> act;
        std::string set, text;
    } cases[] = {
        {selector, getSets, "User", "Could not set CorrectionSelector: "},
        {selector, getDefault, "User", "Could not set CorrectionSelector: "},
        {selector, setDefault, "User", "Could not set CorrectionSelector: "},
        {selector, enable, "User", "Could not set CorrectionSelector: "},
        {selector, available, "User", "Could not set CorrectionSelector: "},
        {"Set CorrectionSet=User", enable, "User", "Could not set CorrectionSetSelector for CorrectionSetUser.\n"},
        {"List CorrectionSet", getSets, "User", "Could not get enum values of CorrectionSetSelect : "},
        {"Get CorrectionSetDefault", getDefault, "User", "Could not get enum value of CorrectionSetDefault: "},
        {"List CorrectionSetDefault", setDefault, "User", "Could not get enum values of CorrectionSetDefault: "},
        {"", setDefault, "Lost", "The given CorrectionSet Lost is not valid for CorrectionSetDefault"},
        {"Set CorrectionSetDefault=User", setDefault, "User", "Could not set value of CorrectionSetDefault: "},
        {"Set CorrectionMode=On", enable, "User", "Could not set value of Correction mode for Correction Set User.\n"},
        {"Set CorrectionMode=Off", disable, "User",
         "Could not set value of Correction mode for Correction Set User.\n"},
        {"", read, "Secret", "CorrectionSet Secret is not readable!"},
        {"", read, "Lost", "Could not get file DefectPixelCorrection"},
        {"", writable, "Gone", "Could not get file DefectPixelCorrection"},
        {"", write, "Preset", "The given correction set cannot be overwritten"},
        {"", erase, "Preset", "The given correction set cannot be overwritten"},
        {"", write, "Lost", "Could not get file for correction set Lost"},
        {"", space, "Lost", "Could not get file for correction set Lost"},
        {"", restore, "User", "RestoreFactorySettings is not available for Ostrel Cameras"},
    };
    for (const auto& [refused, act, set, text] : cases)
    {
        m_camera->log.refused = refused;
        try
        {
            act(boost::make_shared<CorrectionSet>(set));
            ADD_FAILURE() << "nothing failed: " << text;
        }
        catch (const KTR::System::Exception& exception)
        {
            EXPECT_EQ(exception.ToString(), text + (refused.empty() ? "" : "Refused: " + refused));
        }
    }
}

TEST_F(DpcAdapterOstrelTest, MovesOnlyTheSelectorsThatItNeeds)
{
    m_adapter.SetCorrectionSetEnabled(m_user, true);
    EXPECT_THAT(m_camera->log.calls, ElementsAre("Set CorrectionSelector=DefectPixelCorrection",
                                                 "Set CorrectionSet=User", "Set CorrectionMode=On"));
    m_camera->log.clear();
    EXPECT_TRUE(m_adapter.IsCorrectionSetEnabled(m_user));
    EXPECT_FALSE(m_adapter.IsCorrectionSetEnabled(boost::make_shared<CorrectionSet>("Preset")));
    EXPECT_THAT(m_camera->log.calls, testing::Each(testing::StartsWith("Get ")));
    m_camera->features.erase("CorrectionMode");
    EXPECT_FALSE(m_adapter.IsCorrectionSetEnabled(m_user)) << "a camera that cannot tell";

    m_camera->features["CorrectionSet"].unavailable = {"User"};
    EXPECT_FALSE(m_adapter.IsCorrectionSetAvailable(m_user));
    EXPECT_EQ(m_adapter.GetAvailableCorrectionSets().size(), 2U) << "also sets not available now";
}

TEST_F(DpcAdapterOstrelTest, OpensAnEmptyFileOnce)
{
    EXPECT_THAT(m_adapter.ReadCorrectionSet(m_user), IsEmpty());
    const std::string name = " DefectPixelCorrectionUser";
    EXPECT_THAT(m_camera->log.calls, ElementsAre("GetFiles", "OpenRead" + name, "GetSize" + name, "Close" + name));
}

TEST_F(DpcAdapterOstrelTest, StoresWhatTheFamilyCanStore)
{
    const auto pixel = boost::make_shared<PixelDefect>(0x10007, 0x10005); // cut to 16 bits
    m_adapter.WriteCorrectionSet(m_user, {boost::make_shared<ColumnDefect>(3), pixel});
    const auto stored = m_adapter.ReadCorrectionSet(m_user);
    ASSERT_EQ(stored.size(), 1U);
    EXPECT_TRUE(*stored.front() == PixelDefect(7, 5));
    EXPECT_THAT(m_adapter.GetAvailableDefectTypes(),
                ElementsAre(SensorDefectType::Pixel, SensorDefectType::Row, SensorDefectType::PixelRow));

    m_camera->add("ReverseX", 0);
    EXPECT_EQ(m_adapter.ConvertDefectsListToBinary({}).size(), 52U + 3 * 80 + 8 + 3 * 34);
    m_camera->features.erase("ReverseX");
    m_camera->add("ReverseY", 0);
    const auto before = m_camera->files.back()->content;
    EXPECT_THROW(m_adapter.EraseCorrectionSet(m_user), KTR::System::Exception) << "no file for mirroring in y alone";
    EXPECT_EQ(m_camera->files.back()->content, before);
}

TEST(DpcAdapterOstrel, CallsAFileOfMaximumSizeTooLarge)
{
    const auto user = boost::make_shared<CorrectionSet>("User");
    EXPECT_FALSE(DpcAdapterOstrel(makeOstrelCamera(174)).IsSpaceSufficient(user, {}));
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
    EXPECT_DEATH(
        {
            const ScopedOpenFile open(file, FileInterface::FileOpenMode::Read);
            file->Close();
        },
        "");
}

} // namespace
