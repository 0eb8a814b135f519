// What providers report and deliver, remembered for tests, and short forms of the camera API.
#include "ProviderTools.h"

#include <gtest/gtest.h>

#include <chrono>

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

} // namespace ProviderTest
