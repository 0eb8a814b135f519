// A frame with one line of information about a camera.
#include "InformationWidget.h"

#include "ui_InformationWidget.h"

InformationWidget::InformationWidget(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::InformationWidget>())
{
    m_ui->setupUi(this);
}

InformationWidget::~InformationWidget() = default;
