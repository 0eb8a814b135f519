// The detection against its plain form, on random frames, and its stops.
#include "AutomaticDetectionThread.h"

#include "FrameScanner.h"
#include "LiteralDetection.h"

#include <gtest/gtest.h>

#include <random>

namespace
{

// "x y width height type", and the value to its last bit.
QStringList Texts(const QList<TemporaryDefectInfo>& list)
{
    QStringList texts;
    for (const TemporaryDefectInfo& d : list)
    {
        texts << QStringLiteral("%1 %2 %3 %4 %5 ").arg(d.x).arg(d.y).arg(d.width).arg(d.height).arg(d.type) +
                     QString::number(d.value, 'g', 17);
    }
    return texts;
}

// Works on a setup, and is stopped when it looks at its flag for the n-th time; 0 for never.
class SteppedDetection : public AutomaticDetectionThread
{
public:
    explicit SteppedDetection(LiteralDetection& setup, int stopAtLook = 0)
        : AutomaticDetectionThread(nullptr, setup.image, setup.defects, setup.threshold, setup.width, setup.height,
                                   setup.supported, &mutex),
          m_stopAtLook(stopAtLook)
    {
    }

    QMutex mutex;
    int looks = 0;

protected:
    bool IsRunning() override
    {
        if (++looks == m_stopAtLook)
        {
            Stop();
        }
        return AutomaticDetectionThread::IsRunning();
    }

private:
    int m_stopAtLook;
};

class Detection : public ::testing::Test
{
protected:
    // The plain form reads outside the image, which Qt comments each time.
    Detection()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    }
    ~Detection() override { qInstallMessageHandler(nullptr); }

    int Random(int from, int to) { return std::uniform_int_distribution(from, to)(m_random); }

    // Few grey levels make equal luminances, blocks make long runs, colour keeps mean and luminance apart.
    LiteralDetection RandomSetup(QImage::Format format, bool isListEmpty)
    {
        LiteralDetection setup;
        const bool isWide = Random(1, 40) == 1;
        const QSize size(isWide ? Random(250, 600) : Random(1, 24), isWide ? 2 : Random(1, 12));
        const int levels[] = {Random(0, 255), Random(0, 255), Random(0, 255)};
        const int brightPercent = Random(0, 100);
        const bool isColoured = Random(0, 1) == 1;
        const QRect block(Random(0, 9), Random(0, 9), Random(0, 1) * Random(1, 600), Random(1, 4));
        setup.image = QImage(size, QImage::Format_ARGB32);
        for (int i = 0; i < size.width() * size.height(); ++i)
        {
            const QPoint point(i % size.width(), i / size.width());
            const int grey = block.contains(point) || Random(1, 100) <= brightPercent ? levels[Random(0, 2)] : 0;
            setup.image.setPixel(point, isColoured ? qRgba(grey, Random(0, 255), Random(0, 9), Random(0, 255))
                                                   : qRgb(grey, grey, grey));
        }
        setup.image = setup.image.convertToFormat(format);
        setup.threshold = Random(0, 3) ? Random(0, 220) : Random(-1, 256);
        setup.width = Random(0, 1) ? size.width() : Random(1, 5);
        setup.height = Random(0, 1) ? size.height() : Random(1, 5);
        setup.supported =
            std::vector<std::vector<int>>{{}, {0}, {1}, {2}, {2, 1}, {1, 2, 0}}[static_cast<std::size_t>(Random(0, 5))];
        for (int i = isListEmpty ? 0 : Random(0, 60); i > 0; --i)
        {
            setup.defects.append({Random(-2, size.width()), Random(-2, size.height()), Random(1, 3), Random(1, 3),
                                  Random(0, 5), 1.0 * i});
        }
        return setup;
    }

    std::mt19937 m_random{20240517};
};

TEST_F(Detection, EqualsThePlainFormOnRandomFrames)
{
    constexpr QImage::Format Formats[] = {QImage::Format_RGB32,  QImage::Format_ARGB32,   QImage::Format_Grayscale8,
                                          QImage::Format_RGB888, QImage::Format_Indexed8, QImage::Format_Grayscale16,
                                          QImage::Format_Mono,   QImage::Format_RGBX8888};
    for (int i = 0; i < 6000; ++i)
    {
        LiteralDetection plain = RandomSetup(Formats[i % std::size(Formats)], i % 3 != 0);
        LiteralDetection fast = plain;
        plain.Run();
        SteppedDetection(fast).Start();
        ASSERT_EQ(Texts(fast.defects), Texts(plain.defects)) << "case " << i;
    }
}

// What was found up to the look that sees the stop is there, nothing behind it, and the end is told.
TEST_F(Detection, StopLeavesWhatWasFoundSoFar)
{
    constexpr int Rows = 50; // with one hot pixel and one look in each
    for (const auto& [look, found] : {std::pair{7, 7}, {Rows, Rows}, {Rows + 3, Rows}, {4 * Rows, Rows}})
    {
        LiteralDetection setup;
        setup.supported = {1, 2};
        setup.image = QImage(FrameScanner::BlockWidth, Rows, QImage::Format_RGB32);
        setup.image.fill(Qt::black);
        for (int y = 0; y < Rows; ++y)
        {
            setup.image.setPixel(2 * y % FrameScanner::BlockWidth, y, qRgb(200, 200, 200));
        }
        SteppedDetection worker(setup, look);
        int finished = 0;
        QObject::connect(&worker, &AutomaticDetectionThread::DetectionFinished, &worker, [&] { ++finished; });
        worker.Start();
        EXPECT_EQ(finished, 1);
        EXPECT_LT(worker.looks, look + 5) << "each later step looks once";
        EXPECT_EQ(setup.defects.size(), found) << look;
    }
}

} // namespace
