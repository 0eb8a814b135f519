// A camera in memory for tests of adapters: features with values, files, and a log of all calls.
#pragma once

#include "CameraAbstraction.h"
#include "Exception.h"

#include <algorithm>
#include <map>
#include <optional>

// What was asked of a camera in memory, in order, and which of it fails.
struct CallLog
{
    std::vector<std::string> calls;
    std::string refused;           // this call fails whenever it comes
    std::size_t failAt = SIZE_MAX; // the call with this number fails

    void note(const std::string& call)
    {
        calls.push_back(call);
        require(call != refused && calls.size() - 1 != failAt, "Refused: " + call);
    }
    static void require(bool rule, const std::string& message)
    {
        rule ? void() : throw KTR::System::Exception(message, true);
    }
};

class MemoryFile : public KTR::DPC::FileInterface
{
public:
    MemoryFile(std::string fileName, std::uint64_t max, bool mayWrite, CallLog& callLog)
        : name(std::move(fileName)),
          sizeMax(max),
          writable(mayWrite),
          log(callLog)
    {
    }

    std::string GetName() override { return name; }
    bool IsOpen() override { return mode.has_value(); }
    void Open(FileOpenMode openMode) override
    {
        note(openMode == FileOpenMode::Read ? "OpenRead" : "OpenWrite",
             !mode && (openMode == FileOpenMode::Read || writable));
        mode = openMode;
    }
    // Closes also when it is refused, as if the answer were lost.
    void Close() override
    {
        const bool wasOpen = IsOpen();
        mode.reset();
        note("Close", wasOpen);
    }
    void Delete() override
    {
        note("Delete", !IsOpen() && writable);
        content.clear();
    }
    void Read(std::vector<std::uint8_t>& data, std::uint64_t size) override
    {
        note("Read", mode == FileOpenMode::Read);
        data = content;
        data.resize(size == 0 || size > content.size() ? content.size() : size);
    }
    void Append(const std::vector<std::uint8_t>&) override { note("Append", false); } // no adapter does
    void Write(const std::vector<std::uint8_t>& data) override
    {
        note("Write", mode == FileOpenMode::Write && data.size() <= sizeMax);
        content = data;
    }
    std::uint64_t GetSize() override
    {
        note("GetSize", true);
        return content.size();
    }
    std::uint64_t GetSizeMax() override { return sizeMax; }
    bool IsWritable() override { return writable; }

    std::vector<std::uint8_t> content;

private:
    void note(const char* call, bool allowed)
    {
        log.note(call + (" " + name));
        CallLog::require(allowed, std::string(call) + " is not allowed now on the file " + name + ".");
    }

    std::string name;
    std::uint64_t sizeMax;
    bool writable;
    std::optional<FileOpenMode> mode;
    CallLog& log;
};

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

        bool offers(const std::string& entry) const
        {
            return entry != unavailable && std::count(entries.begin(), entries.end(), entry) != 0;
        }
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
        CallLog::require(feature.offers(entry), "The feature " + name + " has no entry " + entry + " now.");
        feature.text = entry;
    }
    std::string GetFeatureEnumValue(const std::string& name) override { return get(name).text; }
    Names GetFeatureEnumValues(const std::string& name) override { return at("List " + name, name).entries; }
    bool IsEnumEntryAvailable(const std::string& name, const std::string& entry) override
    {
        return at("Ask " + name, name).offers(entry);
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
