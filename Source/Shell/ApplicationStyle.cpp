// The look that the whole program shares.
#include "ApplicationStyle.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace Lorvane
{
namespace
{

constexpr const char* ToolTipRule = "QToolTip{ font-size:12px;color: white; border:0px; background-color: black;}";

// %1 is the direction, %2 the dimension across it.
constexpr const char* ScrollBarRules =
    " QScrollBar:%1{ border: none;background: transparent;%2: 15px;margin: 0px 0px 0 0px;}"
    " QScrollBar::handle:%1 {background: #888888;min-width: 15px; border:0px solid; border-radius:6px;}"
    " QScrollBar::handle:%1:hover {background: #AAAAAA;}"
    " QScrollBar::add-line:%1 {border: none;background: none;width: 0px;subcontrol-position: right;"
    "subcontrol-origin: margin;}"
    " QScrollBar::sub-line:%1 {border: none;background: none;width: 0px;subcontrol-position: left;"
    "subcontrol-origin: margin;}"
    " QScrollBar::add-page:%1, QScrollBar::sub-page:%1 {background: none;}";

} // namespace

QString ApplicationStyleSheet()
{
    const QString scrollBar = QLatin1String(ScrollBarRules);
    return QLatin1String(ToolTipRule) + scrollBar.arg(QLatin1String("vertical"), QLatin1String("width")) +
           scrollBar.arg(QLatin1String("horizontal"), QLatin1String("height"));
}

void ApplyDarkLook(QApplication& application)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QColor window(66, 67, 68);
    const QColor field(37, 38, 39);
    const QColor text(219, 219, 219);
    const QColor dimmed(125, 129, 133);
    const QColor accent(47, 128, 237);
    QPalette palette(text, window);
    palette.setColor(QPalette::Base, field);
    palette.setColor(QPalette::AlternateBase, QColor(46, 47, 48));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::ToolTipBase, Qt::black);
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, dimmed);
    palette.setColor(QPalette::Link, QColor(86, 156, 245));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    {
        palette.setColor(QPalette::Disabled, role, dimmed);
    }
    application.setPalette(palette);
}

// The margin is the indicator's: a click anywhere in the box counts.
QString IconCheckBoxStyle(const QString& icon)
{
    return QStringLiteral(
               "QCheckBox{background:transparent;border:1px solid transparent;border-radius:6px;}"
               "QCheckBox:hover{background:rgb(46,47,48);}"
               "QCheckBox:focus{border-color:rgb(47,128,237);}"
               "QCheckBox::indicator{width:24px;height:24px;margin:4px 7px;image:url(:/icons/resources/%1.svg);}"
               "QCheckBox::indicator:disabled{image:url(:/icons/resources/%1-disabled.svg);}"
               "QCheckBox::indicator:checked,QCheckBox::indicator:checked:disabled"
               "{image:url(:/icons/resources/%1-active.svg);}")
        .arg(icon);
}

QString IconButtonStyle(const QString& icon)
{
    return QStringLiteral(
               "QPushButton{background:transparent;border:1px solid transparent;border-radius:6px;padding:4px 7px;"
               "image:url(:/icons/resources/%1.svg);}"
               "QPushButton:hover{background-color:rgb(46,47,48);}"
               "QPushButton:pressed{background-color:rgb(66,67,68);}"
               "QPushButton:focus{border-color:rgb(47,128,237);}"
               "QPushButton:disabled{image:url(:/icons/resources/%1-disabled.svg);}")
        .arg(icon);
}

} // namespace Lorvane
