// The icons of command buttons on the dark panels.
#include "CommandIcon.h"

#include <QAbstractButton>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <memory>
#include <utility>

namespace
{

constexpr double DisabledOpacity = 0.35;

// Draws the file in whatever size is wanted. Styles only turn disabled icons grey, which these are already.
class FadingIconEngine : public QIconEngine
{
public:
    explicit FadingIconEngine(std::shared_ptr<QSvgRenderer> drawing) : m_drawing(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        painter->setOpacity(mode == QIcon::Disabled ? DisabledOpacity : 1.0);
        m_drawing->render(painter, rect);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new FadingIconEngine(m_drawing); }

private:
    std::shared_ptr<QSvgRenderer> m_drawing;
};

} // namespace

void SetCommandIcon(QAbstractButton* button, const QString& name, QSize size)
{
    auto drawing = std::make_shared<QSvgRenderer>(QStringLiteral(":/icons/resources/%1.svg").arg(name));
    button->setIcon(QIcon(new FadingIconEngine(std::move(drawing))));
    button->setIconSize(size);
}
