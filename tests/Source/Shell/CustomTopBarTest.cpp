// The title bar: where a dropped window goes, drags and double clicks.
#include "CustomTopBar.h"
#include "WindowSnap.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWindow>

#include <string>

TEST(WindowSnap, TheFirstFittingLineDecides)
{
    // None, Maximised, TopLeft, BottomLeft, Left, TopRight, BottomRight, Right
    const char* const letters = ".MABLCDR";
    const int xs[] = {-1, 0, 1, 9, 10, 990, 991, 999, 1000, 1001, 1002};
    const std::pair<int, std::string> rows[] = {
        {-1, ".LLL..RRRR."},  {0, "MAMMMMMMCC."},   {1, ".AAA..CCCC."},   {9, ".AAA..CCCC."},   {10, ".LLL..RRRR."},
        {690, ".LLL..RRRR."}, {691, ".BBB..DDDD."}, {700, ".BBB..DDDD."}, {701, ".BBB..DDDD."}, {702, "..........."},
    };
    for (const auto& [y, expected] : rows)
    {
        std::string row;
        for (const int x : xs)
        {
            row += letters[static_cast<int>(Lorvane::SnapTargetAt({x, y}, {1001, 701}))];
        }
        EXPECT_EQ(row, expected) << "y = " << y;
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
    const std::pair<QPoint, QRect> cases[] = {
        {{400, 0}, {0, 0, 800, 600}},   {{4, 4}, {0, 0, 400, 300}},       {{4, 300}, {0, 0, 400, 600}},
        {{796, 4}, {400, 0, 400, 300}}, {{796, 300}, {400, 0, 400, 600}},
    };
    for (const auto& [drop, snapped] : cases)
    {
        m_window.setGeometry(Start);
        Drag({300, 10}, drop);
        EXPECT_EQ(m_window.geometry(), snapped);
        EXPECT_EQ(m_window.isMaximized(), drop.y() == 0);
        Press({snapped.width() / 4, 12});
        for (const QPoint cursor : {QPoint(420, 430), QPoint(430, 440)})
        {
            MoveTo(cursor);
            EXPECT_EQ(Local(), QPoint(Start.width() / 4, 12)); // the same relative place on the bar
        }
        Release();
        EXPECT_FALSE(m_window.isMaximized());
        EXPECT_EQ(m_window.size(), Start.size());
    }
}

TEST_F(CustomTopBarTest, BottomCornersKeepNoGeometry)
{
    Drag({300, 10}, {796, 595}); // nothing was ever stored: there is no former size to go back to
    EXPECT_EQ(m_window.geometry(), QRect(400, 300, 400, 300));
    Drag({300, 10}, {300, 300});
    EXPECT_EQ(m_window.size(), QSize(400, 300));
}

TEST_F(CustomTopBarTest, ClickOnTheSnappedWindowKeepsTheWayBack)
{
    Drag({300, 10}, {400, 0});
    for (const QPoint corner : {QPoint(300, 0), QPoint(3, 3), QPoint(3, 3)})
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
