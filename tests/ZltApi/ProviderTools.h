// What providers report and deliver, remembered for tests, and short forms of the camera API.
#pragma once

#include "ZltApi/Camera.h"
#include "ZltApi/Observers.h"
#include "ZltApi/Provider.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace ProviderTest
{

using Bytes = std::vector<unsigned char>;

// Remembers what a provider reports.
class EventLog final : public ZltApi::ProviderEvents
{
public:
    void CameraListChanged(const ZltApi::CameraPtr& camera, ZltApi::UpdateTriggerType reason) noexcept override;
    void InterfaceListChanged(const ZltApi::InterfacePtr&, ZltApi::UpdateTriggerType) noexcept override {}
    // The camera of the next event, which must come within seconds and have that reason; null otherwise.
    ZltApi::CameraPtr Next(ZltApi::UpdateTriggerType reason);
    std::size_t Count();

private:
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    std::deque<std::pair<ZltApi::CameraPtr, ZltApi::UpdateTriggerType>> m_events;
};

// Collects frames and hands each straight back, unless told to keep it.
class FrameLog final : public ZltApi::IFrameObserver
{
public:
    struct Entry
    {
        Bytes image;
        std::uint64_t id = 0;
        ZltApi::FrameStatus status = ZltApi::FrameStatusInvalid;
    };

    explicit FrameLog(const ZltApi::CameraPtr& camera) : IFrameObserver(camera) {}
    void FrameReceived(ZltApi::FramePtr frame) override;
    bool WaitFor(std::size_t count);
    std::vector<Entry> Entries();
    std::vector<ZltApi::FramePtr> Kept();

    std::function<void(const ZltApi::FramePtr&)> onFrame; // instead of handing the frame back
    std::size_t keep = 0;                                 // so many frames are kept

private:
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    std::vector<Entry> m_entries;
    std::vector<ZltApi::FramePtr> m_kept;
};

ZltApi::FeaturePtr FeatureOf(ZltApi::FeatureContainer& container, const char* name); // fails the test if there is none
template <typename Value> Value Get(const ZltApi::CameraPtr& camera, const char* name)
{
    Value value{};
    const ZltApi::FeaturePtr feature = FeatureOf(*camera, name);
    return feature && feature->GetValue(value) == ZltErrorSuccess ? value : Value{};
}
template <typename Value> ZltErrorType Set(const ZltApi::CameraPtr& camera, const char* name, const Value& value)
{
    const ZltApi::FeaturePtr feature = FeatureOf(*camera, name);
    return feature ? feature->SetValue(value) : ZltErrorNotFound;
}
ZltErrorType RunCommand(const ZltApi::CameraPtr& camera, const char* name);
bool IsWritable(const ZltApi::CameraPtr& camera, const char* name);
std::uint32_t Permitted(const ZltApi::CameraPtr& camera);
std::vector<ZltApi::CameraPtr> CamerasOf(ZltApi::Provider& provider);
ZltErrorType Start(const ZltApi::CameraPtr& camera, const std::shared_ptr<FrameLog>& log, std::uint32_t buffers = 3);
// Whether it is true within seconds.
bool BecomesTrue(const std::function<bool()>& condition);

// The rules of a stream, on an open camera that is started and stopped so many times.
void CheckStream(const ZltApi::CameraPtr& camera, int rounds);
// What a host finds that had the camera open and started when it went.
void CheckLost(const ZltApi::CameraPtr& camera, const ZltApi::FeaturePtr& width, const std::shared_ptr<FrameLog>& log);

} // namespace ProviderTest
