// What the dialogs for entering numbers have in common: a header that drags them, and their look.
#include "EntryDialog.h"

#include <QIcon>
#include <QLabel>
#include <QMouseEvent>

namespace
{

const char* const Style = R"(
#dialogFrame { background: rgb(46,47,48); border: 1px solid rgb(89,89,89); }
#headerWidget { background: rgb(66,67,68); }
QLabel { color: rgb(219,219,219); background: none; font-size: 12px; }
#headerLabel { font-size: 13px; font-weight: 600; }
#outOfScopeLabel, #labelWarning { color: rgb(255,159,67); }
QLineEdit, QComboBox
{
    background: rgb(37,38,39);
    border: 1px solid rgb(89,89,89);
    border-radius: 6px;
    color: #dbdbdb;
    font-size: 12px;
    padding: 0 8px;
    selection-background-color: rgb(47,128,237);
}
QLineEdit { padding: 5px 8px; }
QLineEdit:focus, QComboBox:focus { border-color: rgb(47,128,237); }
QLineEdit:disabled, QComboBox:disabled { background: rgba(63,63,65,40%); color: #7d8185; }
QComboBox::drop-down { border: none; width: 22px; }
QComboBox::down-arrow { image: url(:/icons/resources/chevron-down.svg); width: 14px; height: 14px; }
QComboBox::down-arrow:disabled { image: none; }
QComboBox QAbstractItemView
{
    background: rgb(37,38,39);
    border: 1px solid rgb(89,89,89);
    color: #dbdbdb;
    font-size: 12px;
    outline: 0;
    selection-background-color: rgb(47,128,237);
    selection-color: white;
}
QComboBox QAbstractItemView::item { min-height: 26px; padding: 0 8px; }
QPushButton
{
    background: rgb(66,67,68);
    border: 1px solid rgb(66,67,68);
    border-radius: 6px;
    color: #dbdbdb;
    font-size: 12px;
    padding: 0 16px;
}
QPushButton:hover { background: rgb(128,128,128); border-color: rgb(128,128,128); }
QPushButton:pressed { background: rgb(31,31,31); }
QPushButton:focus { border-color: rgb(47,128,237); }
#confirmButton, #buttonOK { background: rgb(47,128,237); border-color: rgb(47,128,237); color: white; font-weight: 600; }
#confirmButton:hover, #buttonOK:hover { background: rgb(76,148,245); border-color: rgb(76,148,245); }
#confirmButton:pressed, #buttonOK:pressed { background: rgb(34,97,184); }
#confirmButton:focus, #buttonOK:focus { border-color: white; }
#confirmButton:disabled { background: rgba(82,82,82,60); border-color: transparent; color: #7d8185; }
#exitButton
{
    background: none;
    border-color: transparent;
    padding: 5px;
    image: url(:/icons/resources/window-close.svg);
}
#exitButton:hover { background: rgb(128,128,128); }
#exitButton:focus { border-color: rgb(47,128,237); }
)";

} // namespace

EntryDialog::EntryDialog(QWidget* parent) : FramelessDialog(parent)
{
    setStyleSheet(QLatin1String(Style));
    setWindowIcon(QIcon(QStringLiteral(":/icons/resources/logo-taskbar.png")));
}

void EntryDialog::showEvent(QShowEvent* event)
{
    if (const auto* const header = findChild<QLabel*>(QStringLiteral("headerLabel")))
    {
        setWindowTitle(header->text()); // for the task bar
    }
    FramelessDialog::showEvent(event);
}

void EntryDialog::mousePressEvent(QMouseEvent* event)
{
    const auto* header = findChild<QWidget*>(QStringLiteral("headerWidget"));
    if (header != nullptr && header->rect().contains(header->mapFrom(this, event->pos())))
    {
        FramelessDialog::mousePressEvent(event);
    }
}
