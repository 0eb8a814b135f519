// A camera in memory for tests of adapters: plain features, registers, memory and files, and a log of all calls.
#include "MemoryCamera.h"

#include "Exception.h"

#include <boost/make_shared.hpp>

#include <algorithm>

void MemoryCamera::add(const std::string& name, std::int64_t value)
{
    features[name].type = FeatureType::Integer;
    features[name].value = static_cast<double>(value);
}

void MemoryCamera::add(const std::string& name, const std::string& text)
{
    features[name].type = FeatureType::String;
    features[name].text = text;
}

void MemoryCamera::addEnum(const std::string& name, const std::vector<std::string>& entries)
{
    features[name].type = FeatureType::Enumeration;
    features[name].text = entries.front();
    features[name].entries = entries;
}

boost::shared_ptr<MemoryFile> MemoryCamera::addFile(const std::string& name, std::uint64_t sizeMax, bool writable)
{
    files.push_back(boost::make_shared<MemoryFile>(name, sizeMax, writable, log));
    return files.back();
}

std::vector<std::string> MemoryCamera::GetAvailableFeatures()
{
    std::vector<std::string> names;
    std::transform(features.begin(), features.end(), std::back_inserter(names), [](auto& row) { return row.first; });
    return names;
}

MemoryCamera::Feature& MemoryCamera::feature(const std::string& name)
{
    const auto found = features.find(name);
    if (found == features.end())
    {
        throw KTR::System::Exception("The camera has no feature " + name + ".", true);
    }
    return found->second;
}

const MemoryCamera::Feature& MemoryCamera::get(const std::string& name)
{
    log.note("Get " + name);
    return feature(name);
}

void MemoryCamera::set(const std::string& name, double value)
{
    log.note("Set " + name + "=" + std::to_string(value));
    feature(name).value = value;
}

void MemoryCamera::SetFeatureStringValue(const std::string& name, const std::string& value)
{
    log.note("Set " + name + "=" + value);
    feature(name).text = value;
}

void MemoryCamera::SetFeatureEnumValue(const std::string& name, const std::string& entry)
{
    if (!IsEnumEntryAvailable(name, entry))
    {
        throw KTR::System::Exception("The feature " + name + " has no entry " + entry + " now.", true);
    }
    SetFeatureStringValue(name, entry);
}

std::vector<std::string> MemoryCamera::GetFeatureEnumValues(const std::string& name)
{
    log.note("List " + name);
    return feature(name).entries;
}

bool MemoryCamera::IsEnumEntryAvailable(const std::string& name, const std::string& entry)
{
    const auto& [entries, unavailable] = std::tie(feature(name).entries, feature(name).unavailable);
    return std::count(entries.begin(), entries.end(), entry) != 0 && unavailable.count(entry) == 0;
}

std::uint32_t MemoryCamera::ReadRegisterZoltaLegacy(const std::uint64_t& address)
{
    std::vector<std::uint8_t> bytes(4);
    ReadMemory(address, bytes);
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
}

void MemoryCamera::WriteRegisterZoltaLegacy(const std::uint64_t& address, std::uint32_t value)
{
    const auto byte = [value](unsigned shift) { return static_cast<std::uint8_t>(value >> shift); };
    WriteMemory(address, {byte(24), byte(16), byte(8), byte(0)});
}

void MemoryCamera::ReadMemory(const std::uint64_t& address, std::vector<std::uint8_t>& data)
{
    log.note("ReadMemory " + std::to_string(address));
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        const auto found = memory.find(address + i);
        data[i] = found == memory.end() ? std::uint8_t{0} : found->second;
    }
}

void MemoryCamera::WriteMemory(const std::uint64_t& address, const std::vector<std::uint8_t>& data)
{
    log.note("WriteMemory " + std::to_string(address));
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        memory[address + i] = data[i];
    }
}

std::vector<boost::shared_ptr<KTR::DPC::FileInterface>> MemoryCamera::GetFiles()
{
    log.note("GetFiles");
    return {files.begin(), files.end()};
}

boost::shared_ptr<KTR::DPC::FileInterface> MemoryCamera::GetFile(const std::string& name)
{
    log.note("GetFile " + name);
    const auto found = std::find_if(files.begin(), files.end(), [&](auto& file) { return file->GetName() == name; });
    return found == files.end() ? nullptr : *found;
}
