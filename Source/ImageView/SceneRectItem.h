// A scene rectangle whose owner outlives the scene's content.
#pragma once

#include <QGraphicsRectItem>

class SceneRectItem;

// Owns SceneRectItems that stand in a scene which somebody else may clear.
class SceneRectItemOwner
{
public:
    // The scene deletes the item on its own; the item is still whole, and no part of it may be kept.
    virtual void OnDeletedByScene(const SceneRectItem& item) = 0;

protected:
    ~SceneRectItemOwner() = default;
};

// QGraphicsScene::clear deletes whatever stands in the scene, also what is not the scene's. This rectangle tells its
// owner, so that no pointer is left behind. The owner itself takes an item out of the scene before deleting it.
class SceneRectItem : public QGraphicsRectItem
{
public:
    // rectangle: sensor coordinates. The pen is an outline of one screen pixel at every zoom when its width is 0.
    SceneRectItem(SceneRectItemOwner& owner, const QRectF& rectangle, const QPen& pen);
    ~SceneRectItem() override;
    SceneRectItem(const SceneRectItem&) = delete;
    SceneRectItem& operator=(const SceneRectItem&) = delete;

private:
    SceneRectItemOwner& m_owner;
};
