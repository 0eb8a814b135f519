// A frame with one line of information about a camera.
#pragma once

#include <QWidget>

#include <memory>

namespace Ui
{
class InformationWidget;
} // namespace Ui

class InformationWidget : public QWidget
{
    Q_OBJECT

public:
    explicit InformationWidget(QWidget* parent = nullptr);
    ~InformationWidget() override;

private:
    const std::unique_ptr<Ui::InformationWidget> m_ui;
};
