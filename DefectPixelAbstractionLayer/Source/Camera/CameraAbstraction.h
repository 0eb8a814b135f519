// A camera as the adapters see it: features, registers, memory and files.
#pragma once

#include "FileInterface.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace KTR::DPC
{

// Data type of a feature, numbered as in the camera API.
enum class FeatureType
{
    Unknown = 0,
    Integer = 1,
    Float = 2,
    Enumeration = 3,
    String = 4,
    Boolean = 5,
    Command = 6,
    Raw = 7,
    None = 8
};

// Every operation but IsOpen and GetAvailableFeatures reports failure by throwing a KTR::System::Exception. There is no
// virtual destructor: cameras are held by a boost::shared_ptr made from the concrete type. The camera's selectors are
// shared state, so calls must not overlap.
class CameraAbstraction
{
public:
    virtual bool IsOpen() = 0;
    // In the camera's order; empty when the list cannot be fetched.
    virtual std::vector<std::string> GetAvailableFeatures() = 0;
    virtual FeatureType GetFeatureType(const std::string& name) = 0;

    virtual void SetFeatureBooleanValue(const std::string& name, bool value) = 0;
    virtual bool GetFeatureBooleanValue(const std::string& name) = 0;

    virtual void SetFeatureIntegerValue(const std::string& name, std::int64_t value) = 0;
    virtual std::int64_t GetFeatureIntegerValue(const std::string& name) = 0;
    virtual std::int64_t GetFeatureIntegerMin(const std::string& name) = 0;
    virtual std::int64_t GetFeatureIntegerMax(const std::string& name) = 0;
    virtual std::int64_t GetFeatureIntegerIncrement(const std::string& name) = 0;

    virtual void SetFeatureDoubleValue(const std::string& name, double value) = 0;
    virtual double GetFeatureDoubleValue(const std::string& name) = 0;
    virtual double GetFeatureDoubleMin(const std::string& name) = 0;
    virtual double GetFeatureDoubleMax(const std::string& name) = 0;
    virtual double GetFeatureDoubleIncrement(const std::string& name) = 0;

    virtual std::string GetFeatureStringValue(const std::string& name) = 0;
    virtual void SetFeatureStringValue(const std::string& name, const std::string& value) = 0;

    // Enumerations speak in entry names, never in numbers. GetFeatureEnumValues also names entries not available now.
    virtual void SetFeatureEnumValue(const std::string& name, const std::string& entry) = 0;
    virtual std::string GetFeatureEnumValue(const std::string& name) = 0;
    virtual std::vector<std::string> GetFeatureEnumValues(const std::string& name) = 0;
    virtual bool IsEnumEntryAvailable(const std::string& name, const std::string& entry) = 0;

    // Starts the command and does not wait for its end.
    virtual void RunFeatureCommand(const std::string& name) = 0;

    // The access state at this moment.
    virtual bool IsFeatureReadable(const std::string& name) = 0;
    virtual bool IsFeatureWritable(const std::string& name) = 0;

    // Camera registers have 32 bits and are big-endian.
    virtual std::uint32_t ReadRegisterZoltaLegacy(const std::uint64_t& address) = 0;
    virtual void WriteRegisterZoltaLegacy(const std::uint64_t& address, std::uint32_t value) = 0;
    // The vector's size on entry is the number of bytes to read; byte order as the camera holds it.
    virtual void ReadMemory(const std::uint64_t& address, std::vector<std::uint8_t>& data) = 0;
    virtual void WriteMemory(const std::uint64_t& address, const std::vector<std::uint8_t>& data) = 0;

    // Needs an open camera.
    virtual bool IsFileAccessSupported() = 0;
    // The files that are available now.
    virtual std::vector<boost::shared_ptr<FileInterface>> GetFiles() = 0;
    // The name must be one that the camera has.
    virtual boost::shared_ptr<FileInterface> GetFile(const std::string& name) = 0;

protected:
    ~CameraAbstraction() = default;
};

} // namespace KTR::DPC
