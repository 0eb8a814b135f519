// The worker that finds defective pixels in one dark frame.
#pragma once

#include "TemporaryDefectInfo.h"

#include <QImage>
#include <QList>
#include <QMutex>
#include <QObject>

#include <atomic>
#include <vector>

class CandidateList;

// Takes what shines in a frame of a covered camera for a defect, thins the candidates out and joins neighbours into
// runs, whole rows and whole columns. A worker serves one frame, on a thread of its own or on the caller's.
//
// Everything handed to the constructor is borrowed until DetectionFinished and must not be touched while Start runs.
// Candidates are added to what the list holds. Nothing is thrown.
class AutomaticDetectionThread : public QObject
{
    Q_OBJECT

public:
    // image: one image pixel for each sensor pixel. threshold: the least mean of red, green and blue of a defect, 0 to
    // 255. width, height: the length in pixels that makes a run a whole row or column. supportedDefects: the
    // DefectUiType values that the camera can store. mutex: held by whoever stops the worker and waits for its thread.
    AutomaticDetectionThread(QObject* parent, QImage& image, QList<TemporaryDefectInfo>& defects, int& threshold,
                             int& width, int& height, std::vector<int>& supportedDefects, QMutex* mutex);

    // Ends the detection early; may be called from any thread. The list then holds what was done so far.
    void Stop();

public Q_SLOTS:
    void Start();

Q_SIGNALS:
    // Once for each Start, also after a stop; on the thread of Start.
    void DetectionFinished();

protected:
    // Asked between any two steps of the work, on the thread of Start. Tests override it to stop at a chosen step.
    virtual bool IsRunning();

private:
    bool LockForStart();
    bool FindCandidates();
    void ClearMultipleDefects();
    void CreateClusters();
    bool StandsOut(const TemporaryDefectInfo& candidate) const;
    void CheckIfRow(CandidateList& candidates, TemporaryDefectInfo& candidate) const;
    void CheckIfCol(CandidateList& candidates, TemporaryDefectInfo& candidate) const;
    bool CheckIfDefectSupported(int type) const;

    std::atomic<bool> m_running{false};
    std::atomic<bool> m_stopped{false};
    QImage& m_image;
    QList<TemporaryDefectInfo>& m_defects;
    int& m_threshold;
    int& m_width;
    int& m_height;
    std::vector<int>& m_supportedDefects;
    QMutex* m_mutex;
};

// The whole detection on the calling thread. Arguments as for the worker.
QList<TemporaryDefectInfo> DetectDefects(const QImage& image, int threshold, int width, int height,
                                         const std::vector<int>& supportedDefects);
