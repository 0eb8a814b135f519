// Base of the small dialogs: no system frame, dark, dragged by the background.
#include "FramelessDialog.h"

#include "DialogStyle.h"
#include "ModalExecution.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QTextBoundaryFinder>
#include <QWindow>

#include <algorithm>

namespace
{

constexpr int NarrowestText = 280; // pixels
constexpr int WidestText = 460;

QWidget* WindowInUse()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    // What covers the main window must stay above it: a dialog that belonged to the main window would lift that as
    // well.
    const auto overlay =
        std::find_if(windows.begin(), windows.end(),
                     [](const QWidget* widget)
                     { return widget->isVisible() && widget->objectName() == QLatin1String("windowOverlay"); });
    if (overlay != windows.end())
    {
        return *overlay;
    }
    if (QWidget* const active = QApplication::activeWindow())
    {
        return active;
    }
    if (QWidget* const modal = QApplication::activeModalWidget())
    {
        return modal;
    }
    const auto found = std::find_if(
        windows.begin(), windows.end(),
        [](const QWidget* widget)
        { return widget->isVisible() && (widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog); });
    return found == windows.end() ? nullptr : *found;
}

// The longest piece between two places where a line may break.
int WidestPiece(const QFontMetrics& metrics, const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    int widest = 0;
    for (int start = 0, end = finder.toNextBoundary(); end != -1; start = end, end = finder.toNextBoundary())
    {
        widest = std::max(widest, metrics.horizontalAdvance(text.mid(start, end - start).trimmed()));
    }
    return widest;
}

} // namespace

FramelessDialog::FramelessDialog(QWidget* parent) : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setStyleSheet(Lorvane::DialogStyleSheet());
}

void FramelessDialog::AttachToActiveWindow()
{
    QWidget* const owner = WindowInUse();
    if (owner == nullptr || owner == this || owner->windowHandle() == nullptr)
    {
        return;
    }
    winId(); // makes the native window
    windowHandle()->setTransientParent(owner->windowHandle());
}

int FramelessDialog::ExecuteOverActiveWindow()
{
    const QWidget* const owner = WindowInUse();
    const QScreen* const screen = owner != nullptr ? owner->screen() : QGuiApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    const QPoint centre = (owner != nullptr ? owner->frameGeometry() : available).center();

    AttachToActiveWindow();
    adjustSize();
    const QPoint wanted = centre - rect().center();
    move(std::max(available.left(), std::min(wanted.x(), available.right() + 1 - width())),
         std::max(available.top(), std::min(wanted.y(), available.bottom() + 1 - height())));
    return Lorvane::ExecuteModal(*this);
}

void FramelessDialog::FitText(QScrollArea& area, QLabel& label)
{
    label.ensurePolished();
    const QSize screen = area.screen()->availableSize();
    const QFontMetrics metrics = label.fontMetrics();
    const int readable = std::min(metrics.size(0, label.text()).width(), WidestText);
    const int needed = std::max({NarrowestText, readable, WidestPiece(metrics, label.text())});
    const int width = std::min(needed + 1, screen.width() * 8 / 10);
    const int height = label.heightForWidth(width);
    const int shown = std::min(height, screen.height() * 6 / 10);
    label.setFixedSize(width, height);
    const bool scrolls = shown < height;
    area.setFixedSize(width + (scrolls ? 20 : 0), shown);
    area.setFocusPolicy(scrolls ? Qt::TabFocus : Qt::NoFocus);
}

void FramelessDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        SetStrings();
    }
    QDialog::changeEvent(event);
}

void FramelessDialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Lorvane::WindowColour);
    painter.setPen(Lorvane::BorderColour);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void FramelessDialog::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
    {
        m_dragOffset = event->globalPos() - pos();
    }
}

void FramelessDialog::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragOffset && (event->buttons() & Qt::LeftButton) != 0)
    {
        move(event->globalPos() - *m_dragOffset);
    }
}

void FramelessDialog::mouseReleaseEvent(QMouseEvent*)
{
    m_dragOffset.reset();
}
