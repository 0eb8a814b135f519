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

// One line for each text that only the sources or only the catalogue has, or that has no context of its own.
QString FaultsAgainstSources(const QString& catalogue, const QString& sources)
{
    const QTemporaryDir folder;
    const QString updated = folder.filePath("updated.ts");
    QProcess lupdate;
    EXPECT_TRUE(QFile::copy(catalogue, updated));
    lupdate.start(LORVANE_LUPDATE, {"-silent", "-locations", "none", sources, "-ts", updated});
    EXPECT_TRUE(lupdate.waitForFinished(120'000) && lupdate.exitCode() == 0);

    QString faults = QString::fromLocal8Bit(lupdate.readAllStandardError());
    for (const Entry& entry : ReadCatalogue(updated))
    {
        const QString fault = entry.type == "unfinished"    ? "Missing or unfinished in the catalogue"
                              : !entry.type.isEmpty()       ? "No longer in the sources"
                              : entry.translation.isEmpty() ? "Empty translation"
                                                            : "";
        faults += fault.isEmpty() ? "" : QString("%1: [%2] \"%3\"\n").arg(fault, entry.context, entry.source);
    }
    return faults;
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

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()) << path.toStdString();
}

} // namespace

TEST(TranslationsComplete, EveryTextOfTheSourcesIsInTheCatalogue)
{
    EXPECT_EQ(FaultsAgainstSources(LORVANE_CATALOGUE, LORVANE_SOURCES).toStdString(), "")
        << "Build the target update-translations and translate what is new in translations/german.ts.";
}

// The check itself must see each kind of gap.
TEST(TranslationsComplete, GapsAreFound)
{
    const QTemporaryDir folder;
    Write(folder.filePath("Panel.cpp"),
          "class Panel : public QWidget { Q_OBJECT\n"
          "    void SetStrings() { tr(\"Present\"); tr(\"Empty\"); tr(\"Draft\"); tr(\"Missing\"); } };\n"
          "class Plain { void SetStrings() { tr(\"Stray\"); } };\n");
    const auto message = [](const QByteArray& source, const QByteArray& translation)
    { return "<message><source>" + source + "</source><translation" + translation + "</translation></message>"; };
    Write(folder.filePath("german.ts"), "<!DOCTYPE TS><TS version='2.1' language='de_DE'><context><name>Panel</name>" +
                                            message("Present", ">Vorhanden") + message("Empty", ">") +
                                            message("Draft", " type='unfinished'>Entwurf") + message("Old", ">Alt") +
                                            "</context></TS>");
    const QString faults = FaultsAgainstSources(folder.filePath("german.ts"), folder.path());
    for (const char* expected :
         {"Empty translation: [Panel] \"Empty\"", "unfinished in the catalogue: [Panel] \"Draft\"",
          "Missing or unfinished in the catalogue: [Panel] \"Missing\"", "No longer in the sources: [Panel] \"Old\"",
          "lacks Q_OBJECT", "\"Stray\""})
    {
        EXPECT_TRUE(faults.contains(expected)) << expected << "\nin\n" << faults.toStdString();
    }
    EXPECT_FALSE(faults.contains("Present")) << faults.toStdString();
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
