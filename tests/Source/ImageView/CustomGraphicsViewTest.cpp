// Tests of the image view: mouse tools, zoom and markers, with real events.
#include "CustomGraphicsView.h"
#include "SentEvents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>

#include <cmath>
#include <tuple>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int Width = 210;
constexpr int Height = 110;
const QColor NewColour(57, 130, 223);
const QColor CameraColour(37, 171, 37);

using Defect = std::tuple<double, double, int, int, int>; // x, y, width, height, kind

// A sensor of which each pixel's colour is its position, shown one to one in the top-left corner of the view's range.
class ImageViewTest : public testing::Test
{
protected:
    ImageViewTest()
    {
        QImage image(Width, Height, QImage::Format_RGB32);
        for (int i = 0; i < Width * Height; ++i)
        {
            image.setPixel(i % Width, i / Width, qRgb(i % Width, i / Width, 128));
        }
        scene.addPixmap(QPixmap::fromImage(image));
        scene.setSceneRect(image.rect());
        view.setScene(&scene);
        view.SetSizes(Width, Height);
        view.resize(80, 60);
        view.show();
        view.UpdateSceneRectFromMinimap(0, 0);
        QObject::connect(&view, &CustomGraphicsView::SendPressedMousePos, &view,
                         [this](QPointF& point, int width, int height, int kind)
                         { defects.emplace_back(point.x(), point.y(), width, height, kind); });
        QObject::connect(&view, &CustomGraphicsView::SendDeleteSignal, &view,
                         [this](QPointF point) { rubbed.append(point); });
        QObject::connect(&view, &CustomGraphicsView::SendScaleFactor, &view,
                         [this](double scale) { scales.push_back(scale); });
    }

    void Send(QEvent::Type type, QPointF position, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        SendMouse(*view.viewport(), type, position, button, buttons);
    }
    void Press(QPointF position) { Send(QEvent::MouseButtonPress, position, Qt::LeftButton, Qt::LeftButton); }
    void Move(QPointF position) { Send(QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton); }
    void Release(QPointF position) { Send(QEvent::MouseButtonRelease, position, Qt::LeftButton, Qt::NoButton); }
    void Wheel(QPoint position, int delta) { SendWheel(*view.viewport(), position, delta); }
    // The first place of the widget that shows the pixel.
    QPoint PlaceOf(QPoint pixel)
    {
        const QPointF corner = view.viewportTransform().map(QPointF(pixel));
        return {static_cast<int>(std::ceil(corner.x())), static_cast<int>(std::ceil(corner.y()))};
    }
    QPointF ViewMiddle() { return view.mapToScene(view.viewport()->rect().center()); }

    // The rectangles in the scene, in the order in which they were added.
    QVector<QGraphicsRectItem*> Rectangles()
    {
        QVector<QGraphicsRectItem*> rectangles;
        const auto items = scene.items(Qt::AscendingOrder);
        for (QGraphicsItem* item : items)
        {
            if (auto* rectangle = qgraphicsitem_cast<QGraphicsRectItem*>(item))
            {
                rectangles.append(rectangle);
            }
        }
        return rectangles;
    }
    std::vector<int> MarkerColumns()
    {
        std::vector<int> columns;
        for (const QGraphicsRectItem* item : Rectangles())
        {
            columns.push_back(static_cast<int>(item->rect().x()));
        }
        return columns;
    }
    void AddMarkers(std::initializer_list<int> columns)
    {
        for (const int column : columns)
        {
            view.AddNewRectToScene(QRect(column, 5, 1, 1), 0);
        }
    }

    QGraphicsScene scene;
    CustomGraphicsView view;
    std::vector<Defect> defects;
    std::vector<double> scales;
    QVector<QPointF> rubbed;
};

TEST_F(ImageViewTest, DragBecomesDefect)
{
    const std::tuple<QPoint, QPoint, std::vector<Defect>> cases[] = {
        {{12, 13}, {12, 13}, {{12, 13, 1, 1, 0}}},
        {{10, 10}, {11, 11}, {{10, 10, 1, 1, 0}}},
        {{11, 20}, {10, 10}, {{10, 10, 1, 10, 1}}},
        {{10, 10}, {15, 11}, {{10, 10, 5, 1, 2}}},
        {{16, 15}, {10, 10}, {{10, 10, 6, 5, 3}}},
        {{10, 10}, {10, 20}, {}},
        {{10, 10}, {11, 10}, {}}, // no height, no pixel column
        {{3, 3}, {0, 8}, {}},     // the pointer's first column does not stretch the selection
    };
    view.ChangeCurrentCursor(1);
    for (const double scale : {1.0, 9.5})
    {
        view.ResetView();
        view.setTransform(QTransform::fromScale(scale, scale));
        view.centerOn(10, 10);
        for (const auto& [from, to, expected] : cases)
        {
            defects.clear();
            Press(PlaceOf(from));
            EXPECT_EQ(Rectangles().size(), 1);
            Move(PlaceOf(from + QPoint(30, 2)));
            Move(PlaceOf(from));
            Move(PlaceOf(to));
            Release(PlaceOf(to));
            EXPECT_EQ(defects, expected) << scale << " to " << to.x() << "," << to.y();
            EXPECT_EQ(Rectangles().size(), 0);
        }
    }
    for (const auto& [sceneSize, to, expected] :
         {std::tuple(QSize(Width, 7), QPoint(11, 17), Defect(10, 10, 1, 7, 4)),
          std::tuple(QSize(7, Height), QPoint(17, 12), Defect(10, 10, 7, 2, 5))})
    {
        scene.setSceneRect(QRect(QPoint(0, 0), sceneSize));
        Press(PlaceOf({10, 10}));
        Move(PlaceOf(to));
        Release(PlaceOf(to));
        EXPECT_EQ(defects.back(), expected) << "as high or as wide as the scene";
    }
}

