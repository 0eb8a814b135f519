// The look that the dialogs share.
#include "DialogStyle.h"

#include <QIcon>
#include <QPainter>

namespace Lorvane
{

QString DialogStyleSheet()
{
    return QStringLiteral(R"(
QWidget { font-size: 12px; }
QLabel { background: transparent; border: none; color: rgb(219,219,219); font-size: 13px; }
QLabel#titleLabel { color: white; font-weight: 600; }
QWidget#contentWidget { background: transparent; }
QWidget#titleBar { background: rgb(46,47,48); }
QScrollArea, QScrollArea > QWidget { background: transparent; border: none; }
QScrollArea > QWidget > QWidget, QScrollBar { background: transparent; }
QPushButton {
    background: rgb(82,82,82); color: rgb(219,219,219); border: 2px solid rgb(89,89,89); border-radius: 6px;
    font-size: 12px; min-width: 72px; min-height: 28px; padding: 0px 14px;
}
QPushButton:hover { background: rgb(128,128,128); color: white; }
QPushButton:pressed { background: rgb(46,47,48); }
QPushButton:focus { border-color: rgb(47,128,237); }
QPushButton[primary="true"] {
    background: rgb(47,128,237); color: white; border-color: rgb(47,128,237); font-weight: 600;
}
QPushButton[primary="true"]:hover { background: rgb(86,153,241); }
QPushButton[primary="true"]:pressed { background: rgb(35,98,184); }
QPushButton[primary="true"]:focus { border-color: white; }
QPushButton[cross="true"] {
    background: transparent; border: 2px solid transparent; border-radius: 4px; padding: 0px;
    min-width: 24px; max-width: 24px; min-height: 24px; max-height: 24px;
    image: url(":/icons/resources/window-close.svg");
}
QPushButton[cross="true"]:hover { background: rgb(128,128,128); }
QPushButton[cross="true"]:focus { border-color: rgb(47,128,237); }
)");
}

QPixmap IconPixmap(const QString& file, QSize size, qreal devicePixelRatio)
{
    const QIcon icon(file);
    if (icon.isNull())
    {
        return {};
    }
    QPixmap pixmap(size * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    icon.paint(&painter, QRect(QPoint(), size));
    return pixmap;
}

} // namespace Lorvane
