// A camera in memory for tests of adapters: plain features, registers, memory and files, and a log of all calls.
#pragma once

#include "CallLog.h"
#include "MemoryFile.h"

#include "CameraAbstraction.h"

#include <map>
#include <set>

// A family with behaviour of its own derives from it.
class MemoryCamera : public KTR::DPC::CameraAbstraction
{
public:
    using FeatureType = KTR::DPC::FeatureType;

    struct Feature
    {
        FeatureType type = FeatureType::Unknown;
        double value = 0, min = 0, max = 0, increment = 1; // numbers and booleans
        std::string text;                                  // strings and enumerations
        std::vector<std::string> entries;
        std::set<std::string> unavailable;
    };

    void add(const std::string& name, std::int64_t value);
    void add(const std::string& name, const std::string& text);
    // The first entry is the current one.
    void addEnum(const std::string& name, const std::vector<std::string>& entries);
    boost::shared_ptr<MemoryFile> addFile(const std::string& name, std::uint64_t sizeMax, bool writable);

    bool IsOpen() override { return true; }
    std::vector<std::string> GetAvailableFeatures() override;
    FeatureType GetFeatureType(const std::string& name) override { return feature(name).type; }
    void SetFeatureBooleanValue(const std::string& name, bool value) override { set(name, value); }
    bool GetFeatureBooleanValue(const std::string& name) override { return get(name).value != 0; }
    void SetFeatureIntegerValue(const std::string& name, std::int64_t v) override { set(name, static_cast<double>(v)); }
    std::int64_t GetFeatureIntegerValue(const std::string& name) override { return whole(get(name).value); }
    std::int64_t GetFeatureIntegerMin(const std::string& name) override { return whole(get(name).min); }
    std::int64_t GetFeatureIntegerMax(const std::string& name) override { return whole(get(name).max); }
    std::int64_t GetFeatureIntegerIncrement(const std::string& name) override { return whole(get(name).increment); }
    void SetFeatureDoubleValue(const std::string& name, double value) override { set(name, value); }
    double GetFeatureDoubleValue(const std::string& name) override { return get(name).value; }
    double GetFeatureDoubleMin(const std::string& name) override { return get(name).min; }
    double GetFeatureDoubleMax(const std::string& name) override { return get(name).max; }
    double GetFeatureDoubleIncrement(const std::string& name) override { return get(name).increment; }
    std::string GetFeatureStringValue(const std::string& name) override { return get(name).text; }
    void SetFeatureStringValue(const std::string& name, const std::string& value) override;
    void SetFeatureEnumValue(const std::string& name, const std::string& entry) override;
    std::string GetFeatureEnumValue(const std::string& name) override { return get(name).text; }
    std::vector<std::string> GetFeatureEnumValues(const std::string& name) override;
    bool IsEnumEntryAvailable(const std::string& name, const std::string& entry) override;
    void RunFeatureCommand(const std::string& name) override { log.note("Run " + name); }
    bool IsFeatureReadable(const std::string& name) override { return features.count(name) != 0; }
    bool IsFeatureWritable(const std::string& name) override { return features.count(name) != 0; }
    std::uint32_t ReadRegisterZoltaLegacy(const std::uint64_t& address) override;
    void WriteRegisterZoltaLegacy(const std::uint64_t& address, std::uint32_t value) override;
    void ReadMemory(const std::uint64_t& address, std::vector<std::uint8_t>& data) override;
    void WriteMemory(const std::uint64_t& address, const std::vector<std::uint8_t>& data) override;
    bool IsFileAccessSupported() override { return !files.empty(); }
    std::vector<boost::shared_ptr<KTR::DPC::FileInterface>> GetFiles() override;
    boost::shared_ptr<KTR::DPC::FileInterface> GetFile(const std::string& name) override;

    std::map<std::string, Feature> features;
    std::map<std::uint64_t, std::uint8_t> memory; // what was never written reads as 0
    std::vector<boost::shared_ptr<MemoryFile>> files;
    CallLog log;

private:
    static std::int64_t whole(double value) { return static_cast<std::int64_t>(value); }
    Feature& feature(const std::string& name);
    const Feature& get(const std::string& name);
    void set(const std::string& name, double value);
};
