// The badge on cameras that cannot correct defective pixels.
#include "DpcMarker.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

DpcMarker::DpcMarker(QWidget* parent) : QWidget(parent), m_label(new QLabel(this))
{
    // Clicks and the mouse's hovering belong to the row below.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_label->setObjectName(QStringLiteral("dpcMarkerLabel"));
    m_label->setStyleSheet(QStringLiteral("background-color: rgb(135,135,135); color: rgb(37,38,39); font-size: 8px; "
                                          "border: none; border-radius: 7px; padding: 1px 7px;"));
    m_label->setFixedHeight(14);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addStretch();
    SetStrings();
}

void DpcMarker::SetStrings()
{
    m_label->setText(tr("DPC Unsupported"));
}

void DpcMarker::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
    {
        SetStrings();
    }
    else
    {
        QWidget::changeEvent(event);
    }
}
