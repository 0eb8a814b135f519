// Last page of the automatic detection: the search and its result.
#pragma once

#include <QMovie>
#include <QWidget>

class QLabel;
class QPushButton;

// Which of the three buttons show is left to whoever starts a search; the results set them themselves. GUI thread.
class AutomaticDetectorLoader : public QWidget
{
    Q_OBJECT

public:
    explicit AutomaticDetectorLoader(QWidget* parent = nullptr);

    // The texts of every search but the first.
    void SetWaitingTexts();
    // The spinner turns.
    void ShowSearch();
    // The user may take the defects over.
    void ShowChoice(int count);
    void ShowAdding();
    void ShowAdded();
    void ShowCancelled();
    // No defect, or more than the limit.
    void ShowRejected(int count, int limit);
    void SetStrings();

    QPushButton* StopDetectionButton() const { return m_stopDetectionButton; }
    QPushButton* ContinueButton() const { return m_continueButton; }
    QPushButton* CloseButton() const { return m_closeButton; }

private:
    enum class Texts
    {
        FirstWaiting,
        Waiting,
        Choice,
        Adding,
        Added,
        Cancelled,
        Rejected
    };

    void ShowTexts(Texts texts);
    void ShowEnd(Texts texts);
    void ShowSpinner();
    QString Header() const;
    QString Content() const;

    Texts m_texts = Texts::FirstWaiting;
    int m_count = 0;
    int m_limit = 0;
    QMovie m_movie;
    QLabel* m_loadingLabel;
    QLabel* m_loadingFinishedLabel;
    QLabel* m_headerLabel;
    QLabel* m_contentLabel;
    QPushButton* m_stopDetectionButton;
    QPushButton* m_continueButton;
    QPushButton* m_closeButton;
};
