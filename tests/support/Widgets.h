// A window's widgets by their object names.
#pragma once

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
