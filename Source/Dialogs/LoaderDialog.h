// Shows the steps of a longer command and how far it has come.
#pragma once

#include "FramelessDialog.h"

#include <QBasicTimer>

#include <memory>
#include <vector>

class QGridLayout;

namespace Ui
{
class LoaderDialog;
}

// Modal without an event loop of its own: shown with show() while the work goes on, and closed by the program alone. A
// light runs round the ring as long as events are processed.
class LoaderDialog : public FramelessDialog
{
    Q_OBJECT

public:
    LoaderDialog(QWidget* parent, const QString& title);
    ~LoaderDialog() override;

    // Adds a step, which is open.
    void PushBackToList(const QString& text);
    // Redraws the ring for the current step, marks that step as done and goes on to the next.
    void DisplayNextStepInformation();
    // Forgets all steps; the ring stays as it was drawn last.
    void ClearInfoList();

    // The user has no say in how long the work lasts.
    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void SetStrings() override;
    void DrawRing();

    const std::unique_ptr<Ui::LoaderDialog> m_ui;
    QGridLayout* m_gridLayout;
    std::vector<QLabel*> m_steps;
    int m_currentStep = 0;
    int m_shownSteps = 0; // of the ring, finished and current one
    int m_shownOf = 0;    // so many in all
    QBasicTimer m_movement;
    int m_lightAngle = 0; // sixteenths of a degree
};
