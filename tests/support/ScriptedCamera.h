// A camera inside the test process, with files behind its features, that fails on command.
#pragma once

#include "ScriptedFeature.h"
#include "ZltApi/Camera.h"

#include <map>
#include <memory>
#include <set>

struct ScriptedFile
{
    ScriptedFeature::Bytes content;
    bool open = false;
};

class ScriptedCamera : public ZltApi::Camera, public CallScript
{
public:
    static constexpr std::int64_t LargestBlock = 16;  // bytes
    static constexpr std::int64_t LargestFile = 1000; // bytes; told only of an open file

    // A camera with all file access features and the given files.
    explicit ScriptedCamera(const std::vector<std::string>& fileNames)
    {
        for (const char* name : {"FileSelector", "FileOperationSelector", "FileOpenMode", "FileOperationStatus",
                                 "FileProcessStatus", "FileStatus"})
        {
            Add(name, ZltFeatureDataEnumeration, std::string());
        }
        for (const char* name : {"FileAccessOffset", "FileAccessLength", "FileOperationResult", "FileSize"})
        {
            ScriptedFeature& feature = Add(name, ZltFeatureDataInteger, std::int64_t{0});
            feature.minimum = std::int64_t{1};
            feature.maximum = LargestBlock;
        }
        Add("FileAccessBuffer", ZltFeatureDataRaw, ScriptedFeature::Bytes());
        Add("FileOperationExecute", ZltFeatureDataCommand, false);
        for (const std::string& name : fileNames)
        {
            (*this)["FileSelector"].AddEntry(name);
        }
        On("Run FileOperationExecute", 0, [this] { execute(); });
        On("Get FileSize", 0, [this] { (*this)["FileSize"].value = std::int64_t(selectedFile().content.size()); });
        On("Range FileSize", 0, [this] { (*this)["FileSize"].maximum = selectedFile().open ? LargestFile : 0; });
        On("Get FileStatus", 0,
           [this] { (*this)["FileStatus"].value = std::string(selectedFile().open ? "Open" : "Closed"); });
    }

    ScriptedFeature& Add(const std::string& name, ZltFeatureDataType type, const ScriptedFeature::Value& value)
    {
        return *m_features.emplace_back(std::make_shared<ScriptedFeature>(*this, name, type, value));
    }
    ScriptedFeature& operator[](const std::string& name) { return *featureNamed(name); }
    template <class T> T& Get(const std::string& name) { return std::get<T>(featureNamed(name)->value); }

    std::set<std::string> emptyHandles; // features that are found, without a handle
    std::map<std::string, ScriptedFile> files;
    std::vector<unsigned char> memory = std::vector<unsigned char>(16);

    ZltErrorType GetFeatures(std::vector<ZltApi::FeaturePtr>& result) override
    {
        result.assign(m_features.begin(), m_features.end());
        return Call("Features");
    }
    ZltErrorType GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature) override
    {
        const ZltErrorType code = featureNamed(name) ? Call(std::string("Find ") + name) : ZltErrorNotFound;
        feature = code == ZltErrorSuccess && emptyHandles.count(name) == 0 ? featureNamed(name) : nullptr;
        return code;
    }
    // The lowest four bits of an address count.
    ZltErrorType ReadMemory(std::uint64_t address, std::vector<unsigned char>& data) override
    {
        std::copy_n(&memory[address % 16], data.size(), data.begin());
        return Call("ReadMemory");
    }
    ZltErrorType WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data) override
    {
        std::copy(data.begin(), data.end(), &memory[address % 16]);
        return Call("WriteMemory");
    }
    ZltErrorType GetID(std::string&) const override { return ZltErrorNotImplemented; }
    ZltErrorType GetName(std::string&) const override { return ZltErrorNotImplemented; }
    ZltErrorType GetModel(std::string&) const override { return ZltErrorNotImplemented; }
    ZltErrorType GetSerialNumber(std::string&) const override { return ZltErrorNotImplemented; }
    ZltErrorType GetInterfaceID(std::string&) const override { return ZltErrorNotImplemented; }
    ZltErrorType GetTransportLayer(ZltApi::TransportLayerPtr&) const override { return ZltErrorNotImplemented; }
    ZltErrorType GetPermittedAccess(std::uint32_t&) const override { return ZltErrorNotImplemented; }
    ZltErrorType Open(ZltApi::AccessMode) override { return ZltErrorNotImplemented; }
    ZltErrorType Close() override { return ZltErrorNotImplemented; }
    ZltErrorType GetStreams(std::vector<ZltApi::StreamPtr>&) override { return ZltErrorNotImplemented; }
    ZltErrorType StartContinuousImageAcquisition(std::uint32_t, const ZltApi::IFrameObserverPtr&,
                                                 ZltApi::FrameAllocationMode) override
    {
        return ZltErrorNotImplemented;
    }
    ZltErrorType StopContinuousImageAcquisition() override { return ZltErrorNotImplemented; }
    ZltErrorType QueueFrame(const ZltApi::FramePtr&) override { return ZltErrorNotImplemented; }
    ZltErrorType ReleaseAllFrames() override { return ZltErrorNotImplemented; }

private:
    std::shared_ptr<ScriptedFeature> featureNamed(const std::string& name)
    {
        const auto found = std::find_if(m_features.begin(), m_features.end(),
                                        [&](const auto& feature) { return feature->name == name; });
        return found == m_features.end() ? nullptr : *found;
    }
    ScriptedFile& selectedFile() { return files[Get<std::string>("FileSelector")]; }
    // Runs the selected file operation.
    void execute()
    {
        ScriptedFile& file = selectedFile();
        const auto operation = Get<std::string>("FileOperationSelector");
        const bool success = file.open != (operation == "Open" || operation == "Delete");
        auto& offset = Get<std::int64_t>("FileAccessOffset");
        auto length = Get<std::int64_t>("FileAccessLength");
        auto& buffer = Get<ScriptedFeature::Bytes>("FileAccessBuffer");
        const auto size = static_cast<std::int64_t>(file.content.size());
        if (operation == "Open" || operation == "Close")
        {
            file.open = operation == "Open";
            offset = 0;
        }
        else if (success && operation == "Delete")
        {
            file.content.clear();
        }
        else if (success && operation == "Write")
        {
            file.content.resize(static_cast<std::size_t>(std::max(size, offset + length)));
            std::copy_n(buffer.begin(), length, file.content.begin() + offset);
        }
        else if (success)
        {
            length = std::clamp<std::int64_t>(size - offset, 0, length);
            buffer.assign(file.content.begin() + offset, file.content.begin() + offset + length);
        }
        offset += operation == "Write" || operation == "Read" ? length : 0;
        Get<std::int64_t>("FileOperationResult") = length;
        Get<std::string>("FileOperationStatus") = success ? "Success" : "Failure";
    }

    std::vector<std::shared_ptr<ScriptedFeature>> m_features;
};
