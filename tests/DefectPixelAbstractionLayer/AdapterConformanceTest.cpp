// The contract of all adapters, as checks that name what an adapter breaks; all adapters, and a broken one, under it.
#include "DefectText.h"
#include "DpcAdapterEstablishedGigE.h"
#include "DpcAdapterLoadDefects.h"
#include "DpcAdapterOstrel.h"
#include "DpcAdapterQuorsalinWithPython.h"
#include "DpcAdapterRivoU.h"
#include "DpcAdapterTamorinPro.h"
#include "Failure.h"
#include "FileCameras.h"
#include "FlashCamera.h"
#include "MaskCamera.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

using namespace KTR::DPC;

namespace
{

struct AdapterCase
{
    // A camera with one stored set, both made anew for each check.
    std::function<boost::shared_ptr<MemoryCamera>()> makeCamera;
    std::function<boost::shared_ptr<KTR::DPC::DpcAdapter>(const boost::shared_ptr<MemoryCamera>&)> makeAdapter;
    std::string writableSet;
    KTR::DPC::SensorDefectList samples; // every kind that the family stores, at least two defects
    bool erases = true;                 // some can only be emptied by an empty list
    bool storesNothing = true;          // some take no empty list
};

bool same(const SensorDefectList& left, const SensorDefectList& right)
{
    return std::is_permutation(left.begin(), left.end(), right.begin(), right.end(),
                               [](const auto& a, const auto& b) { return *a == *b; });
}

// One camera, its adapter and the set under test; each violation begins with the operation's name.
struct Bench
{
    void expect(bool kept, const std::string& violation) { kept ? void() : violations.push_back(violation); }
    SensorDefectList stored() { return adapter->ReadCorrectionSet(set); }

    void checkSensorSize()
    {
        const auto size = [&] { return std::pair(adapter->GetSensorWidth(), adapter->GetSensorHeight()); };
        const auto atStart = size();
        camera->SetFeatureIntegerValue("SensorWidth", 1);
        expect(size() == atStart && atStart == std::pair(640U, 480U), "GetSensorWidth: not as at the adapter's start");
    }
    void checkSets()
    {
        std::vector<std::string> names;
        for (const auto& found : adapter->GetAvailableCorrectionSets())
        {
            names.push_back(found->getName());
        }
        const auto listed = [&](const std::string& name) { return std::count(names.begin(), names.end(), name) == 1; };
        expect(std::all_of(names.begin(), names.end(), listed), "GetAvailableCorrectionSets: a set comes twice");
        expect(listed(set->getName()), "GetAvailableCorrectionSets: the set is missing");
        // By an adapter of its own, as for every task: some list what they have listed before once more.
        expect(tested.makeAdapter(camera)->GetAvailableCorrectionSetsWithMetadata().size() == names.size(),
               "GetAvailableCorrectionSetsWithMetadata: other sets than without metadata");
        expect(listed(adapter->GetDefaultCorrectionSet()->getName()), "GetDefaultCorrectionSet: unknown set");
        if (FailureOf([&] { adapter->SetDefaultCorrectionSet(set); }).empty())
        {
            expect(*adapter->GetDefaultCorrectionSet() == *set, "SetDefaultCorrectionSet: no effect");
        }
        expect(adapter->IsCorrectionSetAvailable(set), "IsCorrectionSetAvailable: the set is offered");
        for (const bool enabled : {true, false})
        {
            adapter->SetCorrectionSetEnabled(set, enabled);
            expect(adapter->IsCorrectionSetEnabled(set) == enabled, "SetCorrectionSetEnabled: no effect");
        }
    }
    void checkKinds()
    {
        const auto types = adapter->GetAvailableDefectTypes();
        for (const auto& defect : defectsOf("R1 V1 P1,1 L1,1,2 K1,1,1 C1,1,2"))
        {
            const bool storable = std::count(types.begin(), types.end(), defect->GetSensorDefectType()) == 1;
            expect(adapter->IsCorrectionSetValid(set, {samples.front(), defect}) == storable,
                   "IsCorrectionSetValid: not by the kinds of GetAvailableDefectTypes");
        }
        expect(adapter->IsCorrectionSetValid(set, {}) == tested.storesNothing,
               "IsCorrectionSetValid: an empty list is valid where it can be stored");
    }
    void checkStore()
    {
        expect(adapter->IsCorrectionSetReadable(set), "IsCorrectionSetReadable: the set can be read");
        expect(adapter->IsCorrectionSetWritable(set), "IsCorrectionSetWritable: the set can be written");
        expect(adapter->IsSpaceSufficient(set, samples), "IsSpaceSufficient: a few defects fit");
        for (const auto& list : {SensorDefectList{}, SensorDefectList{samples.back()}, samples})
        {
            const bool written = FailureOf([&] { adapter->WriteCorrectionSet(set, list); }).empty();
            expect(written != (list.empty() && !tested.storesNothing), "WriteCorrectionSet: not by the kind of list");
            expect(!written || same(stored(), list), "WriteCorrectionSet: other defects are read back");
        }
        adapter->IsCorrectionSetReadable(set);
        adapter->IsCorrectionSetAvailable(set);
        const bool restorable = adapter->IsRestoreFactorySettingsAvailable(set);
        expect(same(stored(), samples), "IsRestoreFactorySettingsAvailable: a question changed the store");
        expect(FailureOf([&] { adapter->RestoreFactorySettings(set); }).empty() == restorable,
               "RestoreFactorySettings: not as IsRestoreFactorySettingsAvailable said");
    }
    void checkErasing()
    {
        adapter->WriteCorrectionSet(set, samples);
        adapter->EraseCorrectionSet(set);
        expect(set && stored().empty(), "EraseCorrectionSet: defects are left");
    }