TEST_F(ImageViewTest, PixelUnderPointerAtScreenScale)
{
    view.ChangeCurrentCursor(2);
    view.resize(150, 90);
    for (int step = 0; step < 11; ++step)
    {
        const QImage shown = view.viewport()->grab().toImage();
        const double ratio = shown.devicePixelRatioF();
        const double scale = view.ReturnCurrentScale();
        int compared = 0;
        for (int deviceY = 2; deviceY < 60 * ratio; deviceY += 3)
        {
            for (int deviceX = 2; deviceX < 100 * ratio; ++deviceX)
            {
                const double x = deviceX / ratio;
                const double y = deviceY / ratio;
                rubbed.clear();
                Press({x, y});
                Release({x, y});
                const QPointF scenePosition = rubbed.first();
                const int column = static_cast<int>(scenePosition.x());
                const int row = static_cast<int>(scenePosition.y());
                // What is drawn is what stands under the middle of a device pixel.
                const auto nearEdge = [&](double coordinate) {
                    return (std::ceil(coordinate) - coordinate) * scale * ratio < 0.6 &&
                           coordinate != std::floor(coordinate);
                };
                if (!nearEdge(scenePosition.x()) && !nearEdge(scenePosition.y()))
                {
                    const QRgb colour = shown.pixel(deviceX, deviceY);
                    ASSERT_EQ(colour, qRgb(column, row, 128)) << x << "," << y << " at " << scale;
                    ++compared;
                }
            }
        }
        EXPECT_TRUE(compared > 300 || scale < 2.5) << scale;
        view.ZoomingIn();
        view.centerOn(60, 40);
    }
    // 49 times its own reciprocal is below 1.
    scene.setSceneRect(0, 0, 490, Height);
    view.GoToPixel({0, 0});
    view.UpdateSceneRectFromMinimap(0, 0);
    rubbed.clear();
    Press({49, 98});
    Move({60, 98});
    Release({60, 98});
    ASSERT_EQ(rubbed.size(), 1) << "the rubber works where it is put down";
    EXPECT_EQ(static_cast<int>(rubbed.last().x()), 1) << "an edge belongs to the pixel that begins there";
}

TEST_F(ImageViewTest, ZoomStopsAtItsLimitsAndGoesOnReporting)
{
    for (int i = 0; i < 15; ++i)
    {
        view.ZoomingIn();
    }
    const double deepest = std::pow(1.25, 11); // the first above 210 / 20
    EXPECT_EQ(scales.size(), 15U);
    EXPECT_NEAR(view.transform().m11(), deepest, 1e-9);

    view.ResetView();
    view.resize(200, 100);
    for (int i = 0; i < 9; ++i)
    {
        view.ZoomingOut();
    }
    // 100 / 1.25^-4 is above the scene's width, whatever its height.
    EXPECT_NEAR(view.ReturnCurrentScale(), std::pow(0.8, 4), 1e-9);
    EXPECT_EQ(view.GetRectToOverview().size(), QSizeF(488, 244));

    view.GoToPixel({100, 50});
    EXPECT_DOUBLE_EQ(view.ReturnCurrentScale(), 21.0);
    EXPECT_LT((ViewMiddle() - QPointF(100.5, 50.5)).manhattanLength(), 0.2);
    view.UpdateSceneRectFromMinimap(30, 20);
    EXPECT_EQ(view.GetRectToOverview(), QRectF(30, 20, 9, 4));
}

