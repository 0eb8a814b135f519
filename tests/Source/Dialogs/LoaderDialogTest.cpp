// The loader: its ring, its steps, and that only the program closes it.
#include "LoaderDialog.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QTest>
#include <QWindow>
#include <QtMath>

#include <tuple>

namespace
{

const QString Open = QStringLiteral("\t<img src=':/icons/resources/Path Copy 3.svg'/>");
const QString Done = QStringLiteral("\t<img src=':/icons/resources/Path Copy 4.svg'/>");

QLabel& RingLabel(const LoaderDialog& loader)
{
    return *loader.findChild<QLabel*>(QStringLiteral("ringLabel"));
}

// Of the ring's middle line at an angle in degrees, clockwise from the top.
QRgb RingColour(const LoaderDialog& loader, double angle)
{
    const QImage image = RingLabel(loader).pixmap(Qt::ReturnByValue).toImage();
    const double radius = (image.width() - 8) / 2.0;
    const double centre = image.width() / 2.0;
    const double radians = qDegreesToRadians(angle);
    return image.pixel(qFloor(centre + radius * qSin(radians)), qFloor(centre - radius * qCos(radians)));
}

// The middle of the ring, or how it looks with a text.
QImage Centre(const LoaderDialog& loader, const char* text = nullptr)
{
    const QLabel& ring = RingLabel(loader);
    QPixmap pixmap = ring.pixmap(Qt::ReturnByValue);
    if (text != nullptr)
    {
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setFont(ring.font());
        painter.setPen(Qt::white);
        painter.drawText(ring.rect(), Qt::AlignCenter, QString::fromLatin1(text));
    }
    return pixmap.copy(ring.width() / 2 - 32, ring.height() / 2 - 16, 64, 32).toImage();
}

QStringList StepTexts(const LoaderDialog& loader)
{
    QStringList texts;
    for (const QLabel* label : loader.findChild<QWidget*>(QStringLiteral("contentWidget"))->findChildren<QLabel*>())
    {
        texts << label->text();
    }
    return texts;
}

} // namespace

TEST(LoaderDialog, RingShowsTheShareInWholePercentAndDegrees)
{
    // Steps, steps displayed, percentage, an angle that the arc covers and one that it does not; negative: none.
    const std::tuple<int, int, const char*, double, double> cases[] = {
        {0, 1, "", -1, 1},       {3, 2, "66%", 237, 243},    {3, 3, "100%", 358.5, -1},
        {3, 5, "100%", 200, -1}, {7, 7, "100%", 355, 358.5}, {200, 58, "29%", 56, 60},
    };
    for (const auto& [steps, displayed, percentage, white, grey] : cases)
    {
        SCOPED_TRACE(testing::Message() << steps << " steps, " << displayed << " displayed");
        LoaderDialog loader(nullptr, QStringLiteral("Loading"));
        for (int i = 0; i < steps; ++i)
        {
            loader.PushBackToList(QStringLiteral("step"));
        }
        for (int i = 0; i < displayed; ++i)
        {
            loader.DisplayNextStepInformation();
        }
        EXPECT_EQ(Centre(loader), Centre(loader, percentage));
        EXPECT_TRUE(white < 0 || RingColour(loader, white) == qRgba(255, 255, 255, 255));
        EXPECT_TRUE(grey < 0 || RingColour(loader, grey) == qRgba(92, 92, 92, 255));
    }
}

TEST(LoaderDialog, StepsAreMarkedOneByOneAndForgotten)
{
    LoaderDialog loader(nullptr, QStringLiteral("Loading"));
    loader.PushBackToList(QStringLiteral("Reading..."));
    loader.PushBackToList(QStringLiteral("Showing '%1'..."));
    EXPECT_EQ(StepTexts(loader), QStringList({"Reading..." + Open, "Showing '%1'..." + Open}));
    loader.DisplayNextStepInformation();
    EXPECT_EQ(StepTexts(loader), QStringList({"Reading..." + Done, "Showing '%1'..." + Open}));
    loader.ClearInfoList();
    EXPECT_TRUE(StepTexts(loader).isEmpty());
    loader.PushBackToList(QStringLiteral("Again..."));
    loader.DisplayNextStepInformation(); // the index begins anew
    EXPECT_EQ(StepTexts(loader), QStringList("Again..." + Done));
}

TEST(LoaderDialog, OnlyTheProgramClosesIt)
{
    QWidget window;
    window.setGeometry(100, 100, 600, 500);
    window.show();
    LoaderDialog loader(&window, QStringLiteral("Loading"));
    for (int round = 0; round < 2; ++round)
    {
        loader.PushBackToList(QStringLiteral("A step whose text needs more than one line of the small window..."));
        loader.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&loader));
        EXPECT_EQ(loader.geometry().center(), window.geometry().center());
        EXPECT_EQ(loader.windowModality(), Qt::ApplicationModal);
        QTest::keyClick(&loader, Qt::Key_Escape);
        loader.windowHandle()->close(); // what a window manager asks for
        EXPECT_TRUE(loader.isVisible());
        loader.close();
        EXPECT_FALSE(loader.isVisible());
    }
}
