// The kinds of defects in the pixel list.
#include "DefectUiType.h"

#include <QtGlobal>

namespace DefectUiType
{

const char* Text(int type)
{
    switch (type)
    {
    case SinglePixel:
        return QT_TRANSLATE_NOOP("TreeModel", "Single Pixel");
    case PixelColumn:
        return QT_TRANSLATE_NOOP("TreeModel", "Pixel Column");
    case PixelRow:
        return QT_TRANSLATE_NOOP("TreeModel", "Pixel Row");
    case Cluster:
        return QT_TRANSLATE_NOOP("TreeModel", "Cluster");
    case Column:
        return QT_TRANSLATE_NOOP("TreeModel", "Column");
    case Row:
        return QT_TRANSLATE_NOOP("TreeModel", "Row");
    default:
        return QT_TRANSLATE_NOOP("TreeModel", "None");
    }
}

int FromSensorDefectType(KTR::DPC::SensorDefectType type)
{
    switch (type)
    {
    case KTR::DPC::SensorDefectType::Row:
        return Row;
    case KTR::DPC::SensorDefectType::Column:
        return Column;
    case KTR::DPC::SensorDefectType::Pixel:
        return SinglePixel;
    case KTR::DPC::SensorDefectType::PixelRow:
        return PixelRow;
    case KTR::DPC::SensorDefectType::PixelColumn:
        return PixelColumn;
    case KTR::DPC::SensorDefectType::Cluster:
        return Cluster;
    }
    Q_UNREACHABLE();
}

} // namespace DefectUiType
