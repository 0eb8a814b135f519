// The German catalogue: complete, well-formed, and the one that is compiled in.
#include "Catalogue.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTranslator>

namespace
{

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()) << path.toStdString();
}

} // namespace

TEST(TranslationsComplete, EveryTextOfTheSourcesIsInTheCatalogue)
{
    EXPECT_EQ(FaultsAgainstSources(LORVANE_CATALOGUE, LORVANE_SOURCES).join('\n').toStdString(), "")
        << "Build the target update-translations and translate what is new in translations/german.ts.";
}

// The check itself: what has to be reported, and nothing else.
TEST(TranslationsComplete, GapsAreFound)
{
    const QTemporaryDir folder;
    Write(folder.filePath("Panel.cpp"),
          "class Panel : public QWidget\n{\n    Q_OBJECT\n    void SetStrings()\n    {\n"
          "        tr(\"Present\"); tr(\"Empty\"); tr(\"Draft\"); tr(\"Missing\");\n    }\n};\n"
          "class Plain\n{\n    void SetStrings() { tr(\"Stray\"); }\n};\n");
    Write(folder.filePath("german.ts"),
          "<!DOCTYPE TS><TS version='2.1' language='de_DE'><context><name>Panel</name>"
          "<message><source>Present</source><translation>Vorhanden</translation></message>"
          "<message><source>Empty</source><translation></translation></message>"
          "<message><source>Draft</source><translation type='unfinished'>Entwurf</translation></message>"
          "<message><source>Old words</source><translation>Alte Worte</translation></message></context></TS>");
    const QStringList faults = FaultsAgainstSources(folder.filePath("german.ts"), folder.path());
    const QString all = faults.join('\n');
    for (const char* expected :
         {"Empty translation: [Panel] \"Empty\"", "Missing or unfinished in the catalogue: [Panel] \"Draft\"",
          "Missing or unfinished in the catalogue: [Panel] \"Missing\"",
          "No longer in the sources: [Panel] \"Old words\"", "lacks Q_OBJECT", "\"Stray\""})
    {
        EXPECT_TRUE(all.contains(expected)) << expected << "\nin\n" << all.toStdString();
    }
    EXPECT_FALSE(all.contains("Present")) << all.toStdString();
}

TEST(TranslationsComplete, MisfitsAreFound)
{
    EXPECT_EQ(Misfit("<b>%1</b> of %2\n", "%2 von <b>%1</b>\n").toStdString(), "");
    for (const auto& [source, translation] :
         {std::pair("%1 of %2", "%1 von %1"), std::pair("<b>Scale</b>", "<b>Skala<b>"), std::pair("Step\t", "Schritt"),
          std::pair("Set ", "Satz")})
    {
        EXPECT_FALSE(Misfit(source, translation).isEmpty()) << source;
    }
}

TEST(GermanCatalogue, IsCompiledInAsItStandsAndFitsItsSources)
{
    const QVector<CatalogueEntry> entries = ReadCatalogue(LORVANE_CATALOGUE);
    QTranslator german;
    EXPECT_EQ(german.load(":/translations/translations/german.qm"), !entries.isEmpty());
    for (const CatalogueEntry& entry : entries)
    {
        EXPECT_EQ(Misfit(entry.source, entry.translation).toStdString(), "");
        EXPECT_EQ(german.translate(entry.context.toUtf8(), entry.source.toUtf8(), entry.comment.toUtf8()).toStdString(),
                  entry.translation.toStdString());
    }
}
