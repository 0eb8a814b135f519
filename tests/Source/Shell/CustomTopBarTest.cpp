// The title bar: where a dropped window goes, drags, double clicks; and the shadow widgets.
#include "CustomTopBar.h"
#include "ButtonWithShadow.h"
#include "CheckBoxWithShadow.h"
#include "FrameWithShadow.h"
#include "WindowSnap.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QCursor>
#include <QGraphicsDropShadowEffect>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWindow>

using Lorvane::SnapTarget;

TEST(WindowSnap, TheFirstFittingLineDecides)
{
    const QSize area(1001, 701);
    const struct
    {
        QPoint cursor;
        SnapTarget target;
    } cases[] = {
        {{1, 0}, SnapTarget::Maximised},       {{9, 0}, SnapTarget::Maximised},
        {{999, 0}, SnapTarget::Maximised},     {{-5, 0}, SnapTarget::Maximised},
        {{500, 1}, SnapTarget::None},          {{500, -1}, SnapTarget::None},
        {{0, 0}, SnapTarget::TopLeft},         {{9, 1}, SnapTarget::TopLeft},
        {{9, 9}, SnapTarget::TopLeft},         {{10, 9}, SnapTarget::None},
        {{9, 10}, SnapTarget::Left},           {{0, 690}, SnapTarget::Left},
        {{0, -1}, SnapTarget::Left},           {{0, 691}, SnapTarget::BottomLeft},
        {{9, 701}, SnapTarget::BottomLeft},    {{9, 702}, SnapTarget::None},
        {{-1, 300}, SnapTarget::None},         {{10, 300}, SnapTarget::None},
        {{1000, 0}, SnapTarget::TopRight},     {{1001, 0}, SnapTarget::TopRight},
        {{991, 1}, SnapTarget::TopRight},      {{991, 9}, SnapTarget::TopRight},
        {{990, 9}, SnapTarget::None},          {{991, 10}, SnapTarget::Right},
        {{1001, 690}, SnapTarget::Right},      {{1001, -1}, SnapTarget::Right},
        {{991, 691}, SnapTarget::BottomRight}, {{1001, 701}, SnapTarget::BottomRight},
        {{1001, 702}, SnapTarget::None},       {{1002, 300}, SnapTarget::None},
        {{500, 701}, SnapTarget::None},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(Lorvane::SnapTargetAt(c.cursor, area), c.target) << c.cursor.x() << ' ' << c.cursor.y();
    }
    // An area too small for two edges: the left one comes first.
    EXPECT_EQ(Lorvane::SnapTargetAt({5, 5}, {8, 8}), SnapTarget::TopLeft);
}

TEST(WindowSnap, HalvesAreTakenByIntegerDivision)
{
    const QRect area(100, 30, 1001, 701);
    const struct
    {
        SnapTarget target;
        QRect geometry;
        bool stores;
    } cases[] = {
        {SnapTarget::None, {}, false},
        {SnapTarget::Maximised, area, true},
        {SnapTarget::TopLeft, {100, 30, 500, 350}, true},
        {SnapTarget::BottomLeft, {100, 380, 500, 350}, false},
        {SnapTarget::Left, {100, 30, 500, 701}, true},
        {SnapTarget::TopRight, {600, 30, 500, 350}, true},
        {SnapTarget::BottomRight, {600, 380, 500, 350}, false},
        {SnapTarget::Right, {600, 30, 500, 701}, true},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(Lorvane::SnappedGeometry(c.target, area), c.geometry) << static_cast<int>(c.target);
        EXPECT_EQ(Lorvane::StoresGeometry(c.target), c.stores) << static_cast<int>(c.target);
    }
}

namespace
{

// A window of 360 x 260 with a bar of 30, on the screen of 800 x 600 that the offscreen platform has.
class CustomTopBarTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_window.setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
        m_window.setGeometry(Start);
        m_bar.setGeometry(0, 0, Start.width(), 30);
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    }
    // Where the system cursor stands on the window.
    QPoint Local() const { return m_window.mapFromGlobal(QCursor::pos()); }
    void Press(QPoint local)
    {
        MoveTo(m_window.mapToGlobal(local));
        QTest::mousePress(m_window.windowHandle(), Qt::LeftButton, {}, local);
    }
    void MoveTo(QPoint screen)
    {
        const bool inside = m_window.geometry().contains(screen);
        QCursor::setPos(screen);
        QCoreApplication::processEvents();
        // A display with a grabbed mouse goes on telling of it outside; the offscreen one does not.
        if (!inside)
        {
            QMouseEvent move(QEvent::MouseMove, QPointF(m_bar.mapFromGlobal(screen)), screen, Qt::NoButton,
                             QGuiApplication::mouseButtons(), Qt::NoModifier);
            QCoreApplication::sendEvent(&m_bar, &move);
        }
    }
    void Release() { QTest::mouseRelease(m_window.windowHandle(), Qt::LeftButton, {}, Local()); }
    void Drag(QPoint local, QPoint screen)
    {
        Press(local);
        MoveTo(screen);
        Release();
    }
    void DoubleClick(QPoint local)
    {
        MoveTo(m_window.mapToGlobal(local));
        QTest::mouseDClick(m_window.windowHandle(), Qt::LeftButton, {}, local);
    }

    const QRect Start{150, 200, 360, 260};
    QWidget m_window;
    CustomTopBar m_bar{&m_window};
};

} // namespace

