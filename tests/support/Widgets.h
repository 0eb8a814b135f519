// A window's widgets by their object names.
#pragma once

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
