// What the dialogs for entering numbers have in common: no frame, a header that drags them, and their look.
#pragma once

#include <QDialog>
#include <QPoint>

class EntryDialog : public QDialog
{
    Q_OBJECT

public:
    explicit EntryDialog(QWidget* parent);

protected:
    // The header is the child "headerWidget".
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QPoint m_grip; // from the dialog's corner to the pointer
    bool m_dragging = false;
};
