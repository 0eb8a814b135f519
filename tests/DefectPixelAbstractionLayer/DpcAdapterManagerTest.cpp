// Which camera gets which adapter.
#include "DpcAdapterManager.h"
#include "FileCameras.h"

#include <boost/core/demangle.hpp>
#include <gtest/gtest.h>

using namespace KTR::DPC;

TEST(DpcAdapterManager, MatchesFamilyThenModelThenMaskFeature)
{
    struct Case
    {
        std::string family, model; // "-": the camera has no such feature
        bool compatible;
        std::string adapter;
        const char* mask = nullptr; // a feature of the older cameras
    };
    std::vector<Case> cases = {
        {"OSTREL", "Rivo U", true, "Ostrel"},
        {"OSTREL", "-", false, "Ostrel"}, // an adapter, although the camera does not count as compatible
        {"-", "my OSTREL 5", true, "Ostrel"},
        {"-", "OSTREL or Rivo U", true, "RivoU"}, // of two keys the later one
        {"-", "OSTREL, not Dreli G-301", true, "Ostrel"},
        {"-", "Rivo U", true, "RivoU"},
        {"-", "Tamorin Pro", true, "TamorinPro"},
        {"Dreli G-301", "OSTREL", true, ""},
        {"unknown", "Dreli G-30", false, ""},
        {"", "", false, ""},
        {"-", "-", false, ""},
    };
    for (const char* name : {"Dreli G-1310", "Dreli G-1320", "Dreli G-1330", "Dreli G-301", "Dreli G-302",
                             "Dreli G-303", "Rivo G-011", "Rivo G-012", "Rivo G-013", "Rivo G-014"})
    {
        cases.push_back({"-", name, true, ""});
        cases.push_back({"-", name, true, "EstablishedGigE", "DefectMaskEnable"});
        cases.push_back({"-", name, true, "LoadDefects", "DefectMaskColumnEnable"});
    }
    for (const auto& [family, model, compatible, expected, mask] : cases)
    {
        const auto camera = makeOstrelCamera();
        camera->features["DPCDatasetAuto"].entries = {"Off"};
        for (const auto& [name, value] : {std::pair("DeviceFamilyName", family), {"DeviceModelName", model}})
        {
            camera->features[name].text = value;
            value == "-" ? camera->features.erase(name) : 0;
        }
        mask ? void(camera->features["DefectMaskEnable"]), void(camera->features[mask]) : void();
        EXPECT_EQ(DpcAdapterManager::IsCompatible(camera), compatible) << family << " / " << model;
        const auto adapter = DpcAdapterManager::GetCompatibleDpcAdapter(camera);
        const DpcAdapter* const found = adapter.get();
        EXPECT_EQ(found ? boost::core::demangle(typeid(*found).name()) : "",
                  expected.empty() ? "" : "KTR::DPC::DpcAdapter" + expected)
            << family << " / " << model;
    }
}
