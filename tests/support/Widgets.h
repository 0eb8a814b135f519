// A window's widgets by their object names.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <stdexcept>

// The test ends when there is none.
template <class Widget> Widget& Find(const QWidget& parent, const char* name)
{
    auto* widget = parent.findChild<Widget*>(QLatin1String(name));
    return widget != nullptr ? *widget : throw std::runtime_error(std::string("no widget ") + name);
}

inline void Click(const QWidget& parent, const char* name)
{
    QTest::mouseClick(&Find<QWidget>(parent, name), Qt::LeftButton);
}

// Of several of this name the one that shows.
template <class Widget> Widget& FindShown(const QWidget& parent, const char* name)
{
    for (auto* widget : parent.findChildren<Widget*>(QLatin1String(name)))
    {
        if (widget->isVisible())
        {
            return *widget;
        }
    }
    throw std::runtime_error(std::string("not shown: ") + name);
}

inline void Type(QLineEdit& field, const char* text)
{
    field.selectAll();
    QTest::keyClicks(&field, text);
    QTest::keyClick(&field, Qt::Key_Return);
}

// As a user does who opens the box and takes one of its lines.
inline void PickLine(QComboBox& box, int index)
{
    box.showPopup();
    const QPoint line = box.view()->visualRect(box.model()->index(index, 0)).center();
    QTest::mouseMove(box.view()->viewport(), line);
    QTest::mouseClick(box.view()->viewport(), Qt::LeftButton, {}, line);
    EXPECT_EQ(box.currentIndex(), index);
}

// Each visible child has the room that it asks for; boxes and buttons show their whole texts.
inline void ExpectNothingClipped(const QWidget& parent)
{
    for (const QWidget* widget : parent.findChildren<QWidget*>())
    {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool isWhole = qobject_cast<const QComboBox*>(widget) || qobject_cast<const QPushButton*>(widget);
        if (widget->isVisible() && (button == nullptr || !button->text().isEmpty()))
        {
            EXPECT_GE(widget->width(), (isWhole ? widget->sizeHint() : widget->minimumSizeHint()).width())
                << widget->objectName().toStdString();
            EXPECT_TRUE(label == nullptr || label->text().isEmpty() ||
                        label->height() >= label->heightForWidth(label->width()))
                << label->text().toStdString();
        }
    }
}
