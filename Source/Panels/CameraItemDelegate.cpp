// How one camera of the list is laid out: icon, two lines of text, and below them the badge, if it has one.
#include "CameraItemDelegate.h"

#include <QFontMetrics>
#include <QListView>

#include <algorithm>

namespace
{

// In device-independent pixels.
constexpr int IconSize = 24;
constexpr int IconSpace = IconSize + 9; // with the style's margins, where the text begins
constexpr int TextMargin = 8;           // on its right
constexpr int RowMargin = 6;            // above and below
constexpr int BadgeHeight = 14;
constexpr int BadgeSpace = BadgeHeight + 6;
constexpr int NarrowestText = 40;

} // namespace

CameraItemDelegate::CameraItemDelegate(QListView* view) : QStyledItemDelegate(view), m_view(*view) {}

void CameraItemDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->features |= QStyleOptionViewItem::WrapText;
    option->decorationSize = QSize(IconSize, IconSize);
    option->font.setBold(true);
    // The focus frame is for those who work with the keyboard.
    if (!option->state.testFlag(QStyle::State_KeyboardFocusChange))
    {
        option->state &= ~QStyle::State_HasFocus;
    }
}

void CameraItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem upper(option);
    if (m_view.indexWidget(index) != nullptr)
    {
        upper.rect.adjust(0, 0, 0, -BadgeSpace);
    }
    QStyledItemDelegate::paint(painter, upper, index);
}

QSize CameraItemDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int width = m_view.viewport()->width();
    QFont font(option.font);
    font.setBold(true);
    const QRect room(0, 0, std::max(width - IconSpace - TextMargin, NarrowestText), QWIDGETSIZE_MAX);
    const QRect text = QFontMetrics(font).boundingRect(room, Qt::TextWordWrap, index.data().toString());
    const int badge = m_view.indexWidget(index) != nullptr ? BadgeSpace : 0;
    return {width, std::max(text.height(), IconSize) + 2 * RowMargin + badge};
}

void CameraItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                              const QModelIndex& /*index*/) const
{
    const QRect& row = option.rect;
    editor->setGeometry(row.left() + IconSpace, row.bottom() + 1 - BadgeSpace, row.width() - IconSpace, BadgeHeight);
}
