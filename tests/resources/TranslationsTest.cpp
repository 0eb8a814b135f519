// The German catalogue: complete, well-formed, and the one that is compiled in.
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>

namespace
{

struct Entry
{
    QString context, source, comment, translation, type;
};

QVector<Entry> ReadCatalogue(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QXmlStreamReader xml(&file);
    QVector<Entry> entries;
    Entry entry;
    while (!xml.atEnd())
    {
        if (xml.readNext() != QXmlStreamReader::StartElement)
        {
            continue;
        }
        if (xml.name() == "name")
        {
            entry.context = xml.readElementText();
        }
        else if (xml.name() == "source")
        {
            entry.source = xml.readElementText();
            entry.comment.clear();
        }
        else if (xml.name() == "comment")
        {
            entry.comment = xml.readElementText();
        }
        else if (xml.name() == "translation") // the last element of a message
        {
            entry.type = xml.attributes().value("type").toString();
            entry.translation = xml.readElementText();
            entries << entry;
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return entries;
}

// Place markers, tags, tabs and line breaks, outer blanks: a translation has the same ones, in any order.
QStringList Marks(const QString& text)
{
    QStringList marks;
    auto match = QRegularExpression("%(L?\\d{1,2}|n)|<[^>]*>|[\\t\\n]|^ +| +$").globalMatch(text);
    while (match.hasNext())
    {
        marks << match.next().captured();
    }
    marks.sort();
    return marks;
}

} // namespace

TEST(TranslationsComplete, EveryTextOfTheSourcesIsInTheCatalogue)
{
    const QTemporaryDir folder;
    const QString updated = folder.filePath("updated.ts");
    QProcess lupdate;
    ASSERT_TRUE(QFile::copy(LORVANE_CATALOGUE, updated));
    lupdate.start(LORVANE_LUPDATE, {"-silent", "-locations", "none", LORVANE_SOURCES, "-ts", updated});
    ASSERT_TRUE(lupdate.waitForFinished(120'000) && lupdate.exitCode() == 0);
    EXPECT_EQ(QString::fromLocal8Bit(lupdate.readAllStandardError()), "") << "texts without a context of their own";
    for (const Entry& entry : ReadCatalogue(updated))
    {
        // "unfinished": only the sources have it; "vanished" or "obsolete": only the catalogue has.
        EXPECT_TRUE(entry.type.isEmpty() && !entry.translation.isEmpty())
            << entry.type.toStdString() << ": [" << entry.context.toStdString() << "] \"" << entry.source.toStdString()
            << "\"\nBuild the target update-translations and translate what is new in translations/german.ts.";
    }
}

TEST(GermanCatalogue, IsCompiledInAsItStandsAndFitsItsSources)
{
    QTranslator german;
    ASSERT_TRUE(german.load(":/translations/translations/german.qm"));
    for (const Entry& entry : ReadCatalogue(LORVANE_CATALOGUE))
    {
        EXPECT_EQ(Marks(entry.source), Marks(entry.translation)) << entry.source.toStdString();
        EXPECT_EQ(german.translate(entry.context.toUtf8(), entry.source.toUtf8(), entry.comment.toUtf8()),
                  entry.translation);
    }
}
