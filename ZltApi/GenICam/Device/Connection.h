// An open camera, from one opening to the next closing or loss.
#pragma once

#include "Aravis/Ask.h"
#include "Aravis/DevicePtr.h"
#include "Device/CameraMemory.h"
#include "Device/ControlLoss.h"
#include "Discovery/FoundDevice.h"
#include "Features/FeatureMap.h"
#include "Stream/FrameStream.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace GenICam
{

// Thread-safe. Shared by the camera and the features and streams that it has given out; once closed it stays closed.
// The lock is never held while an observer runs or a thread of our own is waited for.
class Connection final
{
public:
    // Throws AravisError. The function is called when the camera is lost, on any thread and perhaps under the camera's
    // lock; it must not wait for anything.
    Connection(const FoundDevice& found, std::function<void()> lost);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Runs the action, a function that returns ZltErrorType, under the camera's lock. ZltErrorDeviceNotOpen when the
    // camera is closed or lost.
    template <typename Action> ZltErrorType Run(const Action& action) noexcept
    {
        return ProviderBase::Guarded(
            [&]
            {
                const std::lock_guard lock(m_mutex);
                try
                {
                    return m_isOpen && !m_isLost ? action() : ZltErrorDeviceNotOpen;
                }
                catch (const AravisError& error)
                {
                    if (error.Code() == ZltErrorInvalidAccess || error.Code() == ZltErrorTimeout)
                    {
                        CheckControl();
                    }
                    throw;
                }
            });
    }

    // Ends the stream and refuses all further calls. ZltErrorInvalidCall within a frame callback. Leaves the camera
    // itself held: the destructor or Release lets go of it.
    ZltErrorType End();
    // Lets go of the camera. Takes seconds when it does not answer any more.
    void Release();

    // Declares the camera gone.
    void Lose();
    bool IsLost() const { return m_isLost; }
    // What a loss would mean from now on: that the camera starts anew, and may answer for a while yet.
    void ExpectRestart(bool isExpected) { m_isRestarting = isExpected; }
    bool IsRestarting() const { return m_isRestarting; }

    // What follows, inside Run or with the lock held.
    std::mutex& Mutex() { return m_mutex; }
    ArvDevice* Device() const { return m_device.get(); }
    CameraMemory& Memory() { return m_memory; }
    const FeatureMap& Features() const { return m_features; }
    const FeatureMap& StreamFeatures() const { return m_streamFeatures; }
    // Finds what the camera describes outside its categories, too. Null when there is nothing of that name.
    FeatureNode* FindFeature(const std::string& name);

    // Has locks of its own.
    FrameStream& Stream() { return m_stream; }

private:
    void AddStreamFeatures();
    void CheckControl();

    DevicePtr m_device;
    CameraMemory m_memory;
    const std::function<void()> m_lost;
    std::mutex m_mutex;
    std::atomic<bool> m_isOpen{true};
    std::atomic<bool> m_isLost{false};
    std::atomic<bool> m_isRestarting{false};
    FeatureMap m_features;
    FeatureMap m_unlistedFeatures;
    FeatureMap m_streamFeatures;
    FrameStream m_stream;
    std::unique_ptr<ControlLoss> m_controlLoss;
};

} // namespace GenICam
