// The panel with the list of cameras.
#pragma once

#include <QWidget>

class CustomListView;
class QAbstractButton;
class QLabel;
class QToolButton;

class LeftPanel : public QWidget
{
    Q_OBJECT

public:
    // The list becomes part of the panel.
    LeftPanel(QWidget* parent, CustomListView* list);

    QAbstractButton* RefreshListButton() const;
    void SetStrings();

protected:
    void changeEvent(QEvent* event) override;

private:
    QLabel* m_labelCameras;
    QToolButton* m_informationButton;
    QToolButton* m_refreshLishButton;
};
