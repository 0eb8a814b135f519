// The badge on cameras that cannot correct defective pixels.
#pragma once

#include <QWidget>

class QLabel;

class DpcMarker : public QWidget
{
    Q_OBJECT

public:
    explicit DpcMarker(QWidget* parent = nullptr);
    void SetStrings();

protected:
    void changeEvent(QEvent* event) override;

private:
    QLabel* m_label;
};
