#include "ImageFile.h"

#include "DefectOutput.h"
#include "Exception.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>

namespace CommandLine
{

void SaveImage(const QImage& image, const std::string& path)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, QFileInfo(QString::fromLocal8Bit(path.c_str())).suffix().toLatin1());
    if (!writer.write(image))
    {
        throw KTR::System::Exception(
            "The image " + path + " could not be written: " + writer.errorString().toStdString() + ".", true);
    }
    WriteWholeFile(path, buffer.data());
}

} // namespace CommandLine
