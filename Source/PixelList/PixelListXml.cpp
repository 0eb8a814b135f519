// Pixel list files: a list of defects as XML.
#include "PixelListXml.h"

#include "DefectUiType.h"
#include "PixelListXmlHandler.h"
#include "TreeModel.h"

#include <QFile>
#include <QSaveFile>
#include <QSet>
#include <QXmlStreamWriter>

#include <algorithm>

namespace
{

// The column may equal the sensor's width and the row its height, and an entry may reach over the sensor's edge: files
// that were accepted once stay acceptable.
bool FitsSensor(const DefectInfo& info, int width, int height)
{
    return info.x >= 0 && info.x <= width && info.y >= 0 && info.y <= height && info.width >= 1 &&
           info.width <= width && info.height >= 1 && info.height <= height;
}

bool IsAllowedType(int type, const std::vector<int>& allowedTypes)
{
    return type >= DefectUiType::SinglePixel && type <= DefectUiType::Row &&
           std::find(allowedTypes.begin(), allowedTypes.end(), type) != allowedTypes.end();
}

void WriteEmptyElement(QXmlStreamWriter& writer, const QString& name, const QString& attribute, int value)
{
    writer.writeStartElement(name);
    writer.writeAttribute(attribute, QString::number(value));
    writer.writeEndElement();
}

void WritePixel(QXmlStreamWriter& writer, const DefectInfo& info)
{
    writer.writeStartElement(QStringLiteral("Pixel"));
    writer.writeAttribute(QStringLiteral("LP:"), QString::number(qint64{info.number} + 1));
    WriteEmptyElement(writer, QStringLiteral("Type"), QStringLiteral("Type:"), info.type);
    writer.writeStartElement(QStringLiteral("Data"));
    writer.writeStartElement(QStringLiteral("Coordinates"));
    writer.writeAttribute(QStringLiteral("x:"), QString::number(info.x));
    writer.writeAttribute(QStringLiteral("y:"), QString::number(info.y));
    writer.writeEndElement();
    WriteEmptyElement(writer, QStringLiteral("Width"), QStringLiteral("width:"), info.width);
    WriteEmptyElement(writer, QStringLiteral("Height"), QStringLiteral("height:"), info.height);
    writer.writeEndElement();
    writer.writeEndElement();
}

} // namespace

QByteArray ToXml(const QVector<DefectInfo>& list)
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(1);
    writer.writeStartElement(QStringLiteral("Camera"));
    for (const DefectInfo& info : list)
    {
        WritePixel(writer, info);
    }
    writer.writeEndElement();
    return bytes;
}

void SaveAsXmlImpl(const QString& path, const QVector<DefectInfo>& list)
{
    if (list.isEmpty())
    {
        return;
    }
    QSaveFile file(path);
    // A file that may be written in a folder that may not is still written, in place.
    file.setDirectWriteFallback(true);
    if (file.open(QIODevice::WriteOnly))
    {
        file.write(ToXml(list));
        file.commit();
    }
}

std::optional<QVector<DefectInfo>> ReadXmlPixelList(const QString& path, int width, int height,
                                                    const std::vector<int>& allowedTypes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
    {
        return std::nullopt;
    }
    const std::optional<QVector<DefectInfo>> entries = ParsePixelListXml(file);
    if (!entries || entries->isEmpty())
    {
        return std::nullopt;
    }
    return AcceptEntries(*entries, width, height, allowedTypes);
}

bool LoadFromXmlImpl(const QString& path, TreeModel* model, int width, int height, const std::vector<int>& allowedTypes)
{
    model->clear();
    const std::optional<QVector<DefectInfo>> list = ReadXmlPixelList(path, width, height, allowedTypes);
    if (!list)
    {
        return false;
    }
    for (const DefectInfo& info : *list)
    {
        model->addDefectItem(info.x, info.y, info.width, info.height, info.type, DefectInfo::NewColor);
    }
    return true;
}

std::optional<QVector<DefectInfo>> AcceptEntries(const QVector<DefectInfo>& entries, int width, int height,
                                                 const std::vector<int>& allowedTypes)
{
    QVector<DefectInfo> list;
    QSet<QPair<int, int>> taken;
    for (DefectInfo entry : entries)
    {
        if (!FitsSensor(entry, width, height) || !IsAllowedType(entry.type, allowedTypes))
        {
            return std::nullopt;
        }
        if (!taken.contains({entry.x, entry.y}))
        {
            taken.insert({entry.x, entry.y});
            entry.number = list.size();
            list.append(entry);
        }
    }
    return list;
}
