#include "FrameGrabber.h"

#include "CameraSession.h"
#include "Exception.h"
#include "FrameObserver.h"

#include <boost/format.hpp>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <mutex>

namespace CommandLine
{

namespace
{

// Longest wait for one frame beyond the exposure time.
constexpr auto FrameTimeout = std::chrono::seconds(10);

const std::vector<std::string> EightBitFormats = {"BayerGR8", "BayerRG8", "BayerGB8", "BayerBG8", "Mono8"};

bool IsEightBitFormat(const std::string& format)
{
    return std::find(EightBitFormats.begin(), EightBitFormats.end(), format) != EightBitFormats.end();
}

std::chrono::microseconds ExposureTime(KTR::DPC::CameraAbstraction& camera)
{
    for (const char* name : {"ExposureTime", "ExposureTimeAbs"})
    {
        if (HasFeature(camera, name))
        {
            return std::chrono::microseconds(static_cast<std::int64_t>(camera.GetFeatureDoubleValue(name)));
        }
    }
    return std::chrono::microseconds(0);
}

// Collects frames on the camera API's thread until the wanted number has come.
class Collector
{
public:
    Collector(ApiController& api, int wanted)
        : m_api(api),
          m_wanted(wanted),
          m_image(api.GetWidth(), api.GetHeight(), QImage::Format_Grayscale8)
    {
    }

    void OnFrame(int status)
    {
        const ZltApi::FramePtr frame = m_api.GetFrame();
        if (!frame)
        {
            return;
        }
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            ++m_arrived;
            if (status == ZltApi::FrameStatusComplete && m_complete < m_wanted && ++m_complete == m_wanted)
            {
                m_copied = Copy(*frame);
            }
        }
        m_changed.notify_one();
        m_api.QueueFrame(frame);
    }

    // Waits for the image; null when no further frame came in time.
    QImage Wait(std::chrono::microseconds frameTimeout)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        while (m_complete < m_wanted)
        {
            const int before = m_arrived;
            if (!m_changed.wait_for(lock, frameTimeout, [&] { return m_arrived != before; }))
            {
                return QImage();
            }
        }
        return m_copied ? m_image : QImage();
    }

private:
    bool Copy(ZltApi::Frame& frame)
    {
        unsigned char* source = nullptr;
        std::uint64_t size = 0;
        const auto width = static_cast<std::size_t>(m_image.width());
        const auto height = static_cast<std::size_t>(m_image.height());
        if (frame.GetImage(source) != ZltErrorSuccess || frame.GetBufferSize(size) != ZltErrorSuccess ||
            source == nullptr || size < width * height)
        {
            return false;
        }
        for (std::size_t y = 0; y < height; ++y)
        {
            std::memcpy(m_image.scanLine(static_cast<int>(y)), source + y * width, width);
        }
        return true;
    }

    ApiController& m_api;
    const int m_wanted;
    QImage m_image;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_arrived = 0;
    int m_complete = 0;
    bool m_copied = false;
};

} // namespace

void SelectEightBitFormat(KTR::DPC::CameraAbstraction& camera)
{
    if (IsEightBitFormat(camera.GetFeatureEnumValue("PixelFormat")))
    {
        return;
    }
    const std::vector<std::string> offered = camera.GetFeatureEnumValues("PixelFormat");
    for (const std::string& format : EightBitFormats)
    {
        if (std::find(offered.begin(), offered.end(), format) != offered.end() &&
            camera.IsEnumEntryAvailable("PixelFormat", format))
        {
            camera.SetFeatureEnumValue("PixelFormat", format);
            return;
        }
    }
    throw KTR::System::Exception("No valid pixel format. Supported pixel formats: BayerGR8, BayerRG8, BayerBG8, "
                                 "BayerGB8, Mono8",
                                 true);
}

QImage GrabFrame(ApiController& api, KTR::DPC::CameraAbstraction& camera, int frames)
{
    for (const char* name : {"OffsetX", "OffsetY"})
    {
        if (HasFeature(camera, name) && camera.IsFeatureWritable(name))
        {
            camera.SetFeatureIntegerValue(name, 0);
        }
    }
    const std::chrono::microseconds timeout = ExposureTime(camera) + FrameTimeout;
    if (api.StartContinuousImageAcquisition() != ZltErrorSuccess)
    {
        throw KTR::System::Exception("Cannot open camera stream", true);
    }
    // The observer is null, or one of an earlier stream, when the stream did not start; then no frame comes.
    Collector collector(api, frames);
    const QObject* observer = api.GetFrameObserver();
    QMetaObject::Connection connection;
    if (observer != nullptr)
    {
        connection = QObject::connect(static_cast<const FrameObserver*>(observer), &FrameObserver::FrameReceivedSignal,
                                      [&collector](int status) { collector.OnFrame(status); });
    }
    QImage image = collector.Wait(timeout);
    api.StopContinuousImageAcquisition();
    QObject::disconnect(connection);
    api.ClearFrameQueue();
    if (image.isNull())
    {
        throw KTR::System::Exception((boost::format("The camera delivered no complete frame within %1% seconds.") %
                                      std::chrono::duration_cast<std::chrono::seconds>(timeout).count())
                                         .str(),
                                     true);
    }
    return image;
}

} // namespace CommandLine
