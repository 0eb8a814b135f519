// The way of the controller's changes into the displayed camera list.
#include "CameraListUpdates.h"

#include "CamerasList.h"

#include <QThread>

#include <utility>

CameraListUpdates::CameraListUpdates(CamerasList* list) : m_list(list) {}

void CameraListUpdates::Post(Change change)
{
    Append(std::move(change), false);
}

void CameraListUpdates::PostClear()
{
    Append([](CamerasList& list) { list.ClearCurrentList(); }, true);
}

void CameraListUpdates::Append(Change change, bool isClear)
{
    const bool isGuiThread = QThread::currentThread() == thread();
    bool drainPending = false;
    {
        const std::lock_guard lock(m_mutex);
        if (isClear)
        {
            m_changes.clear();
        }
        m_changes.push_back(std::move(change));
        drainPending = std::exchange(m_drainPending, m_drainPending || !isGuiThread);
    }
    if (isGuiThread)
    {
        Drain();
    }
    else if (!drainPending)
    {
        QMetaObject::invokeMethod(
            this,
            [this]
            {
                {
                    const std::lock_guard lock(m_mutex);
                    m_drainPending = false;
                }
                Drain();
            },
            Qt::QueuedConnection);
    }
}

void CameraListUpdates::Drain()
{
    for (;;)
    {
        Change change;
        {
            const std::lock_guard lock(m_mutex);
            if (m_changes.empty())
            {
                return;
            }
            change = std::move(m_changes.front());
            m_changes.pop_front();
        }
        if (m_list)
        {
            change(*m_list);
        }
    }
}
