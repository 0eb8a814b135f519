// The image view.
#pragma once

#include "DefectMarkers.h"
#include "SceneRectItem.h"

#include <QGraphicsView>
#include <QMenu>

#include <memory>

// Shows the camera image, zooms and pans it, and marks defects by hand. The scene, which is not owned, holds the image
// at its origin: one scene unit is one sensor pixel, and the view's transform alone is the zoom. Knows nothing of the
// pixel list; it reports what the user did. GUI thread; may be used without a scene.
class CustomGraphicsView : public QGraphicsView, private SceneRectItemOwner
{
    Q_OBJECT

public:
    explicit CustomGraphicsView(QWidget* parent = nullptr);
    ~CustomGraphicsView() override;

    // One step; SendScaleFactor follows also when the limit is reached already.
    void ZoomingIn();
    void ZoomingOut();
    // Screen pixels for each sensor pixel.
    double ReturnCurrentScale() const { return m_currentScale; }

public Q_SLOTS:
    // Adds the pixel under the last context menu.
    void SavePixFunc();
    // Scale 1.
    void ResetView();
    // point: a sensor pixel, shown in the middle of the view.
    void GoToPixel(QPointF point);

    // One marker for each row of the pixel list. rect: sensor coordinates. type: the origin, one of DefectInfo's
    // colours.
    void AddNewRectToScene(QRect const& rect, int type);
    void DeleteSceneRect(int index);
    void RemoveAllRects();
    // state: a check box's; 0 hides the markers, 2 shows them.
    void ShowHideRects(int state);
    // The row's defect was edited. type: the defect's kind.
    void MovePixelRects(QRect& rect, int type, int index);

    // Measures the visible part of the scene anew, as ZoomingOut needs it.
    void ScaleRectToSmallImg();
    // Scrolls until the sensor pixel stands in the top-left corner.
    void UpdateSceneRectFromMinimap(int x, int y);
    // The visible part, in sensor coordinates.
    QRectF GetRectToOverview();
    void SlidersMoved();

    // 0 grabs the image, 1 adds defects, 2 removes them.
    void ChangeCurrentCursor(int cursor);
    // The sensor's size in pixels.
    void SetSizes(int width, int height);

Q_SIGNALS:
    // A defect was drawn: top-left point, width, height in sensor pixels, and its DefectUiType.
    void SendPressedMousePos(QPointF& point, int width, int height, int type);
    // The rubber was put down at this scene point.
    void SendDeleteSignal(QPointF point);
    // After each zoom step, also one that changed nothing.
    void SendScaleFactor(double scale);
    // The visible part has moved.
    void SendUpdateView();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void SetStrings();
    void OnDeletedByScene(const SceneRectItem& item) override;
    void OnScrollBarAction(int action);

    DefectMarkers& Markers();
    bool HasSceneItems();
    double LongerSceneSide() const;
    double DeepestScale() const;
    QPointF ScenePosition(const QPointF& widgetPosition) const;
    bool IsInsideSensor(const QPoint& pixel) const;

    void StepIn();
    void StepOut();
    void MultiplyScale(double factor);
    void ResetScale();

    std::unique_ptr<SceneRectItem> CreateSelectionItem();
    void ShowSelection();
    void TakeSelectionAway();
    void Pan(const QPoint& widgetPosition);
    void StretchSelection(const QPoint& pixel);
    void FinishSelection(const QPoint& pixel);
    int SelectedKind(int kind) const;
    void ShowCoordinates(const QPoint& pixel, const QPoint& globalPosition);

    double m_currentScale = 1.0;
    int m_currentTool = 0;
    QPoint m_lastViewPosition;
    QSizeF m_visibleSize;
    QPoint m_selectionStart;
    QSize m_sensorSize;
    QPointF m_pointerPosition;
    QPointF m_menuPosition;
    QMenu m_contextMenu;
    QAction* m_savePixelAction;
    QAction* m_resetViewAction;
    std::unique_ptr<SceneRectItem> m_selectionItem;
    DefectMarkers m_markers;
};