TEST_F(ImageViewTest, WheelAndDoubleClickBringThePointToTheMiddle)
{
    QSignalSpy updates(&view, &CustomGraphicsView::SendUpdateView);
    const QPoint position(61, 22);
    for (const int delta : {120, 240, -120, 0})
    {
        view.centerOn(100, 50);
        const QPointF wanted = view.mapToScene(position);
        Wheel(position, delta);
        EXPECT_LT((ViewMiddle() - wanted).manhattanLength(), 3.5) << delta;
    }
    EXPECT_THAT(scales, ElementsAre(1.25, 1.5625, 1.25, 1.0));
    EXPECT_EQ(updates.size(), 4);

    view.centerOn(100, 50);
    const QPointF wanted = view.mapToScene(position);
    view.ChangeCurrentCursor(1);
    Send(QEvent::MouseButtonDblClick, position, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(view.ReturnCurrentScale(), 1.0) << "only the grab tool";
    view.ChangeCurrentCursor(0);
    Send(QEvent::MouseButtonDblClick, position, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(scales.back(), 10.5);
    EXPECT_LT((ViewMiddle() - wanted).manhattanLength(), 0.3);
}

TEST_F(ImageViewTest, MarkersFollowTheRows)
{
    AddMarkers({10, 20, 30});
    view.AddNewRectToScene(QRect(40, 5, 2, 3), 1);
    EXPECT_THAT(MarkerColumns(), ElementsAre(10, 20, 30, 40));
    const auto* cameraMarker = Rectangles().last();
    EXPECT_EQ(cameraMarker->rect(), QRectF(40, 5, 2, 3));
    EXPECT_EQ(cameraMarker->pen().color(), CameraColour);
    view.ShowHideRects(0);
    EXPECT_THAT(MarkerColumns(), IsEmpty());
    AddMarkers({50});
    view.DeleteSceneRect(1);
    QRect moved(60, 6, 1, 1);
    view.MovePixelRects(moved, 0, 2);
    view.MovePixelRects(moved, 0, 4);
    view.DeleteSceneRect(-1);
    view.ShowHideRects(2);
    EXPECT_THAT(MarkerColumns(), ElementsAre(10, 30, 60, 50));
    EXPECT_EQ(Rectangles()[2], cameraMarker) << "not made anew";
    EXPECT_EQ(cameraMarker->pen().color(), NewColour) << "edited, so it is new";
    view.RemoveAllRects();
    EXPECT_THAT(MarkerColumns(), IsEmpty());
}

TEST_F(ImageViewTest, GrabAndScrollBarsMoveTheVisiblePart)
{
    QSignalSpy updates(&view, &CustomGraphicsView::SendUpdateView);
    view.UpdateSceneRectFromMinimap(50, 40);
    EXPECT_EQ(view.cursor().shape(), Qt::OpenHandCursor);
    Press({60, 50});
    EXPECT_EQ(view.viewport()->cursor().shape(), Qt::ClosedHandCursor);
    Move({53, 55});
    Move({50, 55});
    EXPECT_EQ(view.GetRectToOverview().topLeft(), QPointF(60, 35));
    EXPECT_EQ(updates.size(), 2);
    Q_EMIT view.verticalScrollBar()->sliderMoved(3);
    EXPECT_EQ(updates.size(), 3);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_TRUE(updates.wait(1000));
}

TEST_F(ImageViewTest, ToolTipShowsPixelInsideSensor)
{
    const std::pair<QPoint, QString> cases[] = {
        {{1, 1}, "x: 1\ny: 1"}, {{0, 30}, {}}, {{209, 109}, "x: 209\ny: 109"}, {{210, 31}, {}}};
    view.resize(400, 300);
    view.setTransform(QTransform::fromScale(1.5, 1.5));
    for (const auto& [pixel, expected] : cases)
    {
        Send(QEvent::MouseMove, PlaceOf(pixel), Qt::NoButton, Qt::NoButton);
        EXPECT_TRUE(QTest::qWaitFor(
            [&, &text = expected] { return text.isEmpty() ? !QToolTip::isVisible() : QToolTip::text() == text; }, 1500))
            << pixel.x() << "," << pixel.y() << ": " << QToolTip::text().toStdString();
    }
}

TEST_F(ImageViewTest, ContextMenuSavesPixelAndResetsView)
{
    const std::tuple<QPoint, QPoint, std::vector<Defect>> cases[] = {
        {{12, 13}, {40, 40}, {{12, 13, 1, 1, 0}}},
        {{0, 13}, {40, 40}, {}},
        {{12, 13}, {40, 110}, {}},
        {{12, 110}, {40, 109}, {{12, 110, 1, 1, 0}}}}; // the row of the pointer is what counts
    view.resize(400, 300);
    const QPoint origin = view.mapFromScene(QPointF(0, 0));
    for (const auto& [menu, pointer, expected] : cases)
    {
        defects.clear();
        Send(QEvent::MouseMove, origin + pointer, Qt::NoButton, Qt::NoButton);
        Press(origin + menu);
        OpenContextMenu(*view.viewport(), origin + menu, QStringLiteral("savePixelAction"));
        EXPECT_EQ(defects, expected) << menu.x() << "," << menu.y();
        EXPECT_EQ(Rectangles().size(), 0) << "the menu took the release";
    }
    view.ZoomingIn();
    OpenContextMenu(*view.viewport(), origin, QStringLiteral("resetViewAction"));
    EXPECT_EQ(scales.back(), 1.0);
    EXPECT_TRUE(view.transform().isIdentity());
}

} // namespace
