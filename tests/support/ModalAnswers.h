// Answers the window's modal dialogs in tests, in the order in which they come.
#pragma once

#include "ModalExecution.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>

#include <functional>
#include <utility>
#include <vector>

// Takes the place of the user while it lives. Each dialog is recorded; the answers are used up one by one, and a dialog
// without an answer fails the test and is rejected.
class ModalAnswers
{
public:
    using Answer = std::function<void(QDialog&)>;

    ModalAnswers()
    {
        Lorvane::SetModalAnswer([this](QDialog& dialog) { Handle(dialog); });
    }
    // Fails the test when answers are left.
    ~ModalAnswers()
    {
        Lorvane::SetModalAnswer({});
        EXPECT_TRUE(m_answers.empty()) << m_answers.size() << " expected dialogs did not come";
    }
    ModalAnswers(const ModalAnswers&) = delete;
    ModalAnswers& operator=(const ModalAnswers&) = delete;

    ModalAnswers& Then(Answer answer) { return m_answers.push_back(std::move(answer)), *this; }
    // Clicks the button with this object name.
    ModalAnswers& ThenClick(const QString& buttonName)
    {
        return Then(
            [buttonName](QDialog& dialog)
            {
                auto* button = dialog.findChild<QAbstractButton*>(buttonName);
                ASSERT_NE(button, nullptr) << "no button " << buttonName.toStdString();
                button->click();
            });
    }
    // The answer to every dialog that has none of its own.
    ModalAnswers& Always(Answer answer) { return m_usualAnswer = std::move(answer), *this; }

    // The visible label texts of each dialog that came, joined by newlines.
    const std::vector<QString>& Seen() const { return m_seen; }

private:
    void Handle(QDialog& dialog)
    {
        QStringList texts;
        for (const QLabel* label : dialog.findChildren<QLabel*>())
        {
            if (label->isVisible() && !label->text().isEmpty())
            {
                texts << label->text();
            }
        }
        m_seen.push_back(texts.join(QLatin1Char('\n')));
        Answer answer = m_usualAnswer;
        if (!m_answers.empty())
        {
            answer = m_answers.front();
            m_answers.erase(m_answers.begin());
        }
        ASSERT_TRUE(answer) << "a dialog came without an answer: " << m_seen.back().toStdString();
        answer(dialog);
    }

    std::vector<Answer> m_answers;
    Answer m_usualAnswer;
    std::vector<QString> m_seen;
};
