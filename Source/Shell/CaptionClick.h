// Clicks on the captions of buttons.
#pragma once

#include <QObject>

// Event filter for labels whose buddy is a button: a click on the caption counts as one on the button.
class CaptionClick : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
