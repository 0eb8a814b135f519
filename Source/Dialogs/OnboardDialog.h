// The first hints, laid over the main window.
#pragma once

#include "FramelessDialog.h"

#include <memory>

namespace Ui
{
class OnboardDialog;
}

class WindowBelow;

// Not modal. Follows its parent's window while it is shown.
class OnboardDialog : public FramelessDialog
{
    Q_OBJECT

public:
    explicit OnboardDialog(QWidget* parent = nullptr);
    ~OnboardDialog() override;

    // Shows the dialog over the given area in screen coordinates; without one there is nothing to show.
    static void executeDialog(OnboardDialog* dialog, int x, int y, int width, int height);

Q_SIGNALS:
    // The dialog was closed, by whatever way; always false, the new state of the button that opened it.
    void CloseDialog(bool shown);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void OnCloseButtonClick();

private:
    void SetStrings() override;
    void SetImages();
    // Side by side, as the panels stand in the window, or below each other where there is no room for that.
    void ArrangeHints(bool sideBySide);

    const std::unique_ptr<Ui::OnboardDialog> m_ui;
    WindowBelow& m_below; // a child
};
