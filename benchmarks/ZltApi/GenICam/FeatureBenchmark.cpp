// Reading features of a real camera, beside the same reads with Aravis alone: over the real protocol on the loopback
// interface, from Aravis's own GigE Vision camera.
#include "FakeCamera.h"

#include "Aravis/Ask.h"
#include "Device/GenICamCamera.h"
#include "Discovery/DeviceSearch.h"

#include <benchmark/benchmark.h>

namespace GenICam
{

namespace
{

constexpr const char* Names[] = {"GainRaw", "Width"}; // a limited register, and one that can be locked

const FoundDevice& TheDevice()
{
    [[maybe_unused]] static const bool hasOwnNetwork = EnterOwnNetwork();
    static const FakeCamera camera;
    static const FoundDevice device = []
    {
        FoundDevice found;
        found.address = FakeAddress;
        return found;
    }();
    return device;
}

void ReadsOfAravis(benchmark::State& state)
{
    const DevicePtr device = OpenDevice(TheDevice());
    const char* const name = Names[state.range(0)];
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(Ask(arv_device_get_integer_feature_value, device.get(), name));
    }
}
BENCHMARK(ReadsOfAravis)->Arg(0)->Arg(1)->UseRealTime();

// As the layers above do it: the feature is looked up anew for each read.
void ReadsOfTheProvider(benchmark::State& state)
{
    GenICamCamera camera(TheDevice(), {}, [] {});
    if (camera.Open(ZltApi::AccessModeFull) != ZltErrorSuccess)
    {
        state.SkipWithError("The camera does not open.");
        return;
    }
    const char* const name = Names[state.range(0)];
    for (auto _ : state)
    {
        ZltApi::FeaturePtr feature;
        std::int64_t value = 0;
        if (camera.GetFeatureByName(name, feature) != ZltErrorSuccess || feature->GetValue(value) != ZltErrorSuccess)
        {
            state.SkipWithError("A read failed.");
        }
        benchmark::DoNotOptimize(value);
    }
    camera.Close();
}
BENCHMARK(ReadsOfTheProvider)->Arg(0)->Arg(1)->UseRealTime();

} // namespace

} // namespace GenICam
