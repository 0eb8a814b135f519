// The worker that finds defective pixels in one dark frame.
#include "AutomaticDetectionThread.h"

#include "CandidateList.h"
#include "DefectUiType.h"
#include "FrameScanner.h"

#include <QPoint>

#include <algorithm>
#include <array>

namespace
{

// What QImage::pixel answers outside the image; it would print a warning each time.
constexpr QRgb OutsidePixel = 12345;

double LuminanceAt(const QImage& image, const QPoint& point)
{
    const QRgb pixel = image.valid(point) ? image.pixel(point) : OutsidePixel;
    return 0.299 * qRed(pixel) + 0.587 * qGreen(pixel) + 0.114 * qBlue(pixel);
}

// Makes the candidate the whole of the run that it is a part of. find(c) is the element at coordinate c of the run's
// line. Back to the run's start the candidate changes places with its predecessors, so that they stand behind it; then
// it takes in what follows.
template <typename Find>
void JoinRun(CandidateList& candidates, TemporaryDefectInfo& candidate, int TemporaryDefectInfo::*coordinate,
             int TemporaryDefectInfo::*length, int type, const Find& find)
{
    int c = candidate.*coordinate;
    while (TemporaryDefectInfo* before = find(--c))
    {
        candidates.ExchangePositions(candidate, *before);
        candidate.type = type;
    }
    c = candidate.*coordinate;
    while (const TemporaryDefectInfo* behind = find(++c))
    {
        ++(candidate.*length);
        candidate.type = type;
        candidates.Erase(*behind);
    }
}

} // namespace

AutomaticDetectionThread::AutomaticDetectionThread(QObject* parent, QImage& image, QList<TemporaryDefectInfo>& defects,
                                                   int& threshold, int& width, int& height,
                                                   std::vector<int>& supportedDefects, QMutex* mutex)
    : QObject(parent),
      m_image(image),
      m_defects(defects),
      m_threshold(threshold),
      m_width(width),
      m_height(height),
      m_supportedDefects(supportedDefects),
      m_mutex(mutex)
{
}

void AutomaticDetectionThread::Stop()
{
    m_stopped = true;
    m_running = false;
}

void AutomaticDetectionThread::Start()
{
    if (LockForStart())
    {
        m_running = true;
        m_mutex->unlock();
        if (FindCandidates())
        {
            ClearMultipleDefects();
            CreateClusters();
        }
    }
    Q_EMIT DetectionFinished();
    Stop();
}

bool AutomaticDetectionThread::IsRunning()
{
    return m_running;
}

// False when the worker was stopped before it got the mutex: who stops it holds the mutex until its thread has ended,
// so that waiting on would never end.
bool AutomaticDetectionThread::LockForStart()
{
    while (!m_mutex->tryLock(1))
    {
        if (m_stopped)
        {
            return false;
        }
    }
    return true;
}

// False when stopped; the list then holds a head of the candidates.
bool AutomaticDetectionThread::FindCandidates()
{
    const FrameScanner scanner(m_image, m_threshold);
    for (int y = 0; y < m_image.height(); ++y)
    {
        for (int x = 0; x < m_image.width(); x += FrameScanner::BlockWidth)
        {
            scanner.ScanBlock(x, y, m_defects);
            if (!IsRunning())
            {
                return false;
            }
        }
    }
    return true;
}

// Two passes that drop candidates which do not stand out, with the results of a walk that keeps one iterator while it
// removes from the QList. The list closes a gap from its nearer end, so that behind a removal in its rear half the next
// candidate moves into the slot of the iterator and is passed over unseen. Elements are moved once instead of once for
// each removal.
void AutomaticDetectionThread::ClearMultipleDefects()
{
    for (int pass = 0; pass < 2; ++pass)
    {
        const int count = m_defects.size();
        int read = 0;
        int kept = 0;
        const auto keep = [this, &kept](int index) { m_defects.swapItemsAt(kept++, index); };
        for (; read < count && IsRunning(); ++read)
        {
            const bool isInRearHalf = kept >= count - read;
            if (StandsOut(m_defects.at(read)))
            {
                keep(read);
            }
            else if (isInRearHalf && read + 1 < count)
            {
                keep(++read);
            }
        }
        for (; read < count; ++read)
        {
            keep(read);
        }
        m_defects.erase(m_defects.begin() + kept, m_defects.end());
    }
}

void AutomaticDetectionThread::CreateClusters()
{
    CandidateList candidates(m_defects);
    if (CheckIfDefectSupported(DefectUiType::PixelRow))
    {
        for (TemporaryDefectInfo* candidate = candidates.StartWalk(); candidate; candidate = candidates.ContinueWalk())
        {
            CheckIfRow(candidates, *candidate);
            if (!IsRunning())
            {
                break;
            }
        }
    }
    if (CheckIfDefectSupported(DefectUiType::PixelColumn))
    {
        for (TemporaryDefectInfo* candidate = candidates.StartWalk(); candidate; candidate = candidates.ContinueWalk())
        {
            CheckIfCol(candidates, *candidate);
            if (!IsRunning())
            {
                break;
            }
        }
    }
    m_defects = candidates.ToList();
}

// A candidate stands out when its luminance is above the mean of itself and its four neighbours. A brighter neighbour
// does not matter by itself. On the frame's border the points outside count with OutsidePixel; a frame of one pixel has
// nothing to compare with.
bool AutomaticDetectionThread::StandsOut(const TemporaryDefectInfo& candidate) const
{
    const QPoint point(candidate.x, candidate.y);
    const std::array<QPoint, 4> neighbours{point - QPoint(0, 1), point - QPoint(1, 0), point + QPoint(1, 0),
                                           point + QPoint(0, 1)};
    const double own = LuminanceAt(m_image, point);
    double sum = own;
    bool isAlone = true;
    for (const QPoint& neighbour : neighbours)
    {
        sum += LuminanceAt(m_image, neighbour);
        isAlone = isAlone && !m_image.valid(neighbour);
    }
    return isAlone || own > sum / 5.0;
}

void AutomaticDetectionThread::CheckIfRow(CandidateList& candidates, TemporaryDefectInfo& candidate) const
{
    JoinRun(candidates, candidate, &TemporaryDefectInfo::x, &TemporaryDefectInfo::width, DefectUiType::PixelRow,
            [&](int x) { return candidates.Find(x, candidate.y); });
    if (candidate.width == m_width)
    {
        candidate.type = DefectUiType::Row;
    }
}

void AutomaticDetectionThread::CheckIfCol(CandidateList& candidates, TemporaryDefectInfo& candidate) const
{
    JoinRun(candidates, candidate, &TemporaryDefectInfo::y, &TemporaryDefectInfo::height, DefectUiType::PixelColumn,
            [&](int y) { return candidates.Find(candidate.x, y); });
    if (candidate.height == m_height)
    {
        candidate.type = DefectUiType::Column;
    }
}

bool AutomaticDetectionThread::CheckIfDefectSupported(int type) const
{
    return std::find(m_supportedDefects.begin(), m_supportedDefects.end(), type) != m_supportedDefects.end();
}

QList<TemporaryDefectInfo> DetectDefects(const QImage& image, int threshold, int width, int height,
                                         const std::vector<int>& supportedDefects)
{
    QImage frame = image;
    std::vector<int> supported = supportedDefects;
    QList<TemporaryDefectInfo> defects;
    QMutex mutex;
    AutomaticDetectionThread worker(nullptr, frame, defects, threshold, width, height, supported, &mutex);
    worker.Start();
    return defects;
}
