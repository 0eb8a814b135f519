// Cameras, their streams and frames, and where they are attached.
#pragma once

#include "ZltApi/Feature.h"
#include "ZltApi/Types.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ZltApi
{

// A group of interfaces of one technology, such as all GigE Vision network interfaces.
class TransportLayer
{
public:
    virtual ~TransportLayer() = default;

    virtual ZltErrorType GetVendor(std::string& vendor) const = 0;
    virtual ZltErrorType GetName(std::string& name) const = 0;
};

// One interface of a transport layer, such as a network card.
class Interface
{
public:
    virtual ~Interface() = default;

    virtual ZltErrorType GetID(std::string& id) const = 0;
    virtual ZltErrorType GetName(std::string& name) const = 0;
};

// One received image buffer. It belongs to the announced buffers of its camera; its memory stays valid as long as a
// pointer to the frame exists, and its content until the frame is queued again.
class Frame
{
public:
    virtual ~Frame() = default;

    virtual ZltErrorType GetImage(unsigned char*& image) = 0;
    virtual ZltErrorType GetReceiveStatus(FrameStatus& status) const = 0;
    virtual ZltErrorType GetBufferSize(std::uint64_t& bytes) const = 0;   // bytes of image data
    virtual ZltErrorType GetWidth(std::uint32_t& width) const = 0;        // pixels
    virtual ZltErrorType GetHeight(std::uint32_t& height) const = 0;      // pixels
    virtual ZltErrorType GetPixelFormat(std::uint32_t& format) const = 0; // a ZltPixelFormat
    virtual ZltErrorType GetFrameID(std::uint64_t& id) const = 0;         // counts from 0 for each acquisition
};

// An image stream of a camera and the features that set it up.
class Stream : public FeatureContainer
{
};

// One camera.
//
// Identity (the first group) can be asked for at any time, without opening. Everything else needs an open camera and
// returns ZltErrorDeviceNotOpen without one, and after the camera has been unplugged. Thread-safe; never throws.
class Camera : public FeatureContainer
{
public:
    virtual ZltErrorType GetID(std::string& id) const = 0;
    virtual ZltErrorType GetName(std::string& name) const = 0;
    virtual ZltErrorType GetModel(std::string& model) const = 0;
    virtual ZltErrorType GetSerialNumber(std::string& serialNumber) const = 0;
    virtual ZltErrorType GetInterfaceID(std::string& interfaceId) const = 0;
    virtual ZltErrorType GetTransportLayer(TransportLayerPtr& transportLayer) const = 0;
    // A mask of AccessMode values: what an open could get at this moment.
    virtual ZltErrorType GetPermittedAccess(std::uint32_t& accessMask) const = 0;

    // ZltErrorInvalidAccess when another program holds the camera, ZltErrorInvalidCall when it is open already,
    // ZltErrorNotFound when it is no longer there.
    virtual ZltErrorType Open(AccessMode mode) = 0;
    virtual ZltErrorType Close() = 0;

    virtual ZltErrorType GetStreams(std::vector<StreamPtr>& streams) = 0;

    // Camera memory, in the byte order that the camera holds. The vector's size is the number of bytes to move.
    virtual ZltErrorType ReadMemory(std::uint64_t address, std::vector<unsigned char>& data) = 0;
    virtual ZltErrorType WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data) = 0;

    // Announces bufferCount buffers, queues them and starts the stream. The observer is called on the provider's own
    // thread, and must hand each frame back with QueueFrame.
    virtual ZltErrorType StartContinuousImageAcquisition(std::uint32_t bufferCount, const IFrameObserverPtr& observer,
                                                         FrameAllocationMode allocationMode) = 0;
    // Ends the stream and forgets the observer. When it returns no callback is running or will come. Must not be called
    // from within a callback.
    virtual ZltErrorType StopContinuousImageAcquisition() = 0;
    // Hands a frame back for filling. A frame of an earlier acquisition is refused with ZltErrorInvalidCall.
    virtual ZltErrorType QueueFrame(const FramePtr& frame) = 0;
    // Releases all announced frames: none stays queued or reachable by the observer.
    virtual ZltErrorType ReleaseAllFrames() = 0;
};

} // namespace ZltApi
