// The entries of a translation catalogue, and what is wrong with them.
#include "Catalogue.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

QVector<CatalogueEntry> ReadCatalogue(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QXmlStreamReader xml(&file);
    QVector<CatalogueEntry> entries;
    QString context;
    while (!xml.atEnd())
    {
        if (xml.readNext() != QXmlStreamReader::StartElement)
        {
            continue;
        }
        if (xml.name() == "name")
        {
            context = xml.readElementText();
        }
        else if (xml.name() == "message")
        {
            entries.push_back({context, {}, {}, {}, {}});
        }
        else if (xml.name() == "source")
        {
            entries.back().source = xml.readElementText();
        }
        else if (xml.name() == "comment")
        {
            entries.back().comment = xml.readElementText();
        }
        else if (xml.name() == "translation")
        {
            entries.back().type = xml.attributes().value("type").toString();
            entries.back().translation = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return entries;
}

QStringList FaultsAgainstSources(const QString& catalogue, const QString& sources)
{
    const QTemporaryDir folder;
    const QString updated = folder.filePath("updated.ts");
    QProcess lupdate;
    if (!QFile::copy(catalogue, updated) || !QFile::setPermissions(updated, QFile::ReadOwner | QFile::WriteOwner))
    {
        return {"The catalogue could not be copied."};
    }
    lupdate.start(LORVANE_LUPDATE, {"-silent", "-locations", "none", sources, "-ts", updated});
    if (!lupdate.waitForFinished(120'000) || lupdate.exitCode() != 0)
    {
        return {"lupdate failed: " + lupdate.errorString()};
    }

    QStringList faults = QString::fromLocal8Bit(lupdate.readAllStandardError()).split('\n', Qt::SkipEmptyParts);
    for (const CatalogueEntry& entry : ReadCatalogue(updated))
    {
        const QString where = QString(" [%1] \"%2\"").arg(entry.context, entry.source);
        if (entry.type == "vanished" || entry.type == "obsolete")
        {
            faults << "No longer in the sources:" + where;
        }
        else if (!entry.type.isEmpty())
        {
            faults << "Missing or unfinished in the catalogue:" + where;
        }
        else if (entry.translation.isEmpty())
        {
            faults << "Empty translation:" + where;
        }
    }
    return faults;
}

QString Misfit(const QString& source, const QString& translation)
{
    const std::pair<const char*, const char*> kinds[] = {{"place markers", "%(L?\\d{1,2}|n)"},
                                                         {"tags", "<[^>]*>"},
                                                         {"tabs and line breaks", "[\\t\\n]"},
                                                         {"outer blanks", "^ +| +$"}};
    for (const auto& [name, pattern] : kinds)
    {
        const auto found = [&pattern = pattern](const QString& text)
        {
            QStringList all;
            auto match = QRegularExpression(pattern).globalMatch(text);
            while (match.hasNext())
            {
                all << match.next().captured();
            }
            all.sort();
            return all;
        };
        if (found(source) != found(translation))
        {
            return QString("%1 differ: \"%2\" / \"%3\"").arg(name, source, translation);
        }
    }
    return {};
}
