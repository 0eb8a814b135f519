// The compiled-in files: all there, readable, and drawn as they should be.
#include <gtest/gtest.h>

#include <QDirIterator>
#include <QIcon>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>

namespace
{

const QString g_icons = ":/icons/resources/";

QStringList AllIcons()
{
    return QDir(g_icons).entryList(QDir::Files);
}

// The number of pixels that stand out from the panel behind them.
int VisiblePixels(const QPixmap& picture)
{
    QImage drawn(picture.size(), QImage::Format_RGB32);
    drawn.fill(QColor(46, 47, 48));
    QPainter(&drawn).drawPixmap(0, 0, picture);
    const auto* pixels = reinterpret_cast<const QRgb*>(drawn.constBits());
    return int(std::count_if(pixels, pixels + qptrdiff(drawn.width()) * drawn.height(),
                             [](QRgb pixel) { return qGray(pixel) > 47 + 20; }));
}

} // namespace

TEST(CompiledFiles, HoldWhatTheProgramAsksFor)
{
    QStringList names{":/translations/translations/german.qm"};
    for (const char* name :
         {"edit.png", "delete.png", "camera-icon.png", "group-14.png", "group-13.png", "group-13-copy.png",
          "logo-taskbar.png", "Path Copy 3.svg", "Path Copy 4.svg", "welcome_img.svg", "spinner-grey.gif", "Done.svg"})
    {
        names << g_icons + name;
    }
    for (const char* name : {"cameras", "settings", "support", "tool-add", "tool-grab", "tool-erase", "pixel-list"})
    {
        names << g_icons + name + ".svg" << g_icons + name + "-active.svg" << g_icons + name + "-disabled.svg";
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
        EXPECT_GT(QFile(name).size(), 0) << name.toStdString();
    }
}

TEST(CompiledFiles, EveryIconIsVisibleOnThePanels)
{
    const QStringList names = AllIcons();
    EXPECT_GT(names.size(), 60);
    for (const QString& name : names)
    {
        const QIcon icon(g_icons + name);
        for (const int side : {16, 24, 48})
        {
            EXPECT_GT(VisiblePixels(icon.pixmap(QSize(side, side))), side / 3) << name.toStdString() << " at " << side;
        }
    }
}

TEST(CompiledFiles, EveryPictureHasATwinOfTwiceItsSize)
{
    const QStringList names = AllIcons().filter(QRegularExpression("^[^@]*\\.png$"));
    EXPECT_GE(names.size(), 7);
    for (const QString& name : names)
    {
        const QSize size = QImageReader(g_icons + name).size();
        const QSize twin = QImageReader(g_icons + QString(name).replace(".png", "@2x.png")).size();
        EXPECT_TRUE(size.isValid() && twin == 2 * size) << name.toStdString();
    }
}
