// The rectangles that mark defects over the image.
#pragma once

#include "SceneRectItem.h"

#include <QObject>
#include <QPen>
#include <QPointer>
#include <QVector>

class QGraphicsScene;

// One rectangle for each row of the pixel list, in the order of the rows. The markers belong to this object, also while
// they stand in a scene: when that is cleared or deleted they survive, and after a clearing they come back as soon as
// the event loop runs. GUI thread.
class DefectMarkers : public QObject, private SceneRectItemOwner
{
    Q_OBJECT

public:
    explicit DefectMarkers(QObject* parent = nullptr);
    ~DefectMarkers() override;

    // Where the markers are shown; they move over from the scene before. May be null. The scene is borrowed.
    void SetScene(QGraphicsScene* scene);

    // rectangle: sensor coordinates. origin: one of DefectInfo's colours.
    void Add(const QRect& rectangle, int origin);
    // A row without a marker is left alone, here and in Move.
    void Remove(int row);
    void RemoveAll();
    // The marker's defect was edited: it counts as new.
    void Move(int row, const QRect& rectangle);

    // Hidden markers stand in no scene.
    void SetHidden(bool hidden);

    bool IsAnyInScene() const;

private:
    void OnDeletedByScene(const SceneRectItem& item) override;
    QGraphicsRectItem* CreateItem(const QRectF& rectangle, const QPen& pen);
    bool HasRow(int row) const { return row >= 0 && row < m_items.size(); }
    void PutIntoScene();
    void TakeOutOfScene();

    QPointer<QGraphicsScene> m_scene;
    QVector<QGraphicsRectItem*> m_items;
    QPen m_newDefectPen;
    QPen m_cameraDefectPen;
    bool m_hidden = false;
};
