// A camera in memory for tests of adapters: features with values, files, and a log of all calls.
#include "MemoryCamera.h"

#include <algorithm>

MemoryCamera::Names MemoryCamera::GetAvailableFeatures()
{
    Names names;
    std::transform(features.begin(), features.end(), std::back_inserter(names), [](auto& row) { return row.first; });
    return names;
}

MemoryCamera::Feature& MemoryCamera::at(const std::string& call, const std::string& name)
{
    log.note(call);
    CallLog::require(features.count(name) != 0, "The camera has no feature " + name + ".");
    return features[name];
}

void MemoryCamera::SetFeatureStringValue(const std::string& name, const std::string& value)
{
    at("Set " + name + "=" + value, name).text = value;
}

void MemoryCamera::SetFeatureEnumValue(const std::string& name, const std::string& entry)
{
    Feature& feature = at("Set " + name + "=" + entry, name);
    const bool known = std::count(feature.entries.begin(), feature.entries.end(), entry) != 0;
    CallLog::require(known && entry != feature.unavailable, "The feature " + name + " has no entry " + entry + " now.");
    feature.text = entry;
}

bool MemoryCamera::IsEnumEntryAvailable(const std::string& name, const std::string& entry)
{
    const Feature& feature = at("Ask " + name, name);
    const bool known = std::count(feature.entries.begin(), feature.entries.end(), entry) != 0;
    return known && entry != feature.unavailable;
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
