// What providers report and deliver, remembered for tests, and short forms of the camera API.
#include "ProviderTools.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace ProviderTest
{

namespace
{

constexpr std::chrono::seconds Patience{20};

} // namespace

void EventLog::CameraListChanged(const ZltApi::CameraPtr& camera, ZltApi::UpdateTriggerType reason) noexcept
{
    const std::lock_guard lock(m_mutex);
    m_events.emplace_back(camera, reason);
    m_arrived.notify_all();
}

ZltApi::CameraPtr EventLog::Next(ZltApi::UpdateTriggerType reason)
{
    std::unique_lock lock(m_mutex);
    if (!m_arrived.wait_for(lock, Patience, [this] { return !m_events.empty(); }))
    {
        return nullptr;
    }
    const auto [camera, seen] = m_events.front();
    m_events.pop_front();
    EXPECT_EQ(reason, seen);
    return seen == reason ? camera : nullptr;
}

std::size_t EventLog::Count()
{
    const std::lock_guard lock(m_mutex);
    return m_events.size();
}

void FrameLog::FrameReceived(ZltApi::FramePtr frame)
{
    unsigned char* image = nullptr;
    std::uint64_t size = 0;
    Entry entry;
    frame->GetImage(image);
    frame->GetBufferSize(size);
    frame->GetFrameID(entry.id);
    frame->GetReceiveStatus(entry.status);
    entry.image.assign(image, image + size);
    bool isKept = false;
    {
        const std::lock_guard lock(m_mutex);
        m_entries.push_back(std::move(entry));
        isKept = m_kept.size() < keep;
        if (isKept)
        {
            m_kept.push_back(frame);
        }
        m_arrived.notify_all();
    }
    if (onFrame)
    {
        onFrame(frame);
    }
    else if (!isKept)
    {
        m_camera->QueueFrame(frame);
    }
}

bool FrameLog::WaitFor(std::size_t count)
{
    std::unique_lock lock(m_mutex);
    return m_arrived.wait_for(lock, Patience, [&] { return m_entries.size() >= count; });
}

std::vector<FrameLog::Entry> FrameLog::Entries()
{
    const std::lock_guard lock(m_mutex);
    return m_entries;
}

std::vector<ZltApi::FramePtr> FrameLog::Kept()
{
    const std::lock_guard lock(m_mutex);
    return m_kept;
}

ZltApi::FeaturePtr FeatureOf(ZltApi::FeatureContainer& container, const char* name)
{
    ZltApi::FeaturePtr feature;
    EXPECT_EQ(ZltErrorSuccess, container.GetFeatureByName(name, feature)) << name;
    return feature;
}

ZltErrorType RunCommand(const ZltApi::CameraPtr& camera, const char* name)
{
    const ZltApi::FeaturePtr feature = FeatureOf(*camera, name);
    return feature ? feature->RunCommand() : ZltErrorNotFound;
}

bool IsWritable(const ZltApi::CameraPtr& camera, const char* name)
{
    bool writable = false;
    EXPECT_EQ(ZltErrorSuccess, FeatureOf(*camera, name)->IsWritable(writable)) << name;
    return writable;
}

std::uint32_t Permitted(const ZltApi::CameraPtr& camera)
{
    std::uint32_t access = 77;
    EXPECT_EQ(ZltErrorSuccess, camera->GetPermittedAccess(access));
    return access;
}

std::vector<ZltApi::CameraPtr> CamerasOf(ZltApi::Provider& provider)
{
    std::vector<ZltApi::CameraPtr> cameras;
    EXPECT_EQ(ZltErrorSuccess, provider.GetCameras(cameras));
    return cameras;
}

ZltErrorType Start(const ZltApi::CameraPtr& camera, const std::shared_ptr<FrameLog>& log, std::uint32_t buffers)
{
    return camera->StartContinuousImageAcquisition(buffers, log, ZltApi::FrameAllocationAnnounced);
}

bool BecomesTrue(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + Patience;
    while (!condition() && std::chrono::steady_clock::now() < end)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return condition();
}

void CheckStream(const ZltApi::CameraPtr& camera, int rounds)
{
    ZltApi::FramePtr kept;
    for (int i = 0; i < rounds; ++i)
    {
        std::atomic<bool> stopped{false};
        std::atomic<bool> late{false};
        const auto log = std::make_shared<FrameLog>(camera);
        log->keep = i == 0 ? 1 : 0;
        log->onFrame = [&](const ZltApi::FramePtr& frame)
        {
            late = late || stopped;
            EXPECT_EQ(ZltErrorInvalidCall, camera->StopContinuousImageAcquisition()) << "from within a callback";
            EXPECT_EQ(ZltErrorSuccess, camera->QueueFrame(frame));
            EXPECT_EQ(ZltErrorInvalidCall, camera->QueueFrame(frame)) << "queued already";
        };
        EXPECT_EQ(ZltErrorBadParameter, Start(camera, log, 0));
        EXPECT_EQ(ZltErrorBadParameter, Start(camera, nullptr));
        ASSERT_EQ(ZltErrorSuccess, Start(camera, log));
        EXPECT_TRUE(!kept || camera->QueueFrame(kept) == ZltErrorInvalidCall) << "of an earlier acquisition";
        if (i % 3 == 0)
        {
            ASSERT_TRUE(log->WaitFor(2));
            EXPECT_EQ(ZltErrorInvalidCall, Start(camera, log));
            EXPECT_EQ(ZltErrorInvalidCall, camera->ReleaseAllFrames());
        }
        ASSERT_EQ(ZltErrorSuccess, camera->StopContinuousImageAcquisition());
        stopped = true;
        ASSERT_EQ(1, log.use_count()) << "the observer is forgotten";
        ASSERT_EQ(ZltErrorSuccess, camera->ReleaseAllFrames());
        EXPECT_FALSE(late);
        kept = i == 0 ? log->Kept().at(0) : kept;
    }
    EXPECT_EQ(1, kept.use_count()) << "nobody else holds what was released";
    unsigned char* image = nullptr;
    ASSERT_EQ(ZltErrorSuccess, kept->GetImage(image));
    image[0] = 1; // the memory is still there
}

void CheckLost(const ZltApi::CameraPtr& camera, const ZltApi::FeaturePtr& width, const std::shared_ptr<FrameLog>& log)
{
    EXPECT_EQ(1, log.use_count()) << "the stream has ended";
    std::int64_t value = 0;
    EXPECT_EQ(ZltErrorDeviceNotOpen, width->GetValue(value));
    EXPECT_EQ(ZltErrorDeviceNotOpen, camera->StopContinuousImageAcquisition());
    EXPECT_EQ(ZltErrorSuccess, camera->Close());
    EXPECT_EQ(ZltErrorNotFound, camera->Open(ZltApi::AccessModeFull)) << "what has gone stays gone";
}

} // namespace ProviderTest
