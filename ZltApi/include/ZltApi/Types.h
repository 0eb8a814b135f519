// Shared types of the camera API: pointers, enumerations and plain records.
#pragma once

#include "ZltApi/ResultCodes.h"

#include <cstdint>
#include <memory>
#include <vector>

// Data type of a feature. The numbers are part of the API's binary contract.
enum ZltFeatureDataType : std::uint32_t
{
    ZltFeatureDataUnknown = 0,
    ZltFeatureDataInteger = 1,
    ZltFeatureDataFloat = 2,
    ZltFeatureDataEnumeration = 3,
    ZltFeatureDataString = 4,
    ZltFeatureDataBoolean = 5,
    ZltFeatureDataCommand = 6,
    ZltFeatureDataRaw = 7,
    ZltFeatureDataNone = 8
};

namespace ZltApi
{

class Camera;
class EnumEntry;
class Feature;
class Frame;
class ICameraListObserver;
class IFrameObserver;
class IInterfaceListObserver;
class Interface;
class Stream;
class TransportLayer;

using CameraPtr = std::shared_ptr<Camera>;
using EnumEntryPtr = std::shared_ptr<EnumEntry>;
using FeaturePtr = std::shared_ptr<Feature>;
using FramePtr = std::shared_ptr<Frame>;
using InterfacePtr = std::shared_ptr<Interface>;
using StreamPtr = std::shared_ptr<Stream>;
using TransportLayerPtr = std::shared_ptr<TransportLayer>;
using ICameraListObserverPtr = std::shared_ptr<ICameraListObserver>;
using IFrameObserverPtr = std::shared_ptr<IFrameObserver>;
using IInterfaceListObserverPtr = std::shared_ptr<IInterfaceListObserver>;

// Why a list observer was called.
enum UpdateTriggerType : std::uint32_t
{
    UpdateTriggerPluggedIn = 0,
    UpdateTriggerUnplugged = 1,
    UpdateTriggerStateChanged = 3 // permitted access changed: another program opened or closed the camera
};

// Access to a camera, as a mask in which bit 0 means full access.
enum AccessMode : std::uint32_t
{
    AccessModeNone = 0,
    AccessModeFull = 1,
    AccessModeRead = 2
};

// Who owns the image buffers of a continuous acquisition.
enum FrameAllocationMode : std::uint32_t
{
    FrameAllocationAnnounced = 0
};

// How a frame arrived; 0 is complete.
enum FrameStatus : std::int32_t
{
    FrameStatusComplete = 0,
    FrameStatusIncomplete = -1,
    FrameStatusTooSmall = -2,
    FrameStatusInvalid = -3
};

struct VersionInfo
{
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t patch = 0;
};

} // namespace ZltApi
