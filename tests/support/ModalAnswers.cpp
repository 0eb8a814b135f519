// Answers the window's modal dialogs in tests, in the order in which they come.
#include "ModalAnswers.h"

#include "ModalExecution.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QStringList>

#include <utility>

namespace
{

QString VisibleTexts(const QDialog& dialog)
{
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
    {
        if (label->isVisible() && !label->text().isEmpty())
        {
            texts << label->text();
        }
    }
    return texts.join(QLatin1Char('\n'));
}

} // namespace

ModalAnswers::ModalAnswers()
{
    Lorvane::SetModalAnswer([this](QDialog& dialog) { Handle(dialog); });
}

ModalAnswers::~ModalAnswers()
{
    Lorvane::SetModalAnswer({});
    EXPECT_TRUE(m_answers.empty()) << m_answers.size() << " expected dialogs did not come";
}

ModalAnswers& ModalAnswers::Then(Answer answer)
{
    m_answers.push_back(std::move(answer));
    return *this;
}

ModalAnswers& ModalAnswers::ThenClick(const QString& buttonName)
{
    return Then(
        [buttonName](QDialog& dialog)
        {
            auto* button = dialog.findChild<QAbstractButton*>(buttonName);
            ASSERT_NE(button, nullptr) << "no button " << buttonName.toStdString();
            button->click();
        });
}

ModalAnswers& ModalAnswers::Always(Answer answer)
{
    m_usualAnswer = std::move(answer);
    return *this;
}

void ModalAnswers::Handle(QDialog& dialog)
{
    m_seen.push_back(VisibleTexts(dialog));
    if (m_answers.empty() && m_usualAnswer)
    {
        m_usualAnswer(dialog);
        return;
    }
    if (m_answers.empty())
    {
        ADD_FAILURE() << "a dialog came without an answer: " << m_seen.back().toStdString();
        return;
    }
    const Answer answer = m_answers.front();
    m_answers.erase(m_answers.begin());
    answer(dialog);
}