    const AdapterCase& tested;
    std::vector<std::string>& violations;
    const SensorDefectList& samples = tested.samples;
    boost::shared_ptr<MemoryCamera> camera = tested.makeCamera();
    boost::shared_ptr<DpcAdapter> adapter = tested.makeAdapter(camera);
    boost::shared_ptr<CorrectionSet> set = boost::make_shared<CorrectionSet>(tested.writableSet);
};

// Lets each call of the transfer fail in turn; the next transfer must find nothing of it.
void checkFailures(const AdapterCase& tested, std::vector<std::string>& violations, const std::string& name,
                   void (*transfer)(Bench&))
{
    for (std::size_t step = 0;; ++step)
    {
        Bench bench{tested, violations};
        bench.adapter->WriteCorrectionSet(bench.set, bench.samples);
        bench.camera->log = {{}, {}, step};
        const bool hidden = FailureOf([&] { transfer(bench); }).empty();
        const auto calls = std::exchange(bench.camera->log, CallLog()).calls;
        if (calls.size() <= step)
        {
            return;
        }
        bench.expect(!hidden, name + ": hides the failure of " + calls[step]);
        const auto& files = bench.camera->files;
        bench.expect(std::none_of(files.begin(), files.end(), [](auto& file) { return file->IsOpen(); }),
                     name + ": leaves a file open");
        bench.adapter->WriteCorrectionSet(bench.set, bench.samples);
        bench.expect(same(bench.stored(), bench.samples), name + ": does not recover");
    }
}

// Empty for an adapter that keeps the contract.
std::vector<std::string> adapterViolations(const AdapterCase& tested)
{
    std::vector<std::string> violations;
    const auto text = FailureOf(
        [&]
        {
            for (const auto check :
                 {&Bench::checkSensorSize, &Bench::checkSets, &Bench::checkKinds, &Bench::checkStore})
            {
                (Bench{tested, violations}.*check)();
            }
            checkFailures(tested, violations, "ReadCorrectionSet", [](Bench& bench) { bench.stored(); });
            checkFailures(tested, violations, "WriteCorrectionSet",
                          [](Bench& bench) { bench.adapter->WriteCorrectionSet(bench.set, {bench.samples.front()}); });
            Bench restored{tested, violations};
            if (restored.adapter->IsRestoreFactorySettingsAvailable(restored.set))
            {
                checkFailures(tested, violations, "RestoreFactorySettings",
                              [](Bench& bench) { bench.adapter->RestoreFactorySettings(bench.set); });
            }
            if (tested.erases)
            {
                Bench{tested, violations}.checkErasing();
                checkFailures(tested, violations, "EraseCorrectionSet",
                              [](Bench& bench) { bench.adapter->EraseCorrectionSet(bench.set); });
            }
        });
    text.empty() ? void() : violations.push_back("Unexpected exception: " + text);
    return violations;
}

template <typename Adapter, typename... Arguments>
AdapterCase caseOf(const char* set, const decltype(AdapterCase::makeCamera)& makeCamera,
                   const SensorDefectList& samples, bool erases = true, bool storesNothing = true,
                   Arguments... arguments)
{
    return {makeCamera, [=](const auto& camera) { return boost::make_shared<Adapter>(camera, arguments...); },
            set,        samples,
            erases,     storesNothing};
}

// Loses defects, hides failures, takes anything and leaves files open.
struct Broken final : DpcAdapterOstrel
{
    using DpcAdapterOstrel::DpcAdapterOstrel;
    void WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects) override
    {
        DpcAdapterOstrel::WriteCorrectionSet(set, {defects.begin(), defects.begin() + (defects.empty() ? 0 : 1)});
    }
    SensorDefectList ReadCorrectionSet(const CorrectionSetPtr& set) override
    try
    {
        return DpcAdapterOstrel::ReadCorrectionSet(set);
    }
    catch (const KTR::System::Exception&)
    {
        return {};
    }
    bool IsCorrectionSetValid(const CorrectionSetPtr&, const SensorDefectList&) override { return true; }
    void EraseCorrectionSet(CorrectionSetPtr& set) override
    {
        const auto file = getFileForCorrectionSet(set);
        file->Open(FileInterface::FileOpenMode::Write);
        file->Write({});
        file->Close();
    }
};

