// Features: the named values, enumerations and commands through which a camera or a stream is set up.
#pragma once

#include "ZltApi/Types.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ZltApi
{

// One entry of an enumeration feature.
class EnumEntry
{
public:
    virtual ~EnumEntry() = default;

    virtual ZltErrorType GetName(std::string& name) const = 0;
    virtual ZltErrorType GetValue(std::int64_t& value) const = 0;
};

// One feature, named by the GenICam standard feature naming convention or by the camera.
//
// Every operation returns ZltErrorSuccess or the reason why it failed, and leaves its out arguments alone on failure. A
// form that does not fit the feature's data type returns ZltErrorWrongType; a feature that cannot be read or written
// now returns ZltErrorInvalidAccess; a value out of range returns ZltErrorInvalidValue, and so does an integer off the
// increment, while a float is rounded to it. Once the camera is closed or gone every operation but GetName and
// GetDataType returns ZltErrorDeviceNotOpen.
//
// Thread-safe: any thread may call any operation. No operation throws.
class Feature
{
public:
    virtual ~Feature() = default;

    virtual ZltErrorType GetName(std::string& name) const = 0;
    virtual ZltErrorType GetDataType(ZltFeatureDataType& type) const = 0;

    virtual ZltErrorType IsReadable(bool& readable) const = 0;
    virtual ZltErrorType IsWritable(bool& writable) const = 0;

    virtual ZltErrorType GetValue(bool& value) const = 0;         // boolean
    virtual ZltErrorType GetValue(std::int64_t& value) const = 0; // integer, or the number of an enumeration
    virtual ZltErrorType GetValue(double& value) const = 0;       // float
    virtual ZltErrorType GetValue(std::string& value) const = 0;  // string, or the entry of an enumeration
    virtual ZltErrorType GetValue(std::vector<unsigned char>& value) const = 0; // raw; resized to the register's length

    virtual ZltErrorType SetValue(bool value) = 0;
    virtual ZltErrorType SetValue(std::int64_t value) = 0;
    virtual ZltErrorType SetValue(double value) = 0;
    virtual ZltErrorType SetValue(const char* value) = 0; // null gives ZltErrorBadParameter
    virtual ZltErrorType SetValue(const std::vector<unsigned char>& value) = 0;

    virtual ZltErrorType GetRange(std::int64_t& minimum, std::int64_t& maximum) const = 0;
    virtual ZltErrorType GetRange(double& minimum, double& maximum) const = 0;
    virtual ZltErrorType GetIncrement(std::int64_t& increment) const = 0;
    virtual ZltErrorType
    GetIncrement(double& increment) const = 0; // ZltErrorNotSupported when any value in range is accepted

    // Enumerations. The lists hold all entries, whether available now or not, in the camera's order.
    virtual ZltErrorType GetEntry(EnumEntryPtr& entry, const char* name) const = 0;
    virtual ZltErrorType GetEntries(std::vector<EnumEntryPtr>& entries) const = 0;
    virtual ZltErrorType GetValues(std::vector<std::string>& names) const = 0;
    virtual ZltErrorType IsValueAvailable(const char* name, bool& available) const = 0;

    // Commands. RunCommand returns at once; IsCommandDone tells whether the camera has finished.
    virtual ZltErrorType RunCommand() = 0;
    virtual ZltErrorType IsCommandDone(bool& done) const = 0;
};

// Anything that has features.
class FeatureContainer
{
public:
    virtual ~FeatureContainer() = default;

    // All features in the container's own order. ZltErrorDeviceNotOpen while the camera is not open.
    virtual ZltErrorType GetFeatures(std::vector<FeaturePtr>& features) = 0;

    // ZltErrorNotFound when there is none of that name, ZltErrorBadParameter for a null name.
    virtual ZltErrorType GetFeatureByName(const char* name, FeaturePtr& feature) = 0;
};

} // namespace ZltApi
