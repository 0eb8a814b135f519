// What the adapters of all families take from their camera, and do alike with it.
#pragma once

#include "CameraAbstraction.h"
#include "DpcAdapter.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <vector>

namespace KTR::DPC
{

class CameraAdapter : public DpcAdapter
{
public:
    std::uint32_t GetSensorWidth() final { return m_sensorWidth; }
    std::uint32_t GetSensorHeight() final { return m_sensorHeight; }
    std::vector<SensorDefectType> GetAvailableDefectTypes() override { return m_supportedDefectTypes; }
    // By the kinds alone.
    bool IsCorrectionSetValid(const CorrectionSetPtr& set, const SensorDefectList& defects) override;

protected:
    // Reads the sensor size from the camera.
    CameraAdapter(const boost::shared_ptr<CameraAbstraction>& camera,
                  std::vector<SensorDefectType> supportedDefectTypes);
    ~CameraAdapter() = default;

    const boost::shared_ptr<CameraAbstraction>& camera() const { return m_camera; }

private:
    boost::shared_ptr<CameraAbstraction> m_camera;
    std::uint32_t m_sensorWidth;
    std::uint32_t m_sensorHeight;
    std::vector<SensorDefectType> m_supportedDefectTypes;
};

} // namespace KTR::DPC
