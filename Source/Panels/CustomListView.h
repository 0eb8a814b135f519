// The view of the camera list.
#pragma once

#include <QListView>

class CamerasList;

// A click, or the Enter key, on a camera selects it; the list itself never shows anything as selected.
class CustomListView : public QListView
{
    Q_OBJECT

public:
    explicit CustomListView(QWidget* parent = nullptr);

    CamerasList* GetCamerasList() const { return m_camerasList; }

    // As high as the rows, so that a panel around the list scrolls only when its window is too low.
    QSize sizeHint() const override;

Q_SIGNALS:
    void SendCurrentIndex(int row, QString id);

public Q_SLOTS:
    // Puts a badge on the row.
    void SetDpcReadyMarks(QModelIndex index);
    void ClearMarkersVector();
    void DeleteDpcReadyMark(QModelIndex index);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void updateEditorGeometries() override;

private:
    void SendCurrent();

    CamerasList* m_camerasList;
    bool m_insertingRows = false;
};
