// How one camera of the list is laid out: icon, two lines of text, and below them the badge, if it has one.
#pragma once

#include <QStyledItemDelegate>

class QListView;

class CameraItemDelegate : public QStyledItemDelegate
{
public:
    // The view owns the delegate.
    explicit CameraItemDelegate(QListView* view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    // Puts the badge under the text.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const QListView& m_view;
};
