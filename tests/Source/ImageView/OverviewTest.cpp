// Tests of the overview: its picture, dragging in it, and resizing its panel.
#include "CustomLabelView.h"
#include "OverviewPanel.h"
#include "SentEvents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRandomGenerator>

#include <tuple>

namespace
{

constexpr QSize Sensor(640, 400);

QPixmap Frame()
{
    QImage image(Sensor, QImage::Format_RGB32);
    for (int i = 0; i < Sensor.width() * Sensor.height(); ++i)
    {
        image.setPixel(i % Sensor.width(), i / Sensor.width(), qRgb(i % 255, i / 1009, i % 251));
    }
    return QPixmap::fromImage(image);
}

QImage Shown(const CustomLabelView& label)
{
    return label.pixmap(Qt::ReturnByValue).toImage().convertToFormat(QImage::Format_RGB32);
}

TEST(OverviewTest, PictureIsThatOfAFreshOne)
{
    QRandomGenerator random(7);
    QVector<DefectInfo> defects;
    for (int i = 0; i < 3000; ++i)
    {
        defects.append({random.bounded(640), random.bounded(400), i % 6 == 2 ? 640 : random.bounded(1, 40),
                        i % 6 == 3 ? 400 : 1, 0, random.bounded(2), i});
    }
    const QPixmap frame = Frame();
    CustomLabelView label(nullptr, 200, 125);
    label.UpdateScreenSizes(Sensor.width(), Sensor.height());
    label.ChangeRect(100.5F, 50.0F, 321.0F, 99.9F);
    const auto expectFresh = [&](QSize size, const char* what)
    {
        CustomLabelView fresh(nullptr, size.width(), size.height());
        fresh.UpdateScreenSizes(Sensor.width(), Sensor.height());
        fresh.ChangeRect(100.5F, 50.0F, 321.0F, 99.9F);
        for (CustomLabelView* shown : {&fresh, &label, &label})
        {
            shown->UpdatePixelList(QVector<DefectInfo>(defects.begin(), defects.end()));
            shown->SetPixmap(frame);
            EXPECT_EQ(Shown(*shown), Shown(fresh)) << what;
        }
        return Shown(fresh);
    };
    const QImage all = expectFresh({200, 125}, "first list");
    defects[2999].color ^= 1;
    EXPECT_NE(expectFresh({200, 125}, "one colour changed"), all);
    defects.resize(1500);
    label.SetLabelSizes(300, 120);
    expectFresh({300, 120}, "shorter, in a label of another ratio");
    label.show();
    label.resize(331, 207);
    defects.clear();
    expectFresh({331, 207}, "no defects, resized by its layout");
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
    const std::pair<QPoint, QRgb> expected[] = {{{50, 30}, qRgb(57, 130, 223)}, {{51, 30}, qRgb(37, 171, 37)},
                                                {{50, 31}, qRgb(0, 0, 0)},      {{49, 30}, qRgb(0, 0, 0)},
                                                {{10, 20}, qRgb(255, 0, 0)},    {{110, 70}, qRgb(255, 0, 0)}};
    for (const auto& [place, colour] : expected)
    {
        EXPECT_EQ(shown.pixel(place), colour) << place.x() << "," << place.y();
    }
    label.UpdateScreenSizes(Sensor.width() / 2, Sensor.height() / 2);
    label.SetPixmap(frame);
    EXPECT_EQ(Shown(label).pixel(101, 61), qRgb(57, 130, 223)) << "same picture, sensor of another size";
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
    const std::tuple<const char*, QVector<QPoint>, int, QRect> cases[] = {
        {"wider alone changes nothing", {{-20, 2}}, 0, {585, 535, 400, 250}},
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

TEST_F(OverviewPanelTest, LabelFillsThePanelInTheImagesRatio)
{
    Drag({2, 2}, {{50, 90}}, Qt::NoButton);
    EXPECT_EQ(panel.geometry(), QRect(585, 535, 400, 250)) << "no button is pressed";
    EXPECT_TRUE(panel.rect().adjusted(1, 1, -1, -1).contains(label->geometry())) << "an edge to take hold of";
    EXPECT_NEAR(static_cast<double>(label->width()) / label->height(), 1.6, 0.01);
    const QPixmap frame = Frame();
    label->UpdateScreenSizes(Sensor.width(), Sensor.height());
    label->SetPixmap(frame);
    panel.resize(320, 200);
    EXPECT_EQ(Shown(*label).size(), Sensor.scaled(label->size(), Qt::KeepAspectRatio)) << "without another frame";
}

} // namespace
