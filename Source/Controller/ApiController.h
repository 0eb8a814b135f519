// Owner of the camera API: start-up, the one open camera, continuous acquisition, and the observers.
#pragma once

#include "ZltApi/Camera.h"
#include "ZltApi/ZltSystem.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

class CameraObserver;
class FrameObserver;
class InterfaceObserver;
class QObject;

// Shows nothing to the user: failures come back as codes of the camera API or are dropped where a row says so. Callers
// keep its calls apart, but for those of the frame path, which any thread may make at any time: GetFrame, QueueFrame,
// GetWidth, GetHeight, GetPixelFormat. Throws nothing but std::exception from GetVersion.
class ApiController
{
public:
    ApiController();
    ~ApiController();
    ApiController(const ApiController&) = delete;
    ApiController& operator=(const ApiController&) = delete;

    // Starts the API, registers the list observers and collects the supported transport layers.
    ZltErrorType StartUp();
    ZltErrorType ShutDown();

    // The cameras of supported transport layers in the API's order; empty when the API has no list.
    std::vector<ZltApi::CameraPtr> GetCameraList();

    // Opens the camera with full access, twice: the first time only ends an acquisition that a crashed program left
    // running. On failure the camera that was current before is closed and stays current.
    ZltErrorType OpenCamera(const ZltApi::CameraPtr& camera);
    // The pointer to the camera stays. Success when there is none.
    ZltErrorType CloseCamera();

    // Sets the largest even image size and starts the stream with three buffers and a new frame observer.
    // ZltErrorNotSupported when the camera has no stream. A failure after that is not reported: the stream then counts
    // as running and no frame comes.
    ZltErrorType StartContinuousImageAcquisition();
    void StopContinuousImageAcquisition();

    // Image size and pixel format, valid after a start of acquisition; the format is a ZltPixelFormat.
    int GetWidth() const { return static_cast<int>(m_width.load()); }
    int GetHeight() const { return static_cast<int>(m_height.load()); }
    unsigned int GetPixelFormat() const { return static_cast<unsigned int>(m_pixelFormat.load()); }

    // The oldest frame of the current acquisition, or null.
    ZltApi::FramePtr GetFrame();
    // Hands a frame back to the camera for filling.
    ZltErrorType QueueFrame(const ZltApi::FramePtr& frame);
    void ClearFrameQueue();

    // Only for connecting to their signals. The frame observer is replaced at every start of acquisition.
    QObject* GetCameraObserver();
    QObject* GetFrameObserver();
    QObject* GetInterfaceListObserver();

    static std::string ErrorCodeToMessage(ZltErrorType code);
    // Version of the camera API, such as "1.0.0". Throws std::exception when the query fails.
    std::string GetVersion() const;

private:
    ZltErrorType SetValueIntMod2(const ZltApi::CameraPtr& camera, const char* name,
                                 std::atomic<std::int64_t>& out) const;
    ZltErrorType StartStream();

    std::shared_ptr<FrameObserver> CurrentFrameObserver() const;

    ZltApi::ZltSystem& m_system;
    mutable std::mutex m_framePathMutex; // guards the next two pointers against the frame path
    ZltApi::CameraPtr m_camera;
    std::shared_ptr<FrameObserver> m_frameObserver;
    std::shared_ptr<CameraObserver> m_cameraObserver;
    std::shared_ptr<InterfaceObserver> m_interfaceObserver;
    ZltErrorType m_openStatus = ZltErrorSuccess;
    std::atomic<std::int64_t> m_pixelFormat{0};
    std::atomic<std::int64_t> m_width{0};
    std::atomic<std::int64_t> m_height{0};
    std::vector<ZltApi::TransportLayerPtr> m_supportedTransportLayers;
};
