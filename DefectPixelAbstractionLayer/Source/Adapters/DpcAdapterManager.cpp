// Finds the adapter for a camera by the camera's own name strings.
#include "DpcAdapterManager.h"

#include "DpcAdapterEstablishedGigE.h"
#include "DpcAdapterLoadDefects.h"
#include "DpcAdapterOstrel.h"
#include "DpcAdapterQuorsalinWithPython.h"
#include "DpcAdapterRivoU.h"
#include "DpcAdapterTamorinPro.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <optional>

namespace KTR::DPC
{
namespace
{

// Empty when the camera cannot tell, for whatever reason.
std::optional<std::string> readName(const boost::shared_ptr<CameraAbstraction>& camera, const char* feature)
{
    try
    {
        return camera->GetFeatureStringValue(feature);
    }
    catch (...)
    {
        return std::nullopt;
    }
}

std::string readFamilyName(const boost::shared_ptr<CameraAbstraction>& camera)
{
    return readName(camera, "DeviceFamilyName").value_or(std::string());
}

std::optional<std::string> readModelName(const boost::shared_ptr<CameraAbstraction>& camera)
{
    return readName(camera, "DeviceModelName");
}

} // namespace

const DpcAdapterManager::AdapterTable DpcAdapterManager::g_modelName2DpcAdapter = initializeMapping();

DpcAdapterManager::AdapterTable DpcAdapterManager::initializeMapping()
{
    return {
        {"OSTREL", ostrelCreator},
        {"Rivo U", rivoUCreator},
        {"Tamorin Pro", tamorinProCreator},
        {"Dreli G-1310", establishedGigECreator},
        {"Dreli G-1320", establishedGigECreator},
        {"Dreli G-1330", establishedGigECreator},
        {"Dreli G-301", establishedGigECreator},
        {"Dreli G-302", establishedGigECreator},
        {"Dreli G-303", establishedGigECreator},
        {"Rivo G-011", establishedGigECreator},
        {"Rivo G-012", establishedGigECreator},
        {"Rivo G-013", establishedGigECreator},
        {"Rivo G-014", establishedGigECreator},
    };
}

DpcAdapterManager::AdapterTable::const_iterator DpcAdapterManager::searchModelNameInMap(const std::string& name)
{
    auto match = g_modelName2DpcAdapter.end();
    for (auto row = g_modelName2DpcAdapter.begin(); row != g_modelName2DpcAdapter.end(); ++row)
    {
        if (name == row->first)
        {
            return row;
        }
        if (name.find(row->first) != std::string::npos)
        {
            match = row;
        }
    }
    return match;
}

bool DpcAdapterManager::IsCompatible(const boost::shared_ptr<CameraAbstraction>& camera)
{
    const auto familyName = readFamilyName(camera);
    const auto modelName = readModelName(camera);
    const auto none = g_modelName2DpcAdapter.end();
    return modelName && (searchModelNameInMap(familyName) != none || searchModelNameInMap(*modelName) != none);
}

boost::shared_ptr<DpcAdapter>
DpcAdapterManager::GetCompatibleDpcAdapter(const boost::shared_ptr<CameraAbstraction>& camera)
{
    auto row = searchModelNameInMap(readFamilyName(camera));
    if (row == g_modelName2DpcAdapter.end())
    {
        const auto modelName = readModelName(camera);
        row = modelName ? searchModelNameInMap(*modelName) : row;
    }
    return row == g_modelName2DpcAdapter.end() ? nullptr : row->second(camera);
}

boost::shared_ptr<DpcAdapter> DpcAdapterManager::ostrelCreator(const boost::shared_ptr<CameraAbstraction>& camera)
{
    return boost::make_shared<DpcAdapterOstrel>(camera);
}

boost::shared_ptr<DpcAdapter> DpcAdapterManager::rivoUCreator(const boost::shared_ptr<CameraAbstraction>& camera)
{
    return boost::make_shared<DpcAdapterRivoU>(camera);
}

boost::shared_ptr<DpcAdapter> DpcAdapterManager::tamorinProCreator(const boost::shared_ptr<CameraAbstraction>& camera)
{
    return boost::make_shared<DpcAdapterTamorinPro>(camera);
}

boost::shared_ptr<DpcAdapter>
DpcAdapterManager::establishedGigECreator(const boost::shared_ptr<CameraAbstraction>& camera)
{
    const auto features = camera->GetAvailableFeatures();
    const auto has = [&](const char* name)
    { return std::find(features.begin(), features.end(), name) != features.end(); };
    if (has("DefectMaskColumnEnable"))
    {
        return loadDefectsAdapterCreator(camera);
    }
    if (has("DefectMaskEnable"))
    {
        return boost::make_shared<DpcAdapterEstablishedGigE>(camera, std::vector{SensorDefectType::Pixel});
    }
    return nullptr;
}

boost::shared_ptr<DpcAdapter>
DpcAdapterManager::loadDefectsAdapterCreator(const boost::shared_ptr<CameraAbstraction>& camera)
{
    return boost::make_shared<DpcAdapterLoadDefects>(camera);
}

boost::shared_ptr<DpcAdapter> DpcAdapterManager::quorsalinWithPython(const boost::shared_ptr<CameraAbstraction>& camera)
{
    return boost::make_shared<DpcAdapterQuorsalinWithPython>(camera);
}

} // namespace KTR::DPC
