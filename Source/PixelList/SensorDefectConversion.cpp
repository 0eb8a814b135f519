// The way between the pixel list and the records of the correction sets.
#include "SensorDefectConversion.h"

#include "ClusterDefect.h"
#include "ColumnDefect.h"
#include "DefectUiType.h"
#include "PixelColumnDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <boost/make_shared.hpp>

using namespace KTR::DPC;

namespace
{

// Null for a cluster.
boost::shared_ptr<SensorDefect> MakeSensorDefect(SensorDefectType type, const DefectInfo& info)
{
    const auto x = static_cast<std::uint32_t>(info.x);
    const auto y = static_cast<std::uint32_t>(info.y);
    switch (type)
    {
    case SensorDefectType::Row:
        return boost::make_shared<RowDefect>(y);
    case SensorDefectType::Column:
        return boost::make_shared<ColumnDefect>(x);
    case SensorDefectType::Pixel:
        return boost::make_shared<PixelDefect>(x, y);
    case SensorDefectType::PixelRow:
        return boost::make_shared<PixelRowDefect>(x, y, static_cast<std::uint32_t>(info.width));
    case SensorDefectType::PixelColumn:
        return boost::make_shared<PixelColumnDefect>(x, y, static_cast<std::uint32_t>(info.height));
    case SensorDefectType::Cluster:
        break;
    }
    return nullptr;
}

} // namespace

SensorDefectList SetNewSensorDefects(const std::vector<SensorDefectType>& types, const QVector<DefectInfo>& list)
{
    SensorDefectList defects;
    for (const SensorDefectType type : types)
    {
        if (type == SensorDefectType::Cluster)
        {
            continue;
        }
        for (const DefectInfo& info : list)
        {
            if (info.type == DefectUiType::FromSensorDefectType(type))
            {
                defects.push_back(MakeSensorDefect(type, info));
            }
        }
    }
    defects.shrink_to_fit();
    return defects;
}

std::optional<DefectInfo> ToDefectInfo(const SensorDefect& defect, int width, int height)
{
    const auto make = [](std::uint32_t x, std::uint32_t y, int entryWidth, int entryHeight, int type)
    {
        return DefectInfo{static_cast<int>(x),    static_cast<int>(y), entryWidth, entryHeight, type,
                          DefectInfo::CameraColor};
    };
    if (const auto* pixel = dynamic_cast<const PixelDefect*>(&defect))
    {
        return make(pixel->getX(), pixel->getY(), 1, 1, DefectUiType::SinglePixel);
    }
    if (const auto* column = dynamic_cast<const ColumnDefect*>(&defect))
    {
        return make(column->getX(), 0, 1, height, DefectUiType::Column);
    }
    if (const auto* pixelColumn = dynamic_cast<const PixelColumnDefect*>(&defect))
    {
        return make(pixelColumn->getX(), pixelColumn->getY(), 1, static_cast<int>(pixelColumn->getHeight()),
                    DefectUiType::PixelColumn);
    }
    if (const auto* row = dynamic_cast<const RowDefect*>(&defect))
    {
        return make(0, row->getY(), width, 1, DefectUiType::Row);
    }
    if (const auto* pixelRow = dynamic_cast<const PixelRowDefect*>(&defect))
    {
        return make(pixelRow->getX(), pixelRow->getY(), static_cast<int>(pixelRow->getWidth()), 1,
                    DefectUiType::PixelRow);
    }
    return std::nullopt;
}

QVector<DefectInfo> ToDefectInfos(const SensorDefectList& defects, int width, int height)
{
    QVector<DefectInfo> list;
    list.reserve(static_cast<int>(defects.size()));
    const auto add = [&](const SensorDefect& defect)
    {
        if (std::optional<DefectInfo> info = ToDefectInfo(defect, width, height))
        {
            info->number = list.size();
            list.append(*info);
        }
    };
    for (const boost::shared_ptr<SensorDefect>& defect : defects)
    {
        if (const auto* cluster = dynamic_cast<const ClusterDefect*>(defect.get()))
        {
            for (const PixelDefect& pixelOfCluster : cluster->getPixels())
            {
                add(pixelOfCluster);
            }
        }
        else
        {
            add(*defect);
        }
    }
    return list;
}
