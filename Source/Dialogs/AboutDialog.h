// Names the program and its versions.
#pragma once

#include "FramelessDialog.h"

#include <memory>

namespace Ui
{
class AboutDialog;
}

class AboutDialog : public FramelessDialog
{
    Q_OBJECT

public:
    ~AboutDialog() override;

    // Runs over the active window until it is closed.
    static void executeDialog(const QString& programVersion, const QString& apiVersion);

private Q_SLOTS:
    void OnExitButtonClick();

private:
    AboutDialog(const QString& programVersion, const QString& apiVersion);
    void SetStrings() override;

    const std::unique_ptr<Ui::AboutDialog> m_ui;
    const QString m_programVersion;
    const QString m_apiVersion;
};
