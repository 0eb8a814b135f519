// A scene rectangle whose owner outlives the scene's content.
#include "SceneRectItem.h"

#include <QPen>

SceneRectItem::SceneRectItem(SceneRectItemOwner& owner, const QRectF& rectangle, const QPen& pen)
    : QGraphicsRectItem(rectangle),
      m_owner(owner)
{
    setPen(pen);
}

SceneRectItem::~SceneRectItem()
{
    if (scene() != nullptr)
    {
        m_owner.OnDeletedByScene(*this);
    }
}
