// The dialog that adds a defect by its numbers.
#pragma once

#include "DefectEntryDialog.h"

#include <vector>

class AddDialog : public DefectEntryDialog
{
    Q_OBJECT

public:
    // Size of the sensor in pixels. Only the given kinds (each a DefectUiType) are offered, in this order.
    AddDialog(QWidget* parent, int width, int height, const std::vector<int>& kinds);

Q_SIGNALS:
    // The kind is a DefectUiType, the origin always DefectInfo::NewColor.
    void SendDataBack(int x, int y, int width, int height, int kind, int origin);

protected:
    void SetStrings() override;

private Q_SLOTS:
    void OnButtonAddClick();
    void OnCancelButtonClick();
    void OnCurrentItemChanged(int index);
    void ValidateEnteredValues(QString text);

private:
    // A DefectUiType; -1 when no kind can be chosen.
    int CurrentKind() const;

    int m_sensorWidth;
    int m_sensorHeight;
    int m_currentIndex = 0;
    std::vector<int> m_kinds; // in the order of the combo box
};