TEST(AdapterConformance, IsKeptByAllAdaptersAndNotByABrokenOne)
{
    const auto ostrel = [] { return makeOstrelCamera(); };
    const auto masks = [](std::uint64_t table, const char* feature, const MemoryCamera::Names& entries)
    { return [=] { return boost::make_shared<MaskCamera>(table, feature, entries); }; };
    const auto lines = defectsOf("R3 L10,3,11");
    const std::vector<SensorDefectType> types = {SensorDefectType::Pixel};
    int number = 0;
    for (const auto& adapterCase :
         {caseOf<DpcAdapterOstrel>("User", ostrel, lines),
          caseOf<DpcAdapterRivoU>(
              "User", [] { return makeRivoUCamera(); }, lines),
          caseOf<DpcAdapterTamorinPro>(
              "DPC_User_1", [] { return makeTamorinProCamera(); }, defectsOf("P3,7 P10,3")),
          // More than a packet; and there is only the way back to the factory's list.
          caseOf<DpcAdapterQuorsalinWithPython>(
              "Defect Pixel List", [] { return boost::make_shared<FlashCamera>(); }, pixels(150, 2), false, false,
              std::chrono::milliseconds(0)),
          caseOf<DpcAdapterEstablishedGigE>("DefectMaskingTable", masks(0x19300, "DefectMaskEnable", {}), pixels(40),
                                            true, true, types),
          caseOf<DpcAdapterEstablishedGigE>("DefectMaskingTable", masks(0x19300, "DefectMaskEnable", {"Off", "On"}),
                                            pixels(40), true, true, types),
          caseOf<DpcAdapterLoadDefects>("ColumnMaskingTable", masks(0x19108, "DefectMaskColumnEnable", {}),
                                        defectsOf("V9 C7,3,2"), false)})
    {
        EXPECT_THAT(adapterViolations(adapterCase), testing::IsEmpty()) << "case " << ++number;
    }
    const auto violations = adapterViolations(caseOf<Broken>("User", ostrel, lines));
    for (const char* rule : {"WriteCorrectionSet: other", "ReadCorrectionSet: hides", "IsCorrectionSetValid: not by",
                             "EraseCorrectionSet: leaves a file open"})
    {
        EXPECT_THAT(violations, testing::Contains(testing::StartsWith(rule)));
    }
}

} // namespace
