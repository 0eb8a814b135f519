// The dialog that changes a defect by its numbers.
#pragma once

#include "DefectEntryDialog.h"

#include <QRect>

class EditPixelDialog : public DefectEntryDialog
{
    Q_OBJECT

public:
    // The defect as it stands, type a DefectUiType, and the size of the sensor in pixels.
    EditPixelDialog(QWidget* parent, int type, int x, int y, int sensorWidth, int sensorHeight, int width, int height);

    // What was confirmed; position and size are all -1 when nothing is to be changed.
    QRect GetNewPixelPoint() const { return {m_x, m_y, m_width, m_height}; }

protected:
    void SetStrings() override;

private Q_SLOTS:
    void OnCancelButtonClick();
    void OnConfirmButtonClick();
    void ValidateEnteredValues(QString text);

private:
    void FixFields();

    int m_type;
    int m_sensorWidth;
    int m_sensorHeight;
    int m_roomRight; // from the defect as it stood
    int m_roomBelow;
    int m_initialWidth;
    int m_initialHeight;
    int m_x = -1;
    int m_y = -1;
    int m_width = -1;
    int m_height = -1;
};
