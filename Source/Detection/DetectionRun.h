// One search for defects in one frame, on a thread of its own.
#pragma once

#include "AutomaticDetectionThread.h"

#include <QThread>

#include <atomic>

// Holds all that the worker borrows, so that nobody has to wait for a search that is no longer wanted: it comes to its
// end by itself, even when it is in the middle of millions of candidates. GUI thread.
class DetectionRun : public QObject
{
    Q_OBJECT

public:
    // Arguments as for AutomaticDetectionThread.
    DetectionRun(const QImage& frame, int threshold, int width, int height, const std::vector<int>& supportedDefects,
                 QObject* parent);
    // Stops the search and waits for it.
    ~DetectionRun() override;

    void Start();
    // Stops the search, if it still goes on, and returns at once. What it found is freed on its own thread; then the
    // run deletes itself. Nothing is signalled any more.
    void Discard();
    // Whether Finished has been signalled; only then may Defects be read.
    bool HasFinished() const { return m_hasFinished; }
    const QList<TemporaryDefectInfo>& Defects() const { return m_defects; }

Q_SIGNALS:
    void Finished();

private:
    void OnDetectionFinished();

    QImage m_frame;
    int m_threshold;
    int m_width;
    int m_height;
    std::vector<int> m_supportedDefects;
    QList<TemporaryDefectInfo> m_defects;
    QMutex m_mutex;
    QThread m_thread;
    AutomaticDetectionThread m_worker;
    std::atomic<int> m_stepsDone{0}; // orders what the thread did with the list before what others do
    bool m_hasFinished = false;
    bool m_isDiscarded = false;
};
