// Base of the small dialogs: no system frame, dark, dragged by the background.
#include "FramelessDialog.h"

#include "DialogStyle.h"
#include "ModalExecution.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QWindow>

#include <algorithm>

namespace
{

constexpr int NarrowestText = 280; // pixels
constexpr int WidestText = 460;

QWidget* WindowInUse()
{
    if (QWidget* const active = QApplication::activeWindow())
    {
        return active;
    }
    if (QWidget* const modal = QApplication::activeModalWidget())
    {
        return modal;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(
        windows.begin(), windows.end(),
        [](const QWidget* widget)
        { return widget->isVisible() && (widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog); });
    return found == windows.end() ? nullptr : *found;
}

// Of one line of the text, and of the longest word, which cannot be wrapped.
std::pair<int, int> LineAndWordWidth(const QFontMetrics& metrics, const QString& text)
{
    static const QRegularExpression space(QStringLiteral("\\s+"));
    int word = 0;
    for (const QString& part : text.split(space))
    {
        word = std::max(word, metrics.horizontalAdvance(part));
    }
    return {metrics.size(0, text).width(), word};
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
    const auto [line, word] = LineAndWordWidth(label.fontMetrics(), label.text());
    const int width =
        std::min(screen.width() * 8 / 10, std::max({NarrowestText, word, std::min(line, WidestText)})) + 1;
    const int height = label.heightForWidth(width);
    const int shown = std::min(height, screen.height() * 6 / 10);
    label.setFixedSize(width, height);
    area.setFixedSize(width + (shown < height ? 20 : 0), shown);
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
