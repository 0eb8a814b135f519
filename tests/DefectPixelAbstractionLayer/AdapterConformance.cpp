// The contract of all adapters, as checks that name what an adapter breaks.
#include "AdapterConformance.h"

#include "DefectText.h"
#include "Failure.h"

#include <algorithm>

using namespace KTR::DPC;

namespace
{

bool same(const SensorDefectList& left, const SensorDefectList& right)
{
    return std::is_permutation(left.begin(), left.end(), right.begin(), right.end(),
                               [](const auto& a, const auto& b) { return *a == *b; });
}

// One camera, its adapter and the set under test.
struct Bench
{
    Bench(const AdapterCase& adapterCase, std::vector<std::string>& found)
        : tested(adapterCase),
          samples(tested.samples),
          violations(found)
    {
        camera = tested.makeCamera();
        adapter = tested.makeAdapter(camera);
        set = boost::make_shared<CorrectionSet>(tested.writableSet);
    }

    void expect(bool kept, const std::string& violation) { kept ? void() : violations.push_back(violation); }
    SensorDefectList stored() { return adapter->ReadCorrectionSet(set); }

    const AdapterCase& tested;
    const SensorDefectList& samples;
    std::vector<std::string>& violations;
    boost::shared_ptr<MemoryCamera> camera;
    boost::shared_ptr<DpcAdapter> adapter;
    boost::shared_ptr<CorrectionSet> set;
};

void checkSensorSize(Bench& bench)
{
    const auto size = [&] { return std::pair(bench.adapter->GetSensorWidth(), bench.adapter->GetSensorHeight()); };
    const std::pair<std::uint32_t, std::uint32_t> atStart(bench.camera->GetFeatureIntegerValue("SensorWidth"),
                                                          bench.camera->GetFeatureIntegerValue("SensorHeight"));
    bench.camera->SetFeatureIntegerValue("SensorWidth", 1);
    bench.expect(size() == atStart, "GetSensorWidth: not the size of the moment the adapter was made");
}

void checkSets(Bench& bench)
{
    std::vector<std::string> names;
    for (const auto& set : bench.adapter->GetAvailableCorrectionSets())
    {
        names.push_back(set->getName());
    }
    const auto listed = [&](const std::string& name) { return std::count(names.begin(), names.end(), name) == 1; };
    bench.expect(std::all_of(names.begin(), names.end(), listed), "GetAvailableCorrectionSets: a set comes twice");
    bench.expect(listed(bench.set->getName()), "GetAvailableCorrectionSets: the set is missing");
    // By an adapter of its own, as for every task: some list what they have listed before once more.
    bench.expect(bench.tested.makeAdapter(bench.camera)->GetAvailableCorrectionSetsWithMetadata().size() ==
                     names.size(),
                 "GetAvailableCorrectionSetsWithMetadata: other sets than without metadata");
    bench.expect(listed(bench.adapter->GetDefaultCorrectionSet()->getName()), "GetDefaultCorrectionSet: unknown set");
    if (FailureOf([&] { bench.adapter->SetDefaultCorrectionSet(bench.set); }).empty())
    {
        bench.expect(*bench.adapter->GetDefaultCorrectionSet() == *bench.set, "SetDefaultCorrectionSet: no effect");
    }
    bench.expect(bench.adapter->IsCorrectionSetAvailable(bench.set), "IsCorrectionSetAvailable: the set is offered");
    for (const bool enabled : {true, false})
    {
        bench.adapter->SetCorrectionSetEnabled(bench.set, enabled);
        bench.expect(bench.adapter->IsCorrectionSetEnabled(bench.set) == enabled, "SetCorrectionSetEnabled: no effect");
    }
}

void checkKinds(Bench& bench)
{
    const auto types = bench.adapter->GetAvailableDefectTypes();
    for (const auto& defect : defectsOf("R1 V1 P1,1 L1,1,2 K1,1,1 C1,1,2"))
    {
        const bool storable = std::count(types.begin(), types.end(), defect->GetSensorDefectType()) == 1;
        bench.expect(bench.adapter->IsCorrectionSetValid(bench.set, {bench.samples.front(), defect}) == storable,
                     "IsCorrectionSetValid: not by the kinds of GetAvailableDefectTypes");
    }
    bench.expect(bench.adapter->IsCorrectionSetValid(bench.set, {}) == bench.tested.storesNothing,
                 "IsCorrectionSetValid: an empty list is valid where it can be stored");
}

void checkErasing(Bench& bench)
{
    bench.adapter->WriteCorrectionSet(bench.set, bench.samples);
    bench.adapter->EraseCorrectionSet(bench.set);
    bench.expect(bench.set && bench.stored().empty(), "EraseCorrectionSet: defects are left");
}

void checkStore(Bench& bench)
{
    auto& adapter = *bench.adapter;
    bench.expect(adapter.IsCorrectionSetReadable(bench.set), "IsCorrectionSetReadable: the set can be read");
    bench.expect(adapter.IsCorrectionSetWritable(bench.set), "IsCorrectionSetWritable: the set can be written");
    bench.expect(adapter.IsSpaceSufficient(bench.set, bench.samples), "IsSpaceSufficient: a few defects fit");
    for (const auto& list : {bench.samples, SensorDefectList{bench.samples.back()}, SensorDefectList{}})
    {
        if (list.empty() && !bench.tested.storesNothing)
        {
            bench.expect(!FailureOf([&] { adapter.WriteCorrectionSet(bench.set, list); }).empty(),
                         "WriteCorrectionSet: takes an empty list");
            continue;
        }
        adapter.WriteCorrectionSet(bench.set, list);
        bench.expect(same(bench.stored(), list), "WriteCorrectionSet: other defects are read back");
    }
    adapter.WriteCorrectionSet(bench.set, bench.samples);
    adapter.IsCorrectionSetReadable(bench.set);
    adapter.IsCorrectionSetAvailable(bench.set);
    const bool restorable = adapter.IsRestoreFactorySettingsAvailable(bench.set);
    bench.expect(same(bench.stored(), bench.samples),
                 "IsRestoreFactorySettingsAvailable: a question changed the store");
    bench.expect(FailureOf([&] { adapter.RestoreFactorySettings(bench.set); }).empty() == restorable,
                 "RestoreFactorySettings: not as IsRestoreFactorySettingsAvailable said");
}

// Lets each call of the transfer fail in turn; the next transfer must find nothing of it.
void checkFailures(const AdapterCase& adapterCase, std::vector<std::string>& violations, const std::string& name,
                   void (*transfer)(Bench&))
{
    for (std::size_t step = 0;; ++step)
    {
        Bench bench(adapterCase, violations);
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

} // namespace

std::vector<std::string> adapterViolations(const AdapterCase& adapterCase)
{
    std::vector<std::string> violations;
    const auto text = FailureOf(
        [&]
        {
            for (const auto check : {checkSensorSize, checkSets, checkKinds, checkStore})
            {
                Bench bench(adapterCase, violations);
                check(bench);
            }
            checkFailures(adapterCase, violations, "ReadCorrectionSet", [](Bench& bench) { bench.stored(); });
            checkFailures(adapterCase, violations, "WriteCorrectionSet",
                          [](Bench& bench) { bench.adapter->WriteCorrectionSet(bench.set, {bench.samples.front()}); });
            Bench restored(adapterCase, violations);
            if (restored.adapter->IsRestoreFactorySettingsAvailable(restored.set))
            {
                checkFailures(adapterCase, violations, "RestoreFactorySettings",
                              [](Bench& bench) { bench.adapter->RestoreFactorySettings(bench.set); });
            }
            if (adapterCase.erases)
            {
                Bench bench(adapterCase, violations);
                checkErasing(bench);
                checkFailures(adapterCase, violations, "EraseCorrectionSet",
                              [](Bench& erased) { erased.adapter->EraseCorrectionSet(erased.set); });
            }
        });
    text.empty() ? void() : violations.push_back("Unexpected exception: " + text);
    return violations;
}
