// The compiled-in files: all there and readable.
#include <gtest/gtest.h>

#include <QDirIterator>
#include <QImageReader>
#include <QRegularExpression>

TEST(CompiledFiles, HoldWhatTheProgramAsksFor)
{
    QStringList names{":/translations/translations/german.qm"};
    const QString icons = ":/icons/resources/";
    for (const char* name :
         {"edit.png", "delete.png", "camera-icon.png", "group-14.png", "group-13.png", "group-13-copy.png",
          "logo-taskbar.png", "Path Copy 3.svg", "Path Copy 4.svg", "welcome_img.svg", "spinner-grey.gif", "Done.svg"})
    {
        names << icons + name;
    }
    for (const char* name : {"cameras", "settings", "support", "tool-add", "tool-grab", "tool-erase", "pixel-list"})
    {
        names << icons + name + ".svg" << icons + name + "-active.svg" << icons + name + "-disabled.svg";
    }
    const QRegularExpression quoted(":/(icons|fonts|translations)/[^'\"()%]*\\.(svg|png|gif|ttf|qm)");
    QDirIterator sources(LORVANE_SOURCES, {"*.cpp", "*.h", "*.ui"}, QDir::Files, QDirIterator::Subdirectories);
    while (sources.hasNext())
    {
        QFile source(sources.next());
        ASSERT_TRUE(source.open(QIODevice::ReadOnly));
        auto match = quoted.globalMatch(QString::fromUtf8(source.readAll()));
        while (match.hasNext())
        {
            names << match.next().captured();
        }
    }
    for (const QString& name : names)
    {
        const bool isPicture = name.startsWith(icons);
        EXPECT_TRUE(isPicture ? QImageReader(name).canRead() : QFile(name).size() > 0) << name.toStdString();
    }
}
