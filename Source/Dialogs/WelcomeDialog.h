// Greets the user at the first start.
#pragma once

#include "FramelessDialog.h"

#include <memory>

namespace Ui
{
class WelcomeDialog;
}

class WelcomeDialog : public FramelessDialog
{
    Q_OBJECT

public:
    ~WelcomeDialog() override;

    // Runs at x plus half the dialog's width, y (screen coordinates); true if the user wants to be shown around.
    static bool ExecuteDialog(int x, int y);

protected:
    void paintEvent(QPaintEvent* event) override;

private Q_SLOTS:
    void CloseEvent();

private:
    WelcomeDialog();
    void SetStrings() override;

    const std::unique_ptr<Ui::WelcomeDialog> m_ui;
    bool m_showAround = false;
};
