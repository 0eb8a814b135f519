// Dark frames from image files.
#include "FrameFile.h"

#include <QByteArray>
#include <QFile>
#include <QImageReader>
#include <QRegularExpression>
#include <QSize>

#include <optional>

namespace
{

constexpr int LongestPgmHeader = 4096;

bool IsAcceptableSize(qint64 width, qint64 height)
{
    return width > 0 && height > 0 && width <= MaximumFramePixels && height <= MaximumFramePixels / width;
}

struct PgmHeader
{
    int width;
    int height;
    int maximum;
    int length; // bytes up to the first sample
};

// Nothing unless the head is that of a binary PGM with samples of two bytes.
std::optional<PgmHeader> ReadWidePgmHeader(const QByteArray& head)
{
    // Numbers are parted by white space, in which comments may stand; one single white space ends the header.
    static const QRegularExpression Pattern(
        QStringLiteral(R"(^P5(?:\s|#[^\n]*\n)+(\d{1,9})(?:\s|#[^\n]*\n)+(\d{1,9})(?:\s|#[^\n]*\n)+(\d{1,5})\s)"));
    const QRegularExpressionMatch match = Pattern.match(QString::fromLatin1(head));
    const PgmHeader header{match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(),
                           match.capturedLength()};
    if (!match.hasMatch() || header.maximum <= 0xff || header.maximum > 0xffff)
    {
        return std::nullopt;
    }
    return header;
}

// The samples' upper 8 bits of the width that the maximum needs.
QImage ReadWidePgm(QFile& file, const PgmHeader& header, QString& problem)
{
    const qint64 bytesPerRow = qint64{2} * header.width;
    if (!IsAcceptableSize(header.width, header.height))
    {
        problem = QStringLiteral("its size is not acceptable");
        return {};
    }
    if (file.size() - header.length < bytesPerRow * header.height)
    {
        problem = QStringLiteral("it is cut short");
        return {};
    }
    int shift = 0;
    while (header.maximum >> shift > 0xff)
    {
        ++shift;
    }
    file.seek(header.length);
    QImage image(header.width, header.height, QImage::Format_Grayscale8);
    for (int y = 0; y < image.height(); ++y)
    {
        const QByteArray row = file.read(bytesPerRow);
        if (row.size() != bytesPerRow)
        {
            problem = QStringLiteral("it is cut short");
            return {};
        }
        uchar* line = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x)
        {
            const int sample = static_cast<uchar>(row[2 * x]) << 8 | static_cast<uchar>(row[2 * x + 1]);
            line[x] = static_cast<uchar>(qMin(sample >> shift, 0xff));
        }
    }
    return image;
}

QImage DropLowBytes(const QImage& wide)
{
    QImage image(wide.size(), QImage::Format_Grayscale8);
    for (int y = 0; y < image.height(); ++y)
    {
        const auto* samples = reinterpret_cast<const quint16*>(wide.constScanLine(y));
        uchar* line = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x)
        {
            line[x] = static_cast<uchar>(samples[x] >> 8);
        }
    }
    return image;
}

QImage ReadWithQt(QFile& file, QString& problem)
{
    QImageReader reader(&file);
    reader.setAutoTransform(false);
    const QSize size = reader.size();
    if (size.isValid() && !IsAcceptableSize(size.width(), size.height()))
    {
        problem = QStringLiteral("its size is not acceptable");
        return {};
    }
    // Read into an image of our own: the reader hands out halves of cut files through its return value.
    QImage image;
    if (!reader.read(&image))
    {
        problem = reader.errorString();
        return {};
    }
    return image.format() == QImage::Format_Grayscale16 ? DropLowBytes(image) : image;
}

} // namespace

QImage LoadFrameFile(const QString& path, QString* error)
{
    QString problem;
    QImage image;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
    {
        const std::optional<PgmHeader> header = ReadWidePgmHeader(file.peek(LongestPgmHeader));
        image = header ? ReadWidePgm(file, *header, problem) : ReadWithQt(file, problem);
    }
    else
    {
        problem = file.errorString();
    }
    if (image.isNull() && error)
    {
        *error = QStringLiteral("The image file \"%1\" could not be read: %2.").arg(path, problem);
    }
    return image;
}
