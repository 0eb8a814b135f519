// The road of a pixel list into a correction set, with the window's order of checks and its messages.
#pragma once

#include "CorrectionSet.h"
#include "DefectInfo.h"
#include "DpcAdapter.h"
#include "SensorDefect.h"

#include <QVector>
#include <boost/shared_ptr.hpp>

#include <map>
#include <string>
#include <vector>

namespace CommandLine
{

// A pixel list as it is uploaded: only the kinds that the family stores, grouped by kind in its order. Says on standard
// error how many of which kind were left out.
KTR::DPC::SensorDefectList SelectForUpload(const QVector<DefectInfo>& list,
                                           const std::vector<KTR::DPC::SensorDefectType>& types);

// The pixel list in an XML file; a well-formed file without any entry is the empty list. width and height are those of
// the sensor. Throws KTR::System::Exception with the window's words when the file is not accepted.
QVector<DefectInfo> LoadPixelList(const std::string& path, int width, int height);

struct UploadResult
{
    KTR::DPC::SensorDefectList written;
    KTR::DPC::SensorDefectList readBack;
    bool equal; // whether both cover the same rectangles of the sensor
};

// Checks, writes and reads back. Throws KTR::System::Exception when the set or the list is refused or the write fails.
UploadResult Upload(KTR::DPC::DpcAdapter& adapter, const boost::shared_ptr<KTR::DPC::CorrectionSet>& set,
                    const std::map<std::string, double>& metadata, const QVector<DefectInfo>& list);

// The defects as entries of a pixel list that was read from a camera.
QVector<DefectInfo> ToPixelList(KTR::DPC::DpcAdapter& adapter, const KTR::DPC::SensorDefectList& defects);

} // namespace CommandLine
