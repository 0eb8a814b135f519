// What every camera family can do with its correction sets, whatever form it keeps them in.
#pragma once

#include "CorrectionSet.h"
#include "SensorDefect.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <vector>

namespace KTR::DPC
{

// Made for one or a few calls and dropped; it must not outlive its camera. All failures are a KTR::System::Exception.
// Runs on the caller's thread without locks: the camera's selectors are shared state, so calls must not overlap. There
// is no virtual destructor: adapters are held by a boost::shared_ptr made from the concrete type.
class DpcAdapter
{
public:
    using CorrectionSetPtr = boost::shared_ptr<CorrectionSet>;

    // Sensor size in pixels, as the camera gave it when the adapter was made.
    virtual std::uint32_t GetSensorWidth() = 0;
    virtual std::uint32_t GetSensorHeight() = 0;

    virtual std::vector<CorrectionSetPtr> GetAvailableCorrectionSets() = 0;
    // The same sets; families that store metadata fill it in.
    virtual std::vector<CorrectionSetPtr> GetAvailableCorrectionSetsWithMetadata();

    // The set that the camera applies after start-up. Setting it throws where the family has no such thing.
    virtual CorrectionSetPtr GetDefaultCorrectionSet() = 0;
    virtual void SetDefaultCorrectionSet(const CorrectionSetPtr& set) = 0;

    // Whether the set is the one that is applied now.
    virtual bool IsCorrectionSetEnabled(const CorrectionSetPtr& set) = 0;
    // Switches the correction with this set on or off.
    virtual void SetCorrectionSetEnabled(const CorrectionSetPtr& set, const bool& enabled) = 0;

    // The kinds that this family can store.
    virtual std::vector<SensorDefectType> GetAvailableDefectTypes() = 0;

    // Whether ReadCorrectionSet may be called.
    virtual bool IsCorrectionSetReadable(const CorrectionSetPtr& set) = 0;
    // An empty store gives an empty list.
    virtual SensorDefectList ReadCorrectionSet(const CorrectionSetPtr& set) = 0;

    // Whether WriteCorrectionSet may be called.
    virtual bool IsCorrectionSetWritable(const CorrectionSetPtr& set) = 0;
    // Whether the camera offers this set now.
    virtual bool IsCorrectionSetAvailable(const CorrectionSetPtr& set) = 0;
    // Replaces the stored defects; an empty list empties the store.
    virtual void WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects) = 0;
    // Whether the encoded list fits.
    virtual bool IsSpaceSufficient(const CorrectionSetPtr& set, const SensorDefectList& defects) = 0;
    // Whether every defect's kind is one of GetAvailableDefectTypes.
    virtual bool IsCorrectionSetValid(const CorrectionSetPtr& set, const SensorDefectList& defects) = 0;

    // Brings back the factory state, or throws.
    virtual void RestoreFactorySettings(const CorrectionSetPtr& set) = 0;
    virtual bool IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& set) = 0;

    virtual void EraseCorrectionSet(CorrectionSetPtr& set) = 0;

protected:
    DpcAdapter() = default;
    ~DpcAdapter() = default;
};

} // namespace KTR::DPC
