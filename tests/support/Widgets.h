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

// Of several of this name the one that shows, if any does.
template <class Widget> Widget* FindIfShown(const QWidget& parent, const char* name)
{
    for (auto* widget : parent.findChildren<Widget*>(QLatin1String(name)))
    {
        if (widget->isVisible())
        {
            return widget;
        }
    }
    return nullptr;
}

template <class Widget> Widget& FindShown(const QWidget& parent, const char* name)
{
    auto* const widget = FindIfShown<Widget>(parent, name);
    return widget != nullptr ? *widget : throw std::runtime_error(std::string("not shown: ") + name);
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

// The visible children that have less room than they ask for, and boxes and buttons that do not show their whole texts.
inline QStringList Clipped(const QWidget& parent)
{
    QStringList clipped;
    for (const QWidget* widget : parent.findChildren<QWidget*>())
    {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool isWhole = qobject_cast<const QComboBox*>(widget) || qobject_cast<const QPushButton*>(widget);
        const bool isTooNarrow = widget->width() < (isWhole ? widget->sizeHint() : widget->minimumSizeHint()).width();
        const bool isEmpty = (button != nullptr && button->text().isEmpty()) ||
                             (label != nullptr && label->text().isEmpty() && label->pixmap(Qt::ReturnByValue).isNull());
        const bool isTooLow =
            label != nullptr && !label->text().isEmpty() && label->height() < label->heightForWidth(label->width());
        if (widget->isVisible() && !isEmpty && (isTooNarrow || isTooLow))
        {
            clipped << widget->objectName();
        }
    }
    return clipped;
}

// As soon as the layouts have come to rest.
inline void ExpectNothingClipped(const QWidget& parent)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return Clipped(parent).isEmpty(); })) << Clipped(parent).join(' ').toStdString();
}
