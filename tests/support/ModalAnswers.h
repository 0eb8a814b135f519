// Answers the window's modal dialogs in tests, in the order in which they come.
#pragma once

#include <QString>

#include <functional>
#include <vector>

class QDialog;

// Takes the place of the user while it lives. Each dialog is recorded; the answers are used up one by one, and a dialog
// without an answer fails the test and is rejected.
class ModalAnswers
{
public:
    using Answer = std::function<void(QDialog&)>;

    ModalAnswers();
    // Fails the test when answers are left.
    ~ModalAnswers();
    ModalAnswers(const ModalAnswers&) = delete;
    ModalAnswers& operator=(const ModalAnswers&) = delete;

    ModalAnswers& Then(Answer answer);
    // Clicks the button with this object name.
    ModalAnswers& ThenClick(const QString& buttonName);

    // The answer to every dialog that has none of its own.
    ModalAnswers& Always(Answer answer);

    // The visible label texts of each dialog that came, joined by newlines.
    const std::vector<QString>& Seen() const { return m_seen; }

private:
    void Handle(QDialog& dialog);

    std::vector<Answer> m_answers;
    Answer m_usualAnswer;
    std::vector<QString> m_seen;
};
