// The two small files that the program keeps in its working directory.
#include "CamerasInfoWriterReader.h"

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QXmlStreamReader>

#include <algorithm>

namespace
{

constexpr qint64 LargestCache = 1'048'576; // bytes; room for more than ten thousand cameras
constexpr int DeepestNesting = 16;         // a cache needs 3

QString CacheName()
{
    return QStringLiteral("Lorvane.cache");
}

// The document tree is built and destroyed recursively, so that depth and entities are looked at beforehand.
bool IsHarmless(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    int depth = 0;
    while (!reader.atEnd())
    {
        const QXmlStreamReader::TokenType token = reader.readNext();
        depth += token == QXmlStreamReader::StartElement ? 1 : 0;
        depth -= token == QXmlStreamReader::EndElement ? 1 : 0;
        if (token == QXmlStreamReader::DTD || depth > DeepestNesting)
        {
            return false;
        }
    }
    return !reader.hasError();
}

bool ReadCache(QDomDocument& document)
{
    QFile file(CacheName());
    // A pipe or a device of that name would never end, and has no size.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
    {
        return false;
    }
    const QByteArray bytes = file.read(LargestCache + 1);
    return bytes.size() <= LargestCache && IsHarmless(bytes) && document.setContent(bytes);
}

// An identifier that does not come back from the file as it went in would make every further run examine its camera
// anew and remember it once more, or spoil the whole file.
bool CanBeWritten(const QString& text, const std::string& id)
{
    return !text.isEmpty() && text.toStdString() == id &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint() || c.isSurrogate(); });
}

constexpr const char* ConfigurationName = "Lorvane.ini";
constexpr const char* ConfigurationGroup = "info";
constexpr const char* TutorialKey = "TutorialFinished";
constexpr const char* DetectionKey = "AutomaticDetection";

void ReadFlag(const QSettings& settings, const char* key, bool& flag)
{
    const QString name = QLatin1String(key);
    if (settings.contains(name))
    {
        flag = settings.value(name).toBool();
    }
}

} // namespace

void CamerasInfoWriterReader::GetInformationFromFile(std::vector<CameraAccessInfo>& infos) const
{
    QDomDocument document;
    if (!ReadCache(document))
    {
        return;
    }
    const QDomNodeList cameras = document.firstChildElement().elementsByTagName(QStringLiteral("Camera"));
    for (int i = 0; i < cameras.size(); ++i)
    {
        const QDomElement camera = cameras.at(i).toElement();
        if (camera.isNull())
        {
            continue;
        }
        const QDomElement support = camera.elementsByTagName(QStringLiteral("Support")).at(0).toElement();
        const QString id = camera.attribute(QStringLiteral("ID"));
        if (support.isNull() || id.isEmpty())
        {
            infos.clear();
            return;
        }
        infos.push_back({support.attribute(QStringLiteral("DPC")).toInt() != 0, id.toStdString()});
    }
}

void CamerasInfoWriterReader::SetInformationToFile(const std::vector<CameraAccessInfo>& infos) const
{
    if (infos.empty())
    {
        return;
    }
    QDomDocument document;
    QDomElement data = document.createElement(QStringLiteral("Data"));
    document.appendChild(data);
    for (const CameraAccessInfo& info : infos)
    {
        const QString id = QString::fromStdString(info.id);
        if (CanBeWritten(id, info.id))
        {
            QDomElement camera = document.createElement(QStringLiteral("Camera"));
            QDomElement support = document.createElement(QStringLiteral("Support"));
            camera.setAttribute(QStringLiteral("ID"), id);
            support.setAttribute(QStringLiteral("DPC"), info.dpcSupported ? 1 : 0);
            camera.appendChild(support);
            data.appendChild(camera);
        }
    }
    QSaveFile file(CacheName());
    if (file.open(QIODevice::WriteOnly | QIODevice::Text))
    {
        file.write(document.toString(1).toUtf8());
        file.commit();
    }
}

void CamerasInfoWriterReader::GetConfigInfo(bool& tutorialFinished, bool& automaticDetection) const
{
    QSettings settings(QLatin1String(ConfigurationName), QSettings::IniFormat);
    settings.beginGroup(QLatin1String(ConfigurationGroup));
    ReadFlag(settings, TutorialKey, tutorialFinished);
    ReadFlag(settings, DetectionKey, automaticDetection);
}

void CamerasInfoWriterReader::SetConfigInfo(bool tutorialFinished, bool automaticDetection) const
{
    QSettings settings(QLatin1String(ConfigurationName), QSettings::IniFormat);
    settings.beginGroup(QLatin1String(ConfigurationGroup));
    settings.setValue(QLatin1String(TutorialKey), tutorialFinished);
    settings.setValue(QLatin1String(DetectionKey), automaticDetection);
}
