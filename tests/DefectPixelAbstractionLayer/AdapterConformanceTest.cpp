// All adapters under the common contract, and broken ones that it must reject.
#include "AdapterConformance.h"
#include "DpcAdapterOstrel.h"
#include "DpcAdapterTamorinPro.h"
#include "OstrelCamera.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"
#include "TamorinProCamera.h"

#include <gmock/gmock.h>

using namespace KTR::DPC;

namespace
{

template <typename Adapter> AdapterCase ostrelCase()
{
    return {"Ostrel",
            [] { return makeOstrelCamera(); },
            [](const auto& camera) { return boost::make_shared<Adapter>(camera); },
            "User",
            {boost::make_shared<RowDefect>(3), boost::make_shared<PixelRowDefect>(10, 3, 11)}};
}

AdapterCase tamorinProCase()
{
    return {"Tamorin Pro",
            [] { return makeTamorinProCamera(); },
            [](const auto& camera) { return boost::make_shared<DpcAdapterTamorinPro>(camera); },
            "DPC_User_1",
            {boost::make_shared<PixelDefect>(3, 7), boost::make_shared<PixelDefect>(10, 3)}};
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
    for (const auto& adapterCase : {ostrelCase<DpcAdapterOstrel>(), tamorinProCase()})
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
