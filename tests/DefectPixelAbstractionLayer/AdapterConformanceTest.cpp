// All adapters under the common contract, and broken ones that it must reject.
#include "AdapterConformance.h"
#include "DefectText.h"
#include "DpcAdapterEstablishedGigE.h"
#include "DpcAdapterLoadDefects.h"
#include "DpcAdapterOstrel.h"
#include "DpcAdapterQuorsalinWithPython.h"
#include "DpcAdapterRivoU.h"
#include "DpcAdapterTamorinPro.h"
#include "FlashCamera.h"
#include "MaskCamera.h"
#include "OstrelCamera.h"
#include "TamorinProCamera.h"

#include <gmock/gmock.h>

using namespace KTR::DPC;

namespace
{

template <typename Adapter> AdapterCase ostrelCase()
{
    return {"Ostrel", [] { return makeOstrelCamera(); },
            [](const auto& camera) { return boost::make_shared<Adapter>(camera); }, "User", defectsOf("R3 L10,3,11")};
}

AdapterCase rivoUCase()
{
    auto rivoU = ostrelCase<DpcAdapterRivoU>();
    rivoU.name = "Rivo U";
    rivoU.makeCamera = [] { return makeRivoUCamera(); };
    return rivoU;
}

template <typename Adapter, typename... Types>
AdapterCase maskCase(std::uint64_t table, const char* feature, const MemoryCamera::Names& entries,
                     const SensorDefectList& samples, bool erases, Types... types)
{
    return {feature,
            [=] { return boost::make_shared<MaskCamera>(table, feature, entries); },
            [=](const auto& camera) { return boost::make_shared<Adapter>(camera, types...); },
            boost::make_shared<Adapter>(boost::make_shared<MaskCamera>(table, feature, entries), types...)
                ->GetDefaultCorrectionSet()
                ->getName(),
            samples,
            erases};
}

AdapterCase tamorinProCase()
{
    return {"Tamorin Pro", [] { return makeTamorinProCamera(); },
            [](const auto& camera) { return boost::make_shared<DpcAdapterTamorinPro>(camera); }, "DPC_User_1",
            defectsOf("P3,7 P10,3")};
}

AdapterCase flashCase()
{
    AdapterCase flash;
    flash.name = "Flash";
    flash.makeCamera = [] { return boost::make_shared<FlashCamera>(); };
    flash.makeAdapter = [](const auto& camera)
    { return boost::make_shared<DpcAdapterQuorsalinWithPython>(camera, std::chrono::milliseconds(0)); };
    flash.writableSet = "Defect Pixel List";
    for (unsigned x = 0; x < 300; x += 2) // more than a packet
    {
        flash.samples.push_back(boost::make_shared<PixelDefect>(x, 3));
    }
    flash.erases = flash.storesNothing = false; // there is only the way back to the factory's list
    return flash;
}

struct LosesDefects final : DpcAdapterOstrel
{
    using DpcAdapterOstrel::DpcAdapterOstrel;
    void WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects) override
    {
        DpcAdapterOstrel::WriteCorrectionSet(set, {defects.begin(), defects.begin() + (defects.empty() ? 0 : 1)});
    }
};

struct HidesFailures final : DpcAdapterOstrel
{
    using DpcAdapterOstrel::DpcAdapterOstrel;
    SensorDefectList ReadCorrectionSet(const CorrectionSetPtr& set) override
    try
    {
        return DpcAdapterOstrel::ReadCorrectionSet(set);
    }
    catch (const KTR::System::Exception&)
    {
        return {};
    }
};

struct TakesAnything final : DpcAdapterOstrel
{
    using DpcAdapterOstrel::DpcAdapterOstrel;
    bool IsCorrectionSetValid(const CorrectionSetPtr&, const SensorDefectList&) override { return true; }
};

struct LeavesOpen final : DpcAdapterOstrel
{
    using DpcAdapterOstrel::DpcAdapterOstrel;
    void EraseCorrectionSet(CorrectionSetPtr& set) override
    {
        const auto file = getFileForCorrectionSet(set);
        file->Open(FileInterface::FileOpenMode::Write);
        file->Write({});
        file->Close();
    }
};

TEST(AdapterConformance, IsKeptByAllAdapters)
{
    const std::vector<SensorDefectType> types = {SensorDefectType::Pixel};
    const auto rectangleCase = [&](const MemoryCamera::Names& entries)
    { return maskCase<DpcAdapterEstablishedGigE>(0x19300, "DefectMaskEnable", entries, pixels(40), true, types); };
    for (const auto& adapterCase :
         {ostrelCase<DpcAdapterOstrel>(), rivoUCase(), tamorinProCase(), flashCase(), rectangleCase({}),
          rectangleCase({"Off", "On"}),
          maskCase<DpcAdapterLoadDefects>(0x19108, "DefectMaskColumnEnable", {}, defectsOf("V9 C7,3,2"), false)})
    {
        EXPECT_THAT(adapterViolations(adapterCase), testing::IsEmpty()) << adapterCase.name;
    }
}

TEST(AdapterConformance, RejectsBrokenAdapters)
{
    using testing::Contains;
    using testing::StartsWith;
    EXPECT_THAT(adapterViolations(ostrelCase<LosesDefects>()), Contains(StartsWith("WriteCorrectionSet: other")));
    EXPECT_THAT(adapterViolations(ostrelCase<HidesFailures>()), Contains(StartsWith("ReadCorrectionSet: hides")));
    EXPECT_THAT(adapterViolations(ostrelCase<TakesAnything>()), Contains(StartsWith("IsCorrectionSetValid: not by")));
    EXPECT_THAT(adapterViolations(ostrelCase<LeavesOpen>()), Contains("EraseCorrectionSet: leaves a file open"));
}

} // namespace
