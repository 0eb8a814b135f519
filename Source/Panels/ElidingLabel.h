// A label whose text may be longer than its place.
#pragma once

#include <QLabel>

// Draws what fits and an ellipsis; the tool tip then tells the whole text. For plain text in one line.
class ElidingLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidingLabel(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
