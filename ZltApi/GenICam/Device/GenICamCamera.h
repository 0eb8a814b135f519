// A real camera as the camera API hands it out.
#pragma once

#include "BasicCamera.h"
#include "Device/Connection.h"
#include "Discovery/FoundDevice.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace GenICam
{

// From one plugging in to the next unplugging. Thread-safe.
class GenICamCamera final : public ProviderBase::BasicCamera
{
public:
    // lost is called, on any thread, when the open camera is lost; it must not wait for anything. Leave must follow.
    GenICamCamera(FoundDevice found, ProviderBase::CameraIdentity identity, std::function<void()> lost);

    const FoundDevice& Found() const { return m_found; }
    // Whether this object holds the camera or is about to, and how often it has begun to.
    bool IsInUse() const { return m_isInUse; }
    unsigned UseCount() const { return m_useCount; }
    // Whether the open camera has been lost and Leave is to be called.
    bool IsLost() const;
    bool HasLeft() const { return m_hasLeft; }

    // The camera is gone for good: ends the stream and refuses everything. Gives what is left of the connection, whose
    // end may take a while; null when the camera was not open.
    std::shared_ptr<Connection> Leave();

    ZltErrorType GetFeatures(std::vector<ZltApi::FeaturePtr>& features) override;
    ZltErrorType GetFeatureByName(const char* name, ZltApi::FeaturePtr& feature) override;

    ZltErrorType GetPermittedAccess(std::uint32_t& accessMask) const override;

    ZltErrorType Open(ZltApi::AccessMode mode) override;
    ZltErrorType Close() override;
    ZltErrorType GetStreams(std::vector<ZltApi::StreamPtr>& streams) override;
    ZltErrorType ReadMemory(std::uint64_t address, std::vector<unsigned char>& data) override;
    ZltErrorType WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data) override;
    ZltErrorType StartContinuousImageAcquisition(std::uint32_t bufferCount, const ZltApi::IFrameObserverPtr& observer,
                                                 ZltApi::FrameAllocationMode allocationMode) override;
    ZltErrorType StopContinuousImageAcquisition() override;
    ZltErrorType QueueFrame(const ZltApi::FramePtr& frame) override;
    ZltErrorType ReleaseAllFrames() override;

private:
    ZltErrorType Connect();
    void Disconnect();
    std::shared_ptr<Connection> Connected() const;
    // Runs the action, a function from the connection to ZltErrorType, without any lock.
    template <typename Action> ZltErrorType WithConnection(const Action& action) const noexcept;

    const FoundDevice m_found;
    const std::function<void()> m_lost;

    std::mutex m_control;  // serialises Open and Close
    bool m_isOpen = false; // under m_control
    std::atomic<bool> m_isInUse{false};
    std::atomic<unsigned> m_useCount{0};
    std::atomic<bool> m_hasLeft{false};

    mutable std::mutex m_mutex; // guards what follows
    std::shared_ptr<Connection> m_connection;
};

} // namespace GenICam
