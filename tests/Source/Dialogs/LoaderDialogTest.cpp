// The loader: its ring, its steps, and that only the program closes it.
#include "LoaderDialog.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <QWindow>
#include <QtMath>

#include <tuple>

namespace
{

const QString Open = QStringLiteral("\t<img src=':/icons/resources/Path Copy 3.svg'/>");
const QString Done = QStringLiteral("\t<img src=':/icons/resources/Path Copy 4.svg'/>");

struct Loader : LoaderDialog
{
    explicit Loader(int steps = 0, int displayed = 0) : LoaderDialog(nullptr, QStringLiteral("Loading"))
    {
        for (int i = 0; i < steps; ++i)
        {
            PushBackToList(QStringLiteral("step"));
        }
        for (int i = 0; i < displayed; ++i)
        {
            DisplayNextStepInformation();
        }
    }
    QImage Ring() const { return findChild<QLabel*>(QStringLiteral("ringLabel"))->pixmap(Qt::ReturnByValue).toImage(); }
    // Of the ring's middle line at an angle in degrees, clockwise from the top.
    QRgb Colour(double angle) const
    {
        const double centre = Ring().width() / 2.0;
        const double radians = qDegreesToRadians(angle);
        return Ring().pixel(qFloor(centre + (centre - 4) * qSin(radians)),
                            qFloor(centre - (centre - 4) * qCos(radians)));
    }
    // The middle of the ring.
    QImage Text() const { return Ring().copy(Ring().width() / 2 - 32, Ring().height() / 2 - 16, 64, 32); }
};

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
    EXPECT_NE(Loader(100, 29).Text(), Loader(100, 28).Text());
    // Steps, steps displayed, the percentage, an angle that the arc covers and one that it does not; negative: none.
    const std::tuple<int, int, int, double, double> cases[] = {{3, 2, 66, 237, 243},
                                                               {3, 3, 100, 358.5, -1},
                                                               {3, 5, 100, 200, -1},
                                                               {7, 7, 100, 355, 358.5},
                                                               {200, 58, 29, 56, 60}};
    for (const auto& [steps, displayed, percentage, white, grey] : cases)
    {
        SCOPED_TRACE(testing::Message() << steps << " steps, " << displayed << " displayed");
        const Loader loader(steps, displayed);
        EXPECT_EQ(loader.Text(), Loader(100, percentage).Text());
        EXPECT_EQ(loader.Colour(white), qRgba(255, 255, 255, 255));
        EXPECT_TRUE(grey < 0 || loader.Colour(grey) == qRgba(92, 92, 92, 255));
    }
    EXPECT_EQ(Loader(0, 1).Colour(1), qRgba(92, 92, 92, 255)) << "no steps";
}

TEST(LoaderDialog, StepsAreMarkedOneByOneAndForgotten)
{
    Loader loader;
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
