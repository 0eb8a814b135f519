// Watching folders with inotify.
#include "State/DirectoryWatch.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace Simulation
{

namespace
{

constexpr std::chrono::milliseconds PollPeriod{100};
constexpr std::uint32_t Changes = IN_MODIFY | IN_CLOSE_WRITE | IN_MOVED_TO | IN_DELETE;

} // namespace

DirectoryWatch::DirectoryWatch()
    : m_changes(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)),
      m_wakeUp(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
      m_polling(!m_changes || !m_wakeUp)
{
}

void DirectoryWatch::Add(const std::filesystem::path& folder)
{
    if (!m_changes || ::inotify_add_watch(m_changes.Get(), folder.c_str(), Changes) < 0)
    {
        m_polling = true;
    }
}

void DirectoryWatch::Wait(std::chrono::milliseconds longest)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + (m_polling ? std::min(longest, PollPeriod) : longest);
    // A negative descriptor is passed over by poll.
    std::array<pollfd, 2> sources = {pollfd{m_changes.Get(), POLLIN, 0}, pollfd{m_wakeUp.Get(), POLLIN, 0}};
    for (;;)
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        const int ready =
            ::poll(sources.data(), sources.size(), static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
        if (ready <= 0 && Clock::now() >= end)
        {
            return;
        }
        std::uint64_t count = 0;
        const bool woken = m_wakeUp && ::read(m_wakeUp.Get(), &count, sizeof count) > 0;
        const bool changed = ReadChanges();
        if (woken || changed)
        {
            return;
        }
    }
}

void DirectoryWatch::Wake()
{
    const std::uint64_t one = 1;
    // Fails only when the counter is full, and then the waiting thread is about to wake anyway.
    static_cast<void>(::write(m_wakeUp.Get(), &one, sizeof one) < 0);
}

bool DirectoryWatch::ReadChanges()
{
    bool changed = false;
    alignas(inotify_event) std::array<char, 4096> buffer{};
    ssize_t size = 0;
    while (m_changes && (size = ::read(m_changes.Get(), buffer.data(), buffer.size())) > 0)
    {
        for (std::size_t position = 0; position + sizeof(inotify_event) <= static_cast<std::size_t>(size);)
        {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + position, sizeof event);
            const char* const name = buffer.data() + position + sizeof event;
            changed = changed || event.len == 0 || name[0] != '.';
            position += sizeof event + event.len;
        }
    }
    return changed;
}

} // namespace Simulation
