// What the adapters of all families take from their camera, and do alike with it.
#include "CameraAdapter.h"

#include <algorithm>
#include <utility>

namespace KTR::DPC
{

CameraAdapter::CameraAdapter(const boost::shared_ptr<CameraAbstraction>& camera,
                             std::vector<SensorDefectType> supportedDefectTypes)
    : m_camera(camera),
      m_sensorWidth(static_cast<std::uint32_t>(camera->GetFeatureIntegerValue("SensorWidth"))),
      m_sensorHeight(static_cast<std::uint32_t>(camera->GetFeatureIntegerValue("SensorHeight"))),
      m_supportedDefectTypes(std::move(supportedDefectTypes))
{
}

bool CameraAdapter::IsCorrectionSetValid(const CorrectionSetPtr& /*set*/, const SensorDefectList& defects)
{
    return std::all_of(defects.begin(), defects.end(),
                       [&](const auto& defect)
                       {
                           const auto& types = m_supportedDefectTypes;
                           return std::find(types.begin(), types.end(), defect->GetSensorDefectType()) != types.end();
                       });
}

} // namespace KTR::DPC
