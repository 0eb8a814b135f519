// Asks the user before something is overwritten.
#pragma once

#include "FramelessDialog.h"

#include <memory>

namespace Ui
{
class ConfirmDialog;
}

class ConfirmDialog : public FramelessDialog
{
    Q_OBJECT

public:
    ~ConfirmDialog() override;

    // Shows plain text over the active window until the user has answered; true if confirmed.
    static bool executeDialog(const QString& title, const QString& text);

    bool GetConfirmation() const { return m_confirmation; }

private Q_SLOTS:
    void OnConfirmButtonClick();
    void OnCancelButtonClick();

private:
    ConfirmDialog(const QString& title, const QString& text);
    void SetStrings() override;

    const std::unique_ptr<Ui::ConfirmDialog> m_ui;
    bool m_confirmation = false;
};
