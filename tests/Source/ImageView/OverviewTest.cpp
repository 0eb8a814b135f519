// Tests of the overview: its picture against the plain drawing, dragging in it, and resizing its panel.
#include "CustomLabelView.h"
#include "OverviewPanel.h"
#include "SentEvents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPainter>
#include <QRandomGenerator>

namespace
{

constexpr QSize Sensor(640, 400);

QPixmap Frame()
{
    QImage image(Sensor, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
        {
            image.setPixel(x, y, qRgb(x / 4, y / 2, (x * y) % 251));
        }
    }
    return QPixmap::fromImage(image);
}

// Everything drawn one by one into the reduced frame.
QImage PlainPicture(const QPixmap& frame, QSize labelSize, const QRectF& view, const QVector<DefectInfo>& defects)
{
    QPixmap picture = frame.scaled(labelSize, Qt::KeepAspectRatio, Qt::FastTransformation);
    QPainter painter(&picture);
    QPen pen(Qt::red, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    const double scaleX = static_cast<double>(Sensor.width()) / labelSize.width();
    const double scaleY = static_cast<double>(Sensor.height()) / labelSize.height();
    const auto draw = [&](double x, double y, double width, double height)
    {
        painter.setPen(pen);
        const QPoint corner(static_cast<int>(x / scaleX), static_cast<int>(y / scaleY));
        const QSize size(static_cast<int>(width / scaleX), static_cast<int>(height / scaleY));
        size.isNull() ? painter.drawPoint(corner) : painter.drawRect(QRect(corner, size));
    };
    draw(view.x(), view.y(), view.width(), view.height());
    for (const DefectInfo& defect : defects)
    {
        pen.setColor(defect.color == 1 ? QColor(37, 171, 37) : QColor(57, 130, 223));
        draw(defect.x, defect.y, defect.width, defect.height);
    }
    painter.end();
    return picture.toImage().convertToFormat(QImage::Format_RGB32);
}

QImage Shown(const CustomLabelView& label)
{
    return label.pixmap(Qt::ReturnByValue).toImage().convertToFormat(QImage::Format_RGB32);
}

TEST(OverviewTest, PictureIsThatOfPlainDrawing)
{
    QRandomGenerator random(7);
    QVector<DefectInfo> defects;
    for (int i = 0; i < 3000; ++i)
    {
        const int kind = random.bounded(6);
        const int side = kind == 0 ? 1 : random.bounded(1, 40);
        defects.append({random.bounded(640), random.bounded(400), kind == 2 ? 640 : side, kind == 3 ? 400 : 1, 0,
                        random.bounded(2), i});
    }
    const QPixmap frame = Frame();
    CustomLabelView label(nullptr, 200, 125);
    label.UpdateScreenSizes(Sensor.width(), Sensor.height());
    label.ChangeRect(100.5F, 50.0F, 321.0F, 99.9F);
    const QRectF view(100.5, 50.0, 321.0, static_cast<qreal>(99.9F));
    const auto expectPlain = [&](QSize size, const char* what)
    {
        for (int frameNumber = 0; frameNumber < 2; ++frameNumber)
        {
            label.UpdatePixelList(QVector<DefectInfo>(defects.begin(), defects.end()));
            label.SetPixmap(frame);
            EXPECT_EQ(Shown(label), PlainPicture(frame, size, view, defects)) << what << ", frame " << frameNumber;
        }
    };
    expectPlain({200, 125}, "first list");
    defects[2999].color ^= 1;
    expectPlain({200, 125}, "one colour changed");
    defects.resize(1500);
    expectPlain({200, 125}, "shorter");
    label.SetLabelSizes(300, 120);
    expectPlain({300, 120}, "label of another ratio");
    label.show();
    label.resize(331, 207);
    expectPlain({331, 207}, "resized by its layout");
    defects.clear();
    expectPlain({331, 207}, "no defects");
}

TEST(OverviewTest, PixelIsOneDotInTheColourOfItsOrigin)
{
    QPixmap frame(Sensor);
    frame.fill(Qt::black);
    CustomLabelView label(nullptr, 160, 100);
    label.SetPixmap(frame);
    EXPECT_EQ(Shown(label).pixel(0, 0), qRgb(0, 0, 0)) << "no sensor yet, so no rectangle";
    label.UpdateScreenSizes(Sensor.width(), Sensor.height());
    label.ChangeRect(40, 80, 400, 200);
    label.UpdatePixelList({{203, 122, 1, 1, 0, 0, 0}, {207, 122, 1, 1, 0, 1, 1}});
    label.SetPixmap(frame);
    const QImage shown = Shown(label);
    EXPECT_EQ(shown.pixel(50, 30), qRgb(57, 130, 223));
    EXPECT_EQ(shown.pixel(51, 30), qRgb(37, 171, 37));
    int coloured = 0;
    for (int y = 0; y < shown.height(); ++y)
    {
        for (int x = 0; x < shown.width(); ++x)
        {
            coloured += shown.pixel(x, y) != qRgb(0, 0, 0) ? 1 : 0;
        }
    }
    EXPECT_EQ(shown.pixel(10, 20), qRgb(255, 0, 0));
    EXPECT_EQ(shown.pixel(110, 70), qRgb(255, 0, 0));
    EXPECT_EQ(coloured, 2 + 2 * (100 + 50)) << "two dots and the outline of the view";
    label.SetPixmap(QPixmap());
    EXPECT_TRUE(Shown(label).isNull());
}

TEST(OverviewTest, DragHoldsTheMiddleOfTheViewRectangle)
{
    CustomLabelView label(nullptr, 160, 100);
    label.UpdateScreenSizes(Sensor.width(), Sensor.height());
    label.ChangeRect(0, 0, 101, 51);
    QStringList sent;
    QObject::connect(&label, &CustomLabelView::SendNewRectPosition, &label,
                     [&](int x, int y) { sent.append(QStringLiteral("%1,%2").arg(x).arg(y)); });
    QObject::connect(&label, &CustomLabelView::SendUpdateOverview, &label,
                     [&] { sent.append(QStringLiteral("update")); });
    const auto move = [&](QPoint position)
    { SendMouse(label, QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton); };
    move({50, 50});
    EXPECT_EQ(sent, QStringList());
    SendMouse(label, QEvent::MouseButtonPress, {50, 50}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(label.cursor().shape(), Qt::ClosedHandCursor);
    move({60, 40});
    move({-5, 110});
    SendMouse(label, QEvent::MouseButtonRelease, {-5, 110}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(label.cursor().shape(), Qt::OpenHandCursor);
    move({60, 40});
    EXPECT_EQ(sent.join(QLatin1Char(' ')), QStringLiteral("189,134 update -70,414 update"));
}

class OverviewPanelTest : public testing::Test
{
protected:
    OverviewPanelTest()
    {
        parent.resize(1000, 800);
        panel.SetMinimumSizes(300, 150);
        panel.SetMaximumSizes(480, 300);
        panel.SetImageRatio(640, 400);
        panel.setGeometry(1000 - 15 - 400, 800 - 15 - 250, 400, 250);
        parent.show();
    }
    // The mouse goes to each place in turn, in the panel's coordinates of that moment.
    void Drag(QPoint from, const QVector<QPoint>& places, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        SendMouse(panel, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        for (const QPoint place : places)
        {
            SendMouse(panel, QEvent::MouseMove, place, Qt::NoButton, buttons);
        }
    }

    QWidget parent;
    CustomLabelView* label = new CustomLabelView(nullptr, 100, 100);
    OverviewPanel panel{&parent, label};
};

TEST_F(OverviewPanelTest, DragResizesAroundTheFixedCorner)
{
    const struct
    {
        const char* what;
        QVector<QPoint> places;
        int additionalWidth;
        QRect expected;
    } cases[] = {
        {"wider alone changes nothing", {{-20, 2}}, 0, {585, 535, 400, 250}},
        {"20 higher", {{2, -18}}, 0, {553, 515, 432, 270}},
        {"a height that fits no whole width", {{2, -1}}, 0, {581, 533, 404, 252}},
        {"20 lower, as the pointer follows", {{2, 12}, {2, 12}}, 0, {617, 555, 368, 230}},
        {"beyond the maximum", {{-200, -200}}, 0, {505, 485, 480, 300}},
        {"past the maximum only shrinks", {{2, -98}, {2, -98}}, 0, {505, 485, 480, 300}},
        {"below the minimum only grows", {{2, 122}, {2, 22}}, 0, {777, 655, 208, 130}},
        {"too small goes back", {{2, 202}}, 0, {585, 535, 400, 250}},
        {"beside another panel", {{2, -18}}, 300, {253, 515, 432, 270}},
    };
    for (const auto& [what, places, additionalWidth, expected] : cases)
    {
        panel.setGeometry(585, 535, 400, 250);
        panel.SetAdditionalWidth(additionalWidth);
        Drag({2, 2}, places);
        EXPECT_EQ(panel.geometry(), expected)
            << what << ": " << panel.x() << "," << panel.y() << " " << panel.width() << "x" << panel.height();
    }
}

TEST_F(OverviewPanelTest, HoverShowsTheCursorAndLabelFillsThePanelInTheImagesRatio)
{
    Drag({2, 2}, {{50, 90}}, Qt::NoButton);
    EXPECT_EQ(panel.geometry(), QRect(585, 535, 400, 250));
    EXPECT_EQ(panel.cursor().shape(), Qt::SizeFDiagCursor);
    EXPECT_EQ(label->cursor().shape(), Qt::OpenHandCursor);
    EXPECT_EQ(panel.GetMaximumSizes(), QSize(480, 300));
    EXPECT_TRUE(panel.rect().adjusted(1, 1, -1, -1).contains(label->geometry())) << "an edge to take hold of";
    EXPECT_NEAR(static_cast<double>(label->width()) / label->height(), 1.6, 0.01);
    const QPixmap frame = Frame();
    label->UpdateScreenSizes(Sensor.width(), Sensor.height());
    label->SetPixmap(frame);
    panel.resize(320, 200);
    EXPECT_EQ(Shown(*label).size(), Sensor.scaled(label->size(), Qt::KeepAspectRatio)) << "without another frame";
}

} // namespace
