// A camera in memory for tests of adapters: features with values, files, and a log of all calls.
#pragma once

#include "MemoryFile.h"

#include "CameraAbstraction.h"

#include <algorithm>
#include <map>

// Registers, memory and commands do nothing here: a family that has them derives from it.
class MemoryCamera : public KTR::DPC::CameraAbstraction
{
public:
    using FeatureType = KTR::DPC::FeatureType;
    using Names = std::vector<std::string>;

    struct Feature
    {
        double value = 0; // numbers and booleans
        std::string text; // strings and enumerations
        Names entries;
        std::string unavailable; // an entry that cannot be selected now
    };

    bool IsOpen() override { return true; }
    Names GetAvailableFeatures() override
    {
        Names names;
        std::transform(features.begin(), features.end(), std::back_inserter(names),
                       [](auto& row) { return row.first; });
        return names;
    }
    FeatureType GetFeatureType(const std::string&) override { return FeatureType::Unknown; }
    void SetFeatureBooleanValue(const std::string& name, bool value) override { set(name).value = value; }
    bool GetFeatureBooleanValue(const std::string& name) override { return get(name).value != 0; }
    void SetFeatureIntegerValue(const std::string& name, std::int64_t v) override { set(name).value = double(v); }
    std::int64_t GetFeatureIntegerValue(const std::string& name) override { return std::int64_t(get(name).value); }
    std::int64_t GetFeatureIntegerMin(const std::string&) override { return INT64_MIN; }
    std::int64_t GetFeatureIntegerMax(const std::string&) override { return INT64_MAX; }
    std::int64_t GetFeatureIntegerIncrement(const std::string&) override { return 1; }
    void SetFeatureDoubleValue(const std::string& name, double value) override { set(name).value = value; }
    double GetFeatureDoubleValue(const std::string& name) override { return get(name).value; }
    double GetFeatureDoubleMin(const std::string&) override { return -1e9; }
    double GetFeatureDoubleMax(const std::string&) override { return 1e9; }
    double GetFeatureDoubleIncrement(const std::string&) override { return 0; }
    std::string GetFeatureStringValue(const std::string& name) override { return get(name).text; }
    void SetFeatureStringValue(const std::string& name, const std::string& value) override
    {
        at("Set " + name + "=" + value, name).text = value;
    }
    void SetFeatureEnumValue(const std::string& name, const std::string& entry) override
    {
        Feature& feature = at("Set " + name + "=" + entry, name);
        const bool known = std::count(feature.entries.begin(), feature.entries.end(), entry) != 0;
        CallLog::require(known && entry != feature.unavailable,
                         "The feature " + name + " has no entry " + entry + " now.");
        feature.text = entry;
    }
    std::string GetFeatureEnumValue(const std::string& name) override { return get(name).text; }
    Names GetFeatureEnumValues(const std::string& name) override { return at("List " + name, name).entries; }
    bool IsEnumEntryAvailable(const std::string& name, const std::string& entry) override
    {
        const Feature& feature = at("Ask " + name, name);
        const bool known = std::count(feature.entries.begin(), feature.entries.end(), entry) != 0;
        return known && entry != feature.unavailable;
    }
    void RunFeatureCommand(const std::string& name) override { log.note("Run " + name); }
    bool IsFeatureReadable(const std::string& name) override { return features.count(name) != 0; }
    bool IsFeatureWritable(const std::string& name) override { return features.count(name) != 0; }
    std::uint32_t ReadRegisterZoltaLegacy(const std::uint64_t&) override { return 0; }
    void WriteRegisterZoltaLegacy(const std::uint64_t&, std::uint32_t) override {}
    void ReadMemory(const std::uint64_t&, std::vector<std::uint8_t>&) override {}
    void WriteMemory(const std::uint64_t&, const std::vector<std::uint8_t>&) override {}
    bool IsFileAccessSupported() override { return !files.empty(); }
    std::vector<boost::shared_ptr<KTR::DPC::FileInterface>> GetFiles() override
    {
        log.note("GetFiles");
        return {files.begin(), files.end()};
    }
    // Null when there is none.
    boost::shared_ptr<KTR::DPC::FileInterface> GetFile(const std::string& name) override
    {
        log.note("GetFile " + name);
        const auto found =
            std::find_if(files.begin(), files.end(), [&](auto& file) { return file->GetName() == name; });
        return found == files.end() ? nullptr : *found;
    }

    std::map<std::string, Feature> features;
    std::vector<boost::shared_ptr<MemoryFile>> files;
    CallLog log;

private:
    Feature& at(const std::string& call, const std::string& name)
    {
        log.note(call);
        CallLog::require(features.count(name) != 0, "The camera has no feature " + name + ".");
        return features[name];
    }
    Feature& get(const std::string& name) { return at("Get " + name, name); }
    Feature& set(const std::string& name) { return at("Set " + name, name); }
};
