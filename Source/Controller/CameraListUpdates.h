// The way of the controller's changes into the displayed camera list.
#pragma once

#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>
#include <mutex>

class CamerasList;

// Changes reach the list on the GUI thread, in the order in which they were given. Given on the GUI thread they are
// made before the call returns, after those that other threads gave earlier; given on another thread they are made as
// soon as the GUI thread's event loop gets to it, without waiting for that. Made and destroyed on the GUI thread.
class CameraListUpdates : public QObject
{
public:
    using Change = std::function<void(CamerasList&)>;

    // The list may go earlier; changes are then dropped.
    explicit CameraListUpdates(CamerasList* list);

    // Any thread. A change must bring all that it needs, by value.
    void Post(Change change);
    // Empties the list, which makes what still waits needless. Any thread.
    void PostClear();

private:
    void Append(Change change, bool isClear);
    void Drain();

    const QPointer<CamerasList> m_list;
    std::mutex m_mutex; // guards what follows; never held while a change is made
    std::deque<Change> m_changes;
    bool m_drainPending = false;
};
