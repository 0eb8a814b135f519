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

QImage Centre(const QImage& image)
{
    return image.copy(image.width() / 2 - 32, image.height() / 2 - 16, 64, 32);
}

QImage TextImage(const LoaderDialog& loader, const QString& text)
{
    QLabel& ring = RingLabel(loader);
    QImage image(ring.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(ring.font());
    painter.setPen(Qt::white);
    painter.drawText(ring.rect(), Qt::AlignCenter, text);
    painter.end();
    return Centre(image);
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
    constexpr QRgb Grey = qRgba(92, 92, 92, 255);
    constexpr QRgb White = qRgba(255, 255, 255, 255);
    const struct
    {
        int steps;
        int displayed;
        const char* percentage;
        double white; // an angle that the arc covers, negative: none
        double grey;
    } cases[] = {
        {0, 1, "", -1, 1},       {3, 1, "33%", 117, 123},    {3, 2, "66%", 237, 243}, {3, 3, "100%", 358.5, -1},
        {7, 1, "14%", 49, 53},   {7, 7, "100%", 355, 358.5}, // 7 x 51 degrees: a gap of 3 stays
        {3, 5, "100%", 200, -1}, {200, 58, "29%", 56, 60},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.steps << " steps, " << c.displayed << " displayed");
        LoaderDialog loader(nullptr, QStringLiteral("Loading"));
        for (int i = 0; i < c.steps; ++i)
        {
            loader.PushBackToList(QStringLiteral("step"));
        }
        for (int i = 0; i < c.displayed; ++i)
        {
            loader.DisplayNextStepInformation();
        }
        const QImage ring = RingLabel(loader).pixmap(Qt::ReturnByValue).toImage();
        EXPECT_EQ(Centre(ring), TextImage(loader, QString::fromLatin1(c.percentage)));
        if (c.white >= 0)
        {
            EXPECT_EQ(RingColour(loader, c.white), White);
        }
        if (c.grey >= 0)
        {
            EXPECT_EQ(RingColour(loader, c.grey), Grey);
        }
        EXPECT_EQ(qAlpha(ring.pixel(0, 0)), 0);
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
    loader.DisplayNextStepInformation();
    loader.DisplayNextStepInformation();
    EXPECT_EQ(StepTexts(loader), QStringList({"Reading..." + Done, "Showing '%1'..." + Done}));
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
        for (const QLabel* label : loader.findChildren<QLabel*>())
        {
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
        }
        QTest::keyClick(&loader, Qt::Key_Escape);
        loader.windowHandle()->close(); // what a window manager asks for
        EXPECT_TRUE(loader.isVisible());
        loader.close();
        EXPECT_FALSE(loader.isVisible());
    }
}
