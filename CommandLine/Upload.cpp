#include "Upload.h"

#include "DefectOutput.h"
#include "DefectUiType.h"
#include "Exception.h"
#include "PixelListXml.h"
#include "PixelListXmlHandler.h"
#include "SensorDefectConversion.h"

#include <QBuffer>

#include <algorithm>
#include <array>
#include <iostream>
#include <tuple>

namespace CommandLine
{

namespace
{

// What two lists have in common however a family spells its defects: the rectangles, in one order. A whole row may come
// back as a run of the sensor's width.
std::vector<std::tuple<int, int, int, int>> Rectangles(const QVector<DefectInfo>& list)
{
    std::vector<std::tuple<int, int, int, int>> rectangles;
    rectangles.reserve(static_cast<std::size_t>(list.size()));
    for (const DefectInfo& defect : list)
    {
        rectangles.emplace_back(defect.y, defect.x, defect.width, defect.height);
    }
    std::sort(rectangles.begin(), rectangles.end());
    return rectangles;
}

} // namespace

KTR::DPC::SensorDefectList SelectForUpload(const QVector<DefectInfo>& list,
                                           const std::vector<KTR::DPC::SensorDefectType>& types)
{
    KTR::DPC::SensorDefectList selected = SetNewSensorDefects(types, list);
    for (int type = DefectUiType::SinglePixel; type <= DefectUiType::Row; ++type)
    {
        const bool stored = type != DefectUiType::Cluster &&
                            std::any_of(types.begin(), types.end(),
                                        [type](KTR::DPC::SensorDefectType candidate)
                                        { return DefectUiType::FromSensorDefectType(candidate) == type; });
        const auto count =
            std::count_if(list.begin(), list.end(), [type](const DefectInfo& defect) { return defect.type == type; });
        if (!stored && count > 0)
        {
            std::cerr << "Left out, since this family does not store the kind: " << count << " of type "
                      << DefectUiType::Text(type) << '\n';
        }
    }
    return selected;
}

QVector<DefectInfo> LoadPixelList(const std::string& path, int width, int height)
{
    const std::vector<int> allTypes = {DefectUiType::SinglePixel, DefectUiType::PixelColumn, DefectUiType::PixelRow,
                                       DefectUiType::Cluster,     DefectUiType::Column,      DefectUiType::Row};
    QByteArray bytes = ReadWholeFile(path);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const std::optional<QVector<DefectInfo>> entries = ParsePixelListXml(buffer);
    std::optional<QVector<DefectInfo>> list = entries ? AcceptEntries(*entries, width, height, allTypes) : std::nullopt;
    if (!list)
    {
        throw KTR::System::Exception("File is corrupted: " + path, true);
    }
    return *std::move(list);
}

QVector<DefectInfo> ToPixelList(KTR::DPC::DpcAdapter& adapter, const KTR::DPC::SensorDefectList& defects)
{
    return ToDefectInfos(defects, static_cast<int>(adapter.GetSensorWidth()),
                         static_cast<int>(adapter.GetSensorHeight()));
}

UploadResult Upload(KTR::DPC::DpcAdapter& adapter, const boost::shared_ptr<KTR::DPC::CorrectionSet>& set,
                    const std::map<std::string, double>& metadata, const QVector<DefectInfo>& list)
{
    for (const auto& [key, value] : metadata)
    {
        set->setMetadata(key, value);
    }
    if (set->getName() == "Factory" || set->getName() == "Preset")
    {
        throw KTR::System::Exception("Factory set can't be overwritten!", true);
    }
    if (!adapter.IsCorrectionSetWritable(set))
    {
        throw KTR::System::Exception("Correction set is not writable", true);
    }
    UploadResult result;
    result.written = SelectForUpload(list, adapter.GetAvailableDefectTypes());
    if (!adapter.IsSpaceSufficient(set, result.written) || !adapter.IsCorrectionSetValid(set, result.written))
    {
        throw KTR::System::Exception("Not enough memory in the camera", true);
    }
    try
    {
        adapter.WriteCorrectionSet(set, result.written);
    }
    catch (const KTR::System::Exception& failure)
    {
        throw KTR::System::Exception("Error with saving pixels\n" + failure.ToString(), true);
    }
    result.readBack = adapter.ReadCorrectionSet(set);
    result.equal =
        Rectangles(ToPixelList(adapter, result.written)) == Rectangles(ToPixelList(adapter, result.readBack));
    return result;
}

} // namespace CommandLine
