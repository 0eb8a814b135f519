// Text field for one number.
#pragma once

#include <QLineEdit>

#include <optional>

// Numbers are in C locale notation, with a point. The field remembers the last text that was shown or accepted; the
// Escape key brings it back. GUI thread.
class NumberField : public QLineEdit
{
    Q_OBJECT

public:
    explicit NumberField(QWidget* parent = nullptr);

    // Writes a number in fixed notation.
    void ShowNumber(double value, int decimals);
    void ShowText(const QString& text);
    // The text stands: from now on it is the one that Escape brings back.
    void AcceptText();
    void RestoreText();

    // Empty when the text is no finite number.
    std::optional<double> ReadNumber() const;
    // True while editingFinished comes only from the focus that moves on, over a text that nobody has changed.
    bool IsPassedOver() const { return m_losingFocus && text() == m_acceptedText; }

protected:
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_acceptedText;
    bool m_losingFocus = false;
};
