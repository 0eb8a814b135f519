// Tool strip under the image: play, overlay, overview and zoom.
#pragma once

#include <QWidget>

#include <memory>

class QCheckBox;
class QPushButton;

namespace Ui
{
class BottomPanel;
}

// Only the buttons; the window gives them their meaning and their state. GUI thread.
class BottomPanel : public QWidget
{
    Q_OBJECT

public:
    explicit BottomPanel(QWidget* parent);
    ~BottomPanel() override;

    // Checked while the camera streams.
    QCheckBox* PlayPauseButton() const;
    // Checked while the defect rectangles are hidden.
    QCheckBox* OverlayButton() const;
    QCheckBox* OverviewButton() const;
    // Shows the zoom.
    QPushButton* ScaleButton() const;
    QPushButton* ZoomInButton() const;
    QPushButton* ZoomOutButton() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void SetStrings();

    const std::unique_ptr<Ui::BottomPanel> m_ui;
};
