// What the adapters of the families with a single correction set have in common.
#pragma once

#include "CameraAdapter.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <string>
#include <utility>
#include <vector>

namespace KTR::DPC
{

// The set can always be read and written.
class OneSetAdapter : public CameraAdapter
{
public:
    std::vector<CorrectionSetPtr> GetAvailableCorrectionSets() override { return {m_set}; }
    CorrectionSetPtr GetDefaultCorrectionSet() override { return m_set; }
    // Does nothing: there is one set.
    void SetDefaultCorrectionSet(const CorrectionSetPtr& /*set*/) override {}
    bool IsCorrectionSetReadable(const CorrectionSetPtr& /*set*/) override { return true; }
    bool IsCorrectionSetWritable(const CorrectionSetPtr& /*set*/) override { return true; }
    bool IsCorrectionSetAvailable(const CorrectionSetPtr& set) override { return IsCorrectionSetWritable(set); }

protected:
    // Reads the sensor size from the camera.
    OneSetAdapter(const boost::shared_ptr<CameraAbstraction>& camera, const std::string& setName,
                  std::vector<SensorDefectType> supportedDefectTypes)
        : CameraAdapter(camera, std::move(supportedDefectTypes)),
          m_set(boost::make_shared<CorrectionSet>(setName))
    {
    }
    ~OneSetAdapter() = default;

private:
    CorrectionSetPtr m_set;
};

} // namespace KTR::DPC
