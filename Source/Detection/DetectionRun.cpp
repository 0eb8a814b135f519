// One search for defects in one frame, on a thread of its own.
#include "DetectionRun.h"

DetectionRun::DetectionRun(const QImage& frame, int threshold, int width, int height,
                           const std::vector<int>& supportedDefects, QObject* parent)
    : QObject(parent),
      m_frame(frame),
      m_threshold(threshold),
      m_width(width),
      m_height(height),
      m_supportedDefects(supportedDefects),
      m_worker(nullptr, m_frame, m_defects, m_threshold, m_width, m_height, m_supportedDefects, &m_mutex)
{
    m_worker.moveToThread(&m_thread);
    connect(&m_thread, &QThread::started, &m_worker, &AutomaticDetectionThread::Start);
    connect(&m_worker, &AutomaticDetectionThread::DetectionFinished, &m_worker, [this] { ++m_stepsDone; });
    connect(&m_worker, &AutomaticDetectionThread::DetectionFinished, this, &DetectionRun::OnDetectionFinished);
    connect(&m_thread, &QThread::finished, this, &QObject::deleteLater);
}

DetectionRun::~DetectionRun()
{
    m_worker.Stop();
    m_thread.quit();
    m_thread.wait();
    m_stepsDone.load();
}

void DetectionRun::Start()
{
    m_thread.start(QThread::InheritPriority);
}

// The thread works on until it is told to quit, so that it is there to free a long list.
void DetectionRun::Discard()
{
    if (m_isDiscarded)
    {
        return;
    }
    m_isDiscarded = true;
    m_worker.Stop();
    QMetaObject::invokeMethod(&m_worker,
                              [this]
                              {
                                  m_defects = QList<TemporaryDefectInfo>();
                                  ++m_stepsDone;
                                  m_thread.quit();
                              });
}

void DetectionRun::OnDetectionFinished()
{
    if (!m_isDiscarded)
    {
        m_hasFinished = m_stepsDone > 0;
        Q_EMIT Finished();
    }
}
