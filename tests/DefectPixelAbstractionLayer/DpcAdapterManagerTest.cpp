// Which camera gets which adapter.
#include "DpcAdapterManager.h"
#include "DpcAdapterOstrel.h"
#include "OstrelCamera.h"

#include <gmock/gmock.h>

using namespace KTR::DPC;

TEST(DpcAdapterManager, MatchesFamilyThenModel)
{
    const char* const none = nullptr;
    const struct
    {
        const char *family, *model; // null: the camera has no such feature
        bool compatible, ostrel;
    } cases[] = {
        {"OSTREL", "anything", true, true},
        {"OSTREL", none, false, true}, // an adapter, although the camera does not count as compatible
        {"my OSTREL 5", "Dreli G-301", true, true},
        {none, "OSTREL", true, true},
        {"unknown", "an OSTREL camera", true, true},
        {none, "XRivo G-012Y", true, false},
        {none, "OSTREL or Rivo U", true, false}, // of two keys the later one
        {none, "Dreli G-301 OSTREL", true, true},
        {"Dreli G-301", "OSTREL", true, false}, // without a mask feature
        {none, "Dreli G-30", false, false},
        {none, "ostrel", false, false},
        {"", "", false, false},
        {none, none, false, false},
    };
    for (const auto& [family, model, compatible, ostrel] : cases)
    {
        const auto camera = makeOstrelCamera();
        camera->features.erase("DeviceFamilyName");
        family ? camera->add("DeviceFamilyName", std::string(family)) : void();
        model ? camera->add("DeviceModelName", std::string(model)) : void();
        const auto names = (family ? family : "-") + std::string(" / ") + (model ? model : "-");
        EXPECT_EQ(DpcAdapterManager::IsCompatible(camera), compatible) << names;
        const auto adapter = DpcAdapterManager::GetCompatibleDpcAdapter(camera);
        EXPECT_EQ(dynamic_cast<DpcAdapterOstrel*>(adapter.get()) != nullptr, ostrel) << names;
    }
    const auto camera = makeOstrelCamera();
    DpcAdapterManager::GetCompatibleDpcAdapter(camera);
    EXPECT_THAT(camera->log.calls, testing::ElementsAre("Get DeviceFamilyName", "Get SensorWidth", "Get SensorHeight"));
}

TEST(DpcAdapterManager, KnowsEveryFamily)
{
    for (const char* name :
         {"OSTREL", "Rivo U", "Tamorin Pro", "Dreli G-1310", "Dreli G-1320", "Dreli G-1330", "Dreli G-301",
          "Dreli G-302", "Dreli G-303", "Rivo G-011", "Rivo G-012", "Rivo G-013", "Rivo G-014"})
    {
        MemoryCamera camera;
        camera.add("DeviceModelName", std::string(name));
        EXPECT_TRUE(DpcAdapterManager::IsCompatible(boost::make_shared<MemoryCamera>(camera))) << name;
    }
}
