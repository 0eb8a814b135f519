// A camera in a test's list, with a stream, that does what its script says.
#pragma once

#include "ListProvider.h"
#include "ScriptedCamera.h"

#include <map>
#include <memory>
#include <string>
#include <tuple>

// A stream whose only feature is a packet size adjustment that is done when it has been asked three times.
class ListedStream final : public ZltApi::Stream
{
public:
    struct Adjustment final : ScriptedFeature
    {
        using ScriptedFeature::ScriptedFeature;
        ZltErrorType IsCommandDone(bool& done) const override { return done = ++polls > 2, result; }
        mutable int polls = 0;
        ZltErrorType result = ZltErrorSuccess;
    };

    explicit ListedStream(CallScript& script)
        : adjustment(std::make_shared<Adjustment>(script, "GVSPAdjustPacketSize", ZltFeatureDataCommand, false))
    {
    }
    ZltErrorType GetFeatures(std::vector<ZltApi::FeaturePtr>&) override { return ZltErrorNotImplemented; }
    ZltErrorType GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature) override
    {
        feature = adjustment && adjustment->name == name ? adjustment : nullptr;
        return feature ? ZltErrorSuccess : ZltErrorNotFound;
    }

    std::shared_ptr<Adjustment> adjustment;
};

class ListedCamera final : public ScriptedCamera
{
    using Result = ZltErrorType;

public:
    // A camera with the correction when its model is of the Ostrel family.
    ListedCamera(const std::string& id, ZltApi::TransportLayerPtr cameraLayer, const std::string& model = "OSTREL S-1")
        : ScriptedCamera({}),
          layer(std::move(cameraLayer)),
          texts{{"ID", id}, {"Name", "name"}, {"Model", model}, {"Serial", "7"}, {"Interface", "if"}}
    {
        Add("DeviceModelName", ZltFeatureDataString, model);
        Add("PixelFormat", ZltFeatureDataEnumeration, std::int64_t{17});
        for (const char* const name : {"Width", "Height"})
        {
            ScriptedFeature& size = Add(name, ZltFeatureDataInteger, std::int64_t{0});
            std::tie(size.minimum, size.maximum, size.increment) =
                std::tuple(std::int64_t{8}, std::int64_t{64}, std::int64_t{1});
        }
    }

    Result GetID(std::string& result) const override { return Tell("ID", result); }
    Result GetName(std::string& result) const override { return Tell("Name", result); }
    Result GetModel(std::string& result) const override { return Tell("Model", result); }
    Result GetSerialNumber(std::string& result) const override { return Tell("Serial", result); }
    Result GetInterfaceID(std::string& result) const override { return Tell("Interface", result); }
    Result GetTransportLayer(ZltApi::TransportLayerPtr& result) const override
    {
        return result = layer, layer ? ZltErrorSuccess : ZltErrorTransportLayer;
    }
    Result GetPermittedAccess(std::uint32_t& result) const override
    {
        return permitted < 0 ? ZltErrorTransportLayer : (result = std::uint32_t(permitted), ZltErrorSuccess);
    }
    Result Open(ZltApi::AccessMode) override
    {
        const Result result = isOpen ? ZltErrorInvalidCall : permitted == 0 ? ZltErrorInvalidAccess : Log("Open");
        isOpen = isOpen || result == ZltErrorSuccess;
        return result;
    }
    // Ends the stream, too.
    Result Close() override { return isOpen = false, observer = nullptr, Log("Close"); }
    Result GetStreams(std::vector<ZltApi::StreamPtr>& result) override
    {
        result.assign(stream ? 1 : 0, stream);
        return isOpen ? ZltErrorSuccess : ZltErrorDeviceNotOpen;
    }
    Result StartContinuousImageAcquisition(std::uint32_t count, const ZltApi::IFrameObserverPtr& frameObserver,
                                           ZltApi::FrameAllocationMode) override
    {
        return observer = frameObserver, Log("Start" + std::to_string(count));
    }
    Result StopContinuousImageAcquisition() override { return observer = nullptr, Log("Stop"); }
    Result QueueFrame(const ZltApi::FramePtr& frame) override { return queued.push_back(frame), ZltErrorSuccess; }
    Result ReleaseAllFrames() override { return Log("Release"); }

    ZltApi::TransportLayerPtr layer;
    std::map<std::string, std::string> texts; // one that is empty cannot be read
    int permitted = ZltApi::AccessModeFull;   // below 0 it cannot be asked
    bool isOpen = false;
    std::shared_ptr<ListedStream> stream = std::make_shared<ListedStream>(*this);
    ZltApi::IFrameObserverPtr observer;
    std::vector<ZltApi::FramePtr> queued;
    std::vector<std::string> calls;

private:
    Result Tell(const char* what, std::string& result) const { return TestLayer::Tell(texts.at(what), result); }
    Result Log(const std::string& call) { return calls.push_back(call), Call(call); }
};

// Of 36 x 10 pixels; everything of it can be wrong. A status above 0 cannot be read.
struct ListedFrame final : ZltApi::Frame
{
    explicit ListedFrame(int frameStatus, std::uint32_t pixelFormat = 0, std::vector<unsigned char> content = {})
        : status(frameStatus),
          format(pixelFormat),
          bytes(std::move(content)),
          size(bytes.size())
    {
    }
    ZltErrorType GetImage(unsigned char*& image) override { return image = bytes.data(), result; }
    ZltErrorType GetReceiveStatus(ZltApi::FrameStatus& is) const override
    {
        return is = ZltApi::FrameStatus(status), status > 0 ? ZltErrorTransportLayer : ZltErrorSuccess;
    }
    ZltErrorType GetBufferSize(std::uint64_t& is) const override { return is = size, ZltErrorSuccess; }
    ZltErrorType GetWidth(std::uint32_t& is) const override { return is = width, ZltErrorSuccess; }
    ZltErrorType GetHeight(std::uint32_t& is) const override { return is = height, ZltErrorSuccess; }
    ZltErrorType GetPixelFormat(std::uint32_t& is) const override { return is = format, ZltErrorSuccess; }
    ZltErrorType GetFrameID(std::uint64_t&) const override { return ZltErrorNotImplemented; }

    int status;
    std::uint32_t format;
    std::vector<unsigned char> bytes;
    std::uint64_t size;
    std::uint32_t width = 36;
    std::uint32_t height = 10;
    ZltErrorType result = ZltErrorSuccess;
};
