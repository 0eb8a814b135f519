// Which camera gets which adapter.
#include "DpcAdapterManager.h"
#include "DpcAdapterOstrel.h"
#include "OstrelCamera.h"

#include <gmock/gmock.h>

using namespace KTR::DPC;

TEST(DpcAdapterManager, MatchesFamilyThenModel)
{
    struct Case
    {
        const char *family, *model; // "-": the camera has no such feature
        bool compatible, ostrel;
    };
    std::vector<Case> cases = {
        {"OSTREL", "Rivo U", true, true},
        {"OSTREL", "-", false, true}, // an adapter, although the camera does not count as compatible
        {"-", "my OSTREL 5", true, true},
        {"-", "OSTREL or Rivo U", true, false}, // of two keys the later one
        {"-", "OSTREL, not Dreli G-301", true, true},
        {"Dreli G-301", "OSTREL", true, false}, // without a mask feature
        {"unknown", "Dreli G-30", false, false},
        {"", "", false, false},
        {"-", "-", false, false},
    };
    for (const char* name : {"Rivo U", "Tamorin Pro", "Dreli G-1310", "Dreli G-1320", "Dreli G-1330", "Dreli G-301",
                             "Dreli G-302", "Dreli G-303", "Rivo G-011", "Rivo G-012", "Rivo G-013", "Rivo G-014"})
    {
        cases.push_back({"-", name, true, false});
    }
    for (const auto& [family, model, compatible, ostrel] : cases)
    {
        const auto camera = makeOstrelCamera();
        camera->features["DeviceFamilyName"].text = family;
        camera->features["DeviceModelName"].text = model;
        for (const char* name : {"DeviceFamilyName", "DeviceModelName"})
        {
            camera->features[name].text == "-" ? camera->features.erase(name) : 0;
        }
        EXPECT_EQ(DpcAdapterManager::IsCompatible(camera), compatible) << family << " / " << model;
        const auto adapter = DpcAdapterManager::GetCompatibleDpcAdapter(camera);
        EXPECT_EQ(dynamic_cast<DpcAdapterOstrel*>(adapter.get()) != nullptr, ostrel) << family << " / " << model;
    }
}