TEST_F(CustomTopBarTest, FollowsTheCursorButNotOutOfTheScreen)
{
    Press({50, 10});
    MoveTo({300, 300});
    MoveTo({310, 330});
    EXPECT_EQ(m_window.geometry(), QRect(260, 320, 360, 260));
    MoveTo({310, 850});
    EXPECT_EQ(QCursor::pos(), QPoint(310, 599)); // put back on the bottom edge
    EXPECT_EQ(m_window.pos(), QPoint(260, 320));
    MoveTo({310, 598});
    EXPECT_EQ(m_window.pos(), QPoint(260, 588));
    MoveTo({310, 400});
    Release();
    MoveTo({500, 500}); // no button is pressed any more
    EXPECT_EQ(m_window.geometry(), QRect(260, 390, 360, 260));
}

TEST_F(CustomTopBarTest, SnapsWhereItIsDroppedAndComesBackUnderTheCursor)
{
    const struct
    {
        QPoint drop;
        QRect snapped;
    } cases[] = {
        {{400, 0}, {0, 0, 800, 600}},   {{4, 4}, {0, 0, 400, 300}},       {{4, 300}, {0, 0, 400, 600}},
        {{796, 4}, {400, 0, 400, 300}}, {{796, 300}, {400, 0, 400, 600}},
    };
    for (const auto& c : cases)
    {
        m_window.setGeometry(Start);
        Drag({300, 10}, c.drop);
        EXPECT_EQ(m_window.geometry(), c.snapped);
        EXPECT_EQ(m_window.isMaximized(), c.snapped.width() == 800);
        Press({c.snapped.width() / 4, 12});
        MoveTo({420, 430});
        EXPECT_FALSE(m_window.isMaximized());
        EXPECT_EQ(m_window.size(), Start.size());
        EXPECT_EQ(Local(), QPoint(Start.width() / 4, 12)); // the same relative place on the bar
        MoveTo({430, 440});
        EXPECT_EQ(Local(), QPoint(Start.width() / 4, 12));
        Release();
        EXPECT_EQ(m_window.size(), Start.size());
    }
}

TEST_F(CustomTopBarTest, BottomCornersKeepNoGeometry)
{
    Drag({300, 10}, {796, 595}); // nothing was ever stored: there is no former size to go back to
    EXPECT_EQ(m_window.geometry(), QRect(400, 300, 400, 300));
    Drag({300, 10}, {300, 300});
    EXPECT_EQ(m_window.size(), QSize(400, 300));

    m_window.setGeometry(Start);
    Drag({300, 10}, {4, 300});
    Drag({300, 10}, {300, 300}); // back at the stored size
    m_window.resize(350, 250);
    Drag({300, 10}, {4, 595});
    EXPECT_EQ(m_window.geometry(), QRect(0, 300, 400, 300));
    Drag({300, 10}, {300, 300});
    EXPECT_EQ(m_window.size(), Start.size()); // that of the drop before
}

TEST_F(CustomTopBarTest, ClickOnTheSnappedWindowKeepsTheWayBack)
{
    Drag({300, 10}, {400, 0});
    for (const QPoint corner : {QPoint(300, 0), QPoint(3, 3)})
    {
        Press(corner);
        Release();
    }
    EXPECT_EQ(m_window.geometry(), QRect(0, 0, 400, 300));
    Drag({100, 15}, {300, 300});
    EXPECT_EQ(m_window.size(), Start.size());
}

TEST_F(CustomTopBarTest, DoubleClickTogglesAndDoesNotMove)
{
    DoubleClick({200, 15});
    EXPECT_TRUE(m_window.isMaximized());
    Press({200, 15});
    MoveTo({210, 20});
    EXPECT_TRUE(m_window.isMaximized()); // the move that follows a double click
    MoveTo({220, 30});
    EXPECT_EQ(m_window.geometry(), QRect(130, 15, 360, 260)); // maximised by no drop: the size before
    Release();

    m_window.showMaximized();
    DoubleClick({200, 0}); // its release, on the topmost line, is no drop
    EXPECT_FALSE(m_window.isMaximized());
}

TEST(ShadowWidgets, HaveTheShadow)
{
    ButtonWithShadow button;
    CheckBoxWithShadow box;
    FrameWithShadow frame;
    for (const QWidget* widget :
         {static_cast<QWidget*>(&button), static_cast<QWidget*>(&box), static_cast<QWidget*>(&frame)})
    {
        const auto* shadow = qobject_cast<QGraphicsDropShadowEffect*>(widget->graphicsEffect());
        ASSERT_NE(shadow, nullptr);
        EXPECT_EQ(shadow->blurRadius(), 10.0);
        EXPECT_EQ(shadow->offset(), QPointF(0.0, 0.0));
        EXPECT_EQ(shadow->color(), QColor(40, 40, 40, 255));
    }
}
