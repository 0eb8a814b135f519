// Tells the user something.
#pragma once

#include "FramelessDialog.h"

#include <functional>
#include <memory>

namespace Ui
{
class MessageDialog;
}

class MessageDialog : public FramelessDialog
{
    Q_OBJECT

public:
    ~MessageDialog() override;

    // Shows plain text over the active window until the user has answered. onAccept, which may be empty, runs after the
    // dialog is gone, if it was left by its button.
    static void ExecuteDialog(const QString& title, const QString& text, const QString& button,
                              const std::function<void()>& onAccept);

private:
    MessageDialog(const QString& title, const QString& text, const QString& button);
    void SetStrings() override;

    const std::unique_ptr<Ui::MessageDialog> m_ui;
};
