// All adapters under the common contract, and broken ones that it must reject.
#include "AdapterConformance.h"
#include "OstrelCamera.h"

#include "DpcAdapterOstrel.h"
#include "Exception.h"
#include "PixelDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <gmock/gmock.h>

using namespace KTR::DPC;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

template <typename Adapter> AdapterCase ostrelCase(const std::string& name)
{
    return {name,
            [] { return makeOstrelCamera(); },
            [](const auto& camera) { return boost::make_shared<Adapter>(camera); },
            "User",
            {boost::make_shared<PixelDefect>(639, 479), boost::make_shared<RowDefect>(3),
             boost::make_shared<PixelRowDefect>(10, 3, 11)}};
}

struct LosesLastDefect final : DpcAdapterOstrel
{
    using DpcAdapterOstrel::DpcAdapterOstrel;
    void WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects) override
    {
        const bool any = !defects.empty();
        DpcAdapterOstrel::WriteCorrectionSet(set, {defects.begin(), defects.end() - (any ? 1 : 0)});
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

struct ForgetsToClose final : DpcAdapterOstrel
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

class AdapterConformance : public testing::TestWithParam<AdapterCase>
{
};

TEST_P(AdapterConformance, KeepsTheContract)
{
    EXPECT_THAT(adapterViolations(GetParam()), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Adapters, AdapterConformance, testing::Values(ostrelCase<DpcAdapterOstrel>("Ostrel")),
                         [](const auto& adapterCase) { return adapterCase.param.name; });

TEST(AdapterConformanceSuite, RejectsBrokenAdapters)
{
    EXPECT_THAT(adapterViolations(ostrelCase<LosesLastDefect>("")), Contains(HasSubstr("WriteCorrectionSet: other")));
    EXPECT_THAT(adapterViolations(ostrelCase<HidesFailures>("")), Contains(HasSubstr("ReadCorrectionSet: hides")));
    EXPECT_THAT(adapterViolations(ostrelCase<TakesAnything>("")), Contains(HasSubstr("IsCorrectionSetValid: not by")));
    EXPECT_THAT(adapterViolations(ostrelCase<ForgetsToClose>("")), Contains("EraseCorrectionSet: leaves a file open"));
}

} // namespace
