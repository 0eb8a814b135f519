// First page of the automatic detection: what has to be done before.
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

// Asks for the cover and tells what was changed in the camera. GUI thread.
class AutomaticDetectorStarter : public QWidget
{
    Q_OBJECT

public:
    explicit AutomaticDetectorStarter(QWidget* parent = nullptr);

    // Rich text; an empty one is not shown.
    void SetWarningText(const QString& text);
    void SetStrings();

    QPushButton* ConfigureButton() const { return m_configureButton; }
    QPushButton* StartButton() const { return m_startButton; }

private:
    QLabel* m_imageLabel;
    QLabel* m_contentLabel;
    QLabel* m_contentLabel2;
    QLabel* m_warningLabel;
    QPushButton* m_configureButton;
    QPushButton* m_startButton;
};
