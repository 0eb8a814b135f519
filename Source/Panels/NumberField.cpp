// Text field for one number.
#include "NumberField.h"

#include <QKeyEvent>

#include <cmath>

NumberField::NumberField(QWidget* parent) : QLineEdit(parent)
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void NumberField::ShowNumber(double value, int decimals)
{
    ShowText(QString::number(value, 'f', decimals));
}

void NumberField::ShowText(const QString& text)
{
    if (text != this->text())
    {
        setText(text);
    }
    AcceptText();
}

void NumberField::AcceptText()
{
    m_acceptedText = text();
}

void NumberField::RestoreText()
{
    setText(m_acceptedText);
}

std::optional<double> NumberField::ReadNumber() const
{
    bool isNumber = false;
    const double value = text().toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

void NumberField::focusOutEvent(QFocusEvent* event)
{
    m_losingFocus = true;
    QLineEdit::focusOutEvent(event);
    m_losingFocus = false;
}

void NumberField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && text() != m_acceptedText)
    {
        RestoreText();
        return;
    }
    QLineEdit::keyPressEvent(event);
}
