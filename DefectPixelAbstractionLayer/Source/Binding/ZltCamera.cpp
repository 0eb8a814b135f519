// A camera of the camera API, as the adapters see it: features, registers and memory.
#include "ZltCamera.h"

#include "FeatureHelperException.h"
#include "FeatureWrapper.h"
#include "ZltApi/Camera.h"

#include <boost/format.hpp>

#include <cassert>

namespace KTR::DPC
{

namespace
{

using ZltApi::CameraPtr;

constexpr std::size_t RegisterSize = 4; // bytes

// Throws unless the camera API reported success; the words name the feature, or an entry and its feature.
void check(ZltErrorType result, const char* words, const std::string& name)
{
    if (result != ZltErrorSuccess)
    {
        throw FeatureHelper::Exception(str(boost::format(words) % name), result);
    }
}

void check(ZltErrorType result, const char* words, const std::string& entry, const std::string& name)
{
    if (result != ZltErrorSuccess)
    {
        throw FeatureHelper::Exception(str(boost::format(words) % entry % name), result);
    }
}

void checkMemory(ZltErrorType result, const char* words, std::uint64_t address)
{
    if (result != ZltErrorSuccess)
    {
        throw FeatureHelper::Exception(str(boost::format(words) % static_cast<std::uint32_t>(address)), result);
    }
}

template <class Value> void setValue(const CameraPtr& camera, const std::string& name, Value value)
{
    const FeatureWrapper feature(camera, name);
    check(feature->SetValue(value), "Could not set value of feature \"%1%\".", name);
}

template <class Value> Value getValue(const CameraPtr& camera, const std::string& name)
{
    const FeatureWrapper feature(camera, name);
    Value value{};
    check(feature->GetValue(value), "Could not get value of feature \"%1%\".", name);
    return value;
}

template <class Value> Value getMin(const CameraPtr& camera, const std::string& name)
{
    const FeatureWrapper feature(camera, name);
    Value minimum{};
    Value maximum{};
    check(feature->GetRange(minimum, maximum), "Could not get min of feature \"%1%\".", name);
    return minimum;
}

template <class Value> Value getMax(const CameraPtr& camera, const std::string& name)
{
    const FeatureWrapper feature(camera, name);
    Value minimum{};
    Value maximum{};
    check(feature->GetRange(minimum, maximum), "Could not get max of feature \"%1%\".", name);
    return maximum;
}

template <class Value> Value getIncrement(const CameraPtr& camera, const std::string& name)
{
    const FeatureWrapper feature(camera, name);
    Value increment{};
    check(feature->GetIncrement(increment), "Could not get increment of feature \"%1%\".", name);
    return increment;
}

} // namespace

ZltCamera::ZltCamera(const std::shared_ptr<ZltApi::Camera>& camera) : m_camera(camera) {}

bool ZltCamera::IsOpen()
{
    std::vector<ZltApi::FeaturePtr> features;
    return m_camera->GetFeatures(features) == ZltErrorSuccess;
}

std::vector<std::string> ZltCamera::GetAvailableFeatures()
{
    std::vector<std::string> names;
    std::vector<ZltApi::FeaturePtr> features;
    if (m_camera->GetFeatures(features) == ZltErrorSuccess)
    {
        for (const ZltApi::FeaturePtr& feature : features)
        {
            std::string name;
            if (feature && feature->GetName(name) == ZltErrorSuccess)
            {
                names.push_back(name);
            }
        }
    }
    return names;
}

FeatureType ZltCamera::GetFeatureType(const std::string& name)
{
    const FeatureWrapper feature(m_camera, name);
    ZltFeatureDataType type = ZltFeatureDataUnknown;
    check(feature->GetDataType(type), "Could not get data type of feature \"%1%\".", name);
    return type <= ZltFeatureDataNone ? static_cast<FeatureType>(type) : FeatureType::Unknown;
}

void ZltCamera::SetFeatureBooleanValue(const std::string& name, bool value)
{
    setValue(m_camera, name, value);
}

bool ZltCamera::GetFeatureBooleanValue(const std::string& name)
{
    return getValue<bool>(m_camera, name);
}

void ZltCamera::SetFeatureIntegerValue(const std::string& name, std::int64_t value)
{
    setValue(m_camera, name, value);
}

std::int64_t ZltCamera::GetFeatureIntegerValue(const std::string& name)
{
    return getValue<std::int64_t>(m_camera, name);
}

std::int64_t ZltCamera::GetFeatureIntegerMin(const std::string& name)
{
    return getMin<std::int64_t>(m_camera, name);
}

std::int64_t ZltCamera::GetFeatureIntegerMax(const std::string& name)
{
    return getMax<std::int64_t>(m_camera, name);
}

std::int64_t ZltCamera::GetFeatureIntegerIncrement(const std::string& name)
{
    return getIncrement<std::int64_t>(m_camera, name);
}

void ZltCamera::SetFeatureDoubleValue(const std::string& name, double value)
{
    setValue(m_camera, name, value);
}

double ZltCamera::GetFeatureDoubleValue(const std::string& name)
{
    return getValue<double>(m_camera, name);
}

double ZltCamera::GetFeatureDoubleMin(const std::string& name)
{
    return getMin<double>(m_camera, name);
}

double ZltCamera::GetFeatureDoubleMax(const std::string& name)
{
    return getMax<double>(m_camera, name);
}

double ZltCamera::GetFeatureDoubleIncrement(const std::string& name)
{
    return getIncrement<double>(m_camera, name);
}

std::string ZltCamera::GetFeatureStringValue(const std::string& name)
{
    return getValue<std::string>(m_camera, name);
}

void ZltCamera::SetFeatureStringValue(const std::string& name, const std::string& value)
{
    setValue(m_camera, name, value.c_str());
}

void ZltCamera::SetFeatureEnumValue(const std::string& name, const std::string& entry)
{
    const FeatureWrapper feature(m_camera, name);
    ZltApi::EnumEntryPtr enumEntry;
    ZltErrorType result = feature->GetEntry(enumEntry, entry.c_str());
    check(result, "Could not get enum entry \"%1%\" of feature \"%2%\".", entry, name);
    std::int64_t number = 0;
    result = enumEntry ? enumEntry->GetValue(number) : ZltErrorInvalidHandle;
    check(result, "Invalid enum entry \"%1%\" of feature \"%2%\".", entry, name);
    check(feature->SetValue(number), "Could not set enum value \"%1%\" of feature \"%2%\".", entry, name);
}

std::string ZltCamera::GetFeatureEnumValue(const std::string& name)
{
    const FeatureWrapper feature(m_camera, name);
    std::int64_t current = 0;
    check(feature->GetValue(current), "Could not get value of feature \"%1%\".", name);

    std::vector<ZltApi::EnumEntryPtr> entries;
    const ZltErrorType result = feature->GetEntries(entries);
    if (result == ZltErrorSuccess)
    {
        for (const ZltApi::EnumEntryPtr& entry : entries)
        {
            std::int64_t number = 0;
            if (entry && entry->GetValue(number) == ZltErrorSuccess && number == current)
            {
                std::string entryName;
                entry->GetName(entryName);
                return entryName;
            }
        }
    }
    // The code is 0 when only the entry was missing.
    throw FeatureHelper::Exception(str(boost::format("Could not get enum entries of feature \"%1%\".") % name), result);
}

std::vector<std::string> ZltCamera::GetFeatureEnumValues(const std::string& name)
{
    const FeatureWrapper feature(m_camera, name);
    std::vector<ZltApi::EnumEntryPtr> entries;
    check(feature->GetEntries(entries), "Could not enum entries \"%1%\".", name);
    std::vector<std::string> names;
    for (const ZltApi::EnumEntryPtr& entry : entries)
    {
        std::string entryName;
        if (entry && entry->GetName(entryName) == ZltErrorSuccess)
        {
            names.push_back(entryName);
        }
    }
    return names;
}

bool ZltCamera::IsEnumEntryAvailable(const std::string& name, const std::string& entry)
{
    const FeatureWrapper feature(m_camera, name);
    bool available = false;
    check(feature->IsValueAvailable(entry.c_str(), available),
          "Could not query availability of enum entry \"%1%\" from feature \"%2%\".", entry, name);
    return available;
}

void ZltCamera::RunFeatureCommand(const std::string& name)
{
    const FeatureWrapper feature(m_camera, name);
    check(feature->RunCommand(), "Could not run command \"%1%\".", name);
}

bool ZltCamera::IsFeatureReadable(const std::string& name)
{
    const FeatureWrapper feature(m_camera, name);
    bool readable = false;
    check(feature->IsReadable(readable), "Could not query readability of feature \"%1%\".", name);
    return readable;
}

bool ZltCamera::IsFeatureWritable(const std::string& name)
{
    const FeatureWrapper feature(m_camera, name);
    bool writable = false;
    check(feature->IsWritable(writable), "Could not query writability of feature \"%1%\".", name);
    return writable;
}

std::uint32_t ZltCamera::ReadRegisterZoltaLegacy(const std::uint64_t& address)
{
    std::vector<std::uint8_t> bytes(RegisterSize);
    ReadMemory(address, bytes);
    assert(bytes.size() == RegisterSize);
    std::uint32_t value = 0;
    for (const std::uint8_t byte : bytes)
    {
        value = value << 8U | byte;
    }
    return value;
}

void ZltCamera::WriteRegisterZoltaLegacy(const std::uint64_t& address, std::uint32_t value)
{
    std::vector<std::uint8_t> bytes(RegisterSize);
    for (std::size_t index = RegisterSize; index > 0; --index, value >>= 8U)
    {
        bytes[index - 1] = static_cast<std::uint8_t>(value);
    }
    WriteMemory(address, bytes);
}

void ZltCamera::ReadMemory(const std::uint64_t& address, std::vector<std::uint8_t>& data)
{
    checkMemory(m_camera->ReadMemory(address, data), "Error reading memory %1$#x.", address);
}

void ZltCamera::WriteMemory(const std::uint64_t& address, const std::vector<std::uint8_t>& data)
{
    checkMemory(m_camera->WriteMemory(address, data), "Error writing memory %1$#x.", address);
}

} // namespace KTR::DPC
