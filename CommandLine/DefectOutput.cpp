#include "DefectOutput.h"

#include "Exception.h"
#include "JsonOutput.h"
#include "PixelListXml.h"

#include <QFile>
#include <QSaveFile>

#include <iostream>

namespace CommandLine
{

nlohmann::ordered_json ToJson(const QVector<DefectInfo>& defects)
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const DefectInfo& defect : defects)
    {
        list.push_back({{"type", defect.type},
                        {"x", defect.x},
                        {"y", defect.y},
                        {"width", defect.width},
                        {"height", defect.height}});
    }
    return list;
}

void PrintDefects(const QVector<DefectInfo>& defects, const std::string& xmlFile, const Request& request)
{
    if (!xmlFile.empty())
    {
        WriteWholeFile(xmlFile, ToXml(defects));
        std::cerr << defects.size() << " defects written to " << xmlFile << '\n';
    }
    if (request.json)
    {
        PrintJson({{"defects", ToJson(defects)}});
    }
    else if (xmlFile.empty())
    {
        for (const DefectInfo& defect : defects)
        {
            std::cout << defect.type << ' ' << defect.x << ' ' << defect.y << ' ' << defect.width << ' '
                      << defect.height << '\n';
        }
    }
}

void WriteWholeFile(const std::string& path, const QByteArray& bytes)
{
    QSaveFile file(QString::fromLocal8Bit(path.c_str()));
    // Where no file can be made beside the target, as for a device, the target itself is written.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
    {
        throw KTR::System::Exception(
            "The file " + path + " could not be written: " + file.errorString().toStdString() + ".", true);
    }
}

QByteArray ReadWholeFile(const std::string& path)
{
    QFile file(QString::fromLocal8Bit(path.c_str()));
    if (!file.open(QIODevice::ReadOnly))
    {
        throw KTR::System::Exception(
            "The file " + path + " could not be read: " + file.errorString().toStdString() + ".", true);
    }
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
    {
        throw KTR::System::Exception(
            "The file " + path + " could not be read: " + file.errorString().toStdString() + ".", true);
    }
    return bytes;
}

} // namespace CommandLine
