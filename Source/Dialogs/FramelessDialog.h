// Base of the small dialogs: no system frame, dark, dragged by the background.
#pragma once

#include <QDialog>
#include <QPoint>

#include <optional>

class QLabel;
class QScrollArea;

// GUI thread.
class FramelessDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FramelessDialog(QWidget* parent = nullptr);

protected:
    // Sets all texts anew; called after a change of language.
    virtual void SetStrings() = 0;

    // Keeps the dialog above the window that the user works in, without belonging to it: the dialog may live on the
    // stack while that window goes away.
    void AttachToActiveWindow();
    // Puts the dialog over the middle of the window that the user works in, at its smallest size, and runs it.
    int ExecuteOverActiveWindow();

    // Gives a wrapping label that stands in the scroll area alone the room that its text needs, up to a readable width
    // and most of the screen's height.
    static void FitText(QScrollArea& area, QLabel& label);

    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    std::optional<QPoint> m_dragOffset; // of the cursor from the dialog's corner
};
