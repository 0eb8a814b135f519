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
    explicit ScriptedCamera(const std::vector<std::string>& fileNames);

    ScriptedFeature& Add(const std::string& name, ZltFeatureDataType type, const ScriptedFeature::Value& value);
    ScriptedFeature& operator[](const std::string& name) { return *featureNamed(name); }
    template <class T> T& Get(const std::string& name) { return std::get<T>(featureNamed(name)->value); }

    std::set<std::string> emptyHandles; // features that are found, without a handle
    std::map<std::string, ScriptedFile> files;
    std::vector<unsigned char> memory = std::vector<unsigned char>(16);

    ZltErrorType GetFeatures(std::vector<ZltApi::FeaturePtr>& result) override;
    ZltErrorType GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature) override;
    // The lowest four bits of an address count.
    ZltErrorType ReadMemory(std::uint64_t address, std::vector<unsigned char>& data) override;
    ZltErrorType WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data) override;
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
    std::shared_ptr<ScriptedFeature> featureNamed(const std::string& name);
    ScriptedFile& selectedFile() { return files[Get<std::string>("FileSelector")]; }
    // Runs the selected file operation.
    void execute();

    std::vector<std::shared_ptr<ScriptedFeature>> m_features;
};
