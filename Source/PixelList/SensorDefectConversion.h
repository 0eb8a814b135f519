// The way between the pixel list and the records of the correction sets.
#pragma once

#include "DefectInfo.h"
#include "SensorDefect.h"

#include <QVector>

#include <optional>
#include <vector>

// What goes into a camera that stores these kinds: grouped by kind in the order of types, within a kind in list order.
// Entries of other kinds are left out, and clusters always.
KTR::DPC::SensorDefectList SetNewSensorDefects(const std::vector<KTR::DPC::SensorDefectType>& types,
                                               const QVector<DefectInfo>& list);

// A camera's defect as an entry with the camera's color and no number; nothing for a cluster. width and height are the
// sensor's.
std::optional<DefectInfo> ToDefectInfo(const KTR::DPC::SensorDefect& defect, int width, int height);

// The defects of a camera as entries with the camera's color, one for each in their order, and a cluster as its single
// pixels. width and height are the sensor's. Nothing is left out, also where two entries have the same position.
QVector<DefectInfo> ToDefectInfos(const KTR::DPC::SensorDefectList& defects, int width, int height);
