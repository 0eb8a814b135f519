// The rectangles that mark defects over the image.
#include "DefectMarkers.h"

#include "DefectColors.h"

#include <QGraphicsScene>
#include <QTimer>

#include <memory>

namespace
{

// Above the image, whichever of them came into the scene first.
constexpr qreal MarkerLevel = 1.0;

void TakeOut(QGraphicsRectItem& item)
{
    if (item.scene() != nullptr)
    {
        item.scene()->removeItem(&item);
    }
}

} // namespace

DefectMarkers::DefectMarkers(QObject* parent)
    : QObject(parent),
      m_newDefectPen(Lorvane::DefectPen(DefectInfo::NewColor, 0)),
      m_cameraDefectPen(Lorvane::DefectPen(DefectInfo::CameraColor, 0))
{
}

DefectMarkers::~DefectMarkers()
{
    RemoveAll();
}

void DefectMarkers::SetScene(QGraphicsScene* scene)
{
    if (scene == m_scene)
    {
        return;
    }
    TakeOutOfScene();
    m_scene = scene;
    if (scene != nullptr)
    {
        // A search tree would have to sort what it finds for each frame, and at a zoom that shows the whole sensor that
        // is everything.
        scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    }
    PutIntoScene();
}

void DefectMarkers::Add(const QRect& rectangle, int origin)
{
    QGraphicsRectItem* const item =
        CreateItem(rectangle, origin == DefectInfo::CameraColor ? m_cameraDefectPen : m_newDefectPen);
    m_items.append(item);
    if (m_scene != nullptr && !m_hidden)
    {
        m_scene->addItem(item);
    }
}

void DefectMarkers::Remove(int row)
{
    if (HasRow(row))
    {
        const std::unique_ptr<QGraphicsRectItem> item(m_items.takeAt(row));
        TakeOut(*item);
    }
}

void DefectMarkers::RemoveAll()
{
    TakeOutOfScene();
    qDeleteAll(m_items);
    m_items.clear();
}

void DefectMarkers::Move(int row, const QRect& rectangle)
{
    if (HasRow(row))
    {
        m_items[row]->setPen(m_newDefectPen);
        m_items[row]->setRect(rectangle);
    }
}

void DefectMarkers::SetHidden(bool hidden)
{
    m_hidden = hidden;
    if (hidden)
    {
        TakeOutOfScene();
    }
    else
    {
        PutIntoScene();
    }
}

bool DefectMarkers::IsAnyInScene() const
{
    return !m_items.isEmpty() && m_items.first()->scene() != nullptr;
}

void DefectMarkers::OnDeletedByScene(const SceneRectItem& item)
{
    const int row = m_items.indexOf(const_cast<SceneRectItem*>(&item));
    m_items[row] = CreateItem(item.rect(), item.pen());
    TakeOutOfScene();
    QTimer::singleShot(0, this, &DefectMarkers::PutIntoScene);
}

QGraphicsRectItem* DefectMarkers::CreateItem(const QRectF& rectangle, const QPen& pen)
{
    SceneRectItemOwner& owner = *this;
    auto item = std::make_unique<SceneRectItem>(owner, rectangle, pen);
    item->setZValue(MarkerLevel);
    return item.release();
}

void DefectMarkers::PutIntoScene()
{
    if (m_scene == nullptr || m_hidden)
    {
        return;
    }
    for (QGraphicsRectItem* item : qAsConst(m_items))
    {
        if (item->scene() == nullptr)
        {
            m_scene->addItem(item);
        }
    }
}

// In the order in which they went in: the scene then finds each one at the front of its own lists.
void DefectMarkers::TakeOutOfScene()
{
    for (QGraphicsRectItem* item : qAsConst(m_items))
    {
        TakeOut(*item);
    }
}
