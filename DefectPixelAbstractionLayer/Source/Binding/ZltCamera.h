// A camera of the camera API, as the adapters see it.
#pragma once

#include "CameraAbstraction.h"
#include "ZltApi/Types.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace KTR::DPC
{

// Turns result codes into exceptions and has no state of its own; cheap to make. Failures of the camera API are a
// KTR::FeatureHelper::Exception with the API's code.
class ZltCamera : public CameraAbstraction
{
public:
    // The camera must not be empty.
    explicit ZltCamera(const std::shared_ptr<ZltApi::Camera>& camera);

    bool IsOpen() override;
    std::vector<std::string> GetAvailableFeatures() override;
    FeatureType GetFeatureType(const std::string& name) override;

    void SetFeatureBooleanValue(const std::string& name, bool value) override;
    bool GetFeatureBooleanValue(const std::string& name) override;

    void SetFeatureIntegerValue(const std::string& name, std::int64_t value) override;
    std::int64_t GetFeatureIntegerValue(const std::string& name) override;
    std::int64_t GetFeatureIntegerMin(const std::string& name) override;
    std::int64_t GetFeatureIntegerMax(const std::string& name) override;
    std::int64_t GetFeatureIntegerIncrement(const std::string& name) override;

    void SetFeatureDoubleValue(const std::string& name, double value) override;
    double GetFeatureDoubleValue(const std::string& name) override;
    double GetFeatureDoubleMin(const std::string& name) override;
    double GetFeatureDoubleMax(const std::string& name) override;
    double GetFeatureDoubleIncrement(const std::string& name) override;

    std::string GetFeatureStringValue(const std::string& name) override;
    void SetFeatureStringValue(const std::string& name, const std::string& value) override;

    // The entry is written by its number.
    void SetFeatureEnumValue(const std::string& name, const std::string& entry) override;
    std::string GetFeatureEnumValue(const std::string& name) override;
    std::vector<std::string> GetFeatureEnumValues(const std::string& name) override;
    bool IsEnumEntryAvailable(const std::string& name, const std::string& entry) override;

    void RunFeatureCommand(const std::string& name) override;

    bool IsFeatureReadable(const std::string& name) override;
    bool IsFeatureWritable(const std::string& name) override;

    std::uint32_t ReadRegisterZoltaLegacy(const std::uint64_t& address) override;
    void WriteRegisterZoltaLegacy(const std::uint64_t& address, std::uint32_t value) override;
    void ReadMemory(const std::uint64_t& address, std::vector<std::uint8_t>& data) override;
    void WriteMemory(const std::uint64_t& address, const std::vector<std::uint8_t>& data) override;

    bool IsFileAccessSupported() override;
    // Opens and closes each file to learn its largest size.
    std::vector<boost::shared_ptr<FileInterface>> GetFiles() override;
    // A name that the camera does not have ends the process.
    boost::shared_ptr<FileInterface> GetFile(const std::string& name) override;

private:
    std::shared_ptr<ZltApi::Camera> m_camera;
};

} // namespace KTR::DPC
