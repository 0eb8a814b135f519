#include "Detection.h"

#include "AutomaticDetectionThread.h"

namespace CommandLine
{

QVector<DefectInfo> DetectInFrame(const QImage& frame, int threshold, int width, int height,
                                  const std::vector<int>& types)
{
    QVector<DefectInfo> defects;
    for (const TemporaryDefectInfo& found : DetectDefects(frame, threshold, width, height, types))
    {
        DefectInfo defect;
        defect.x = found.x;
        defect.y = found.y;
        defect.width = found.width;
        defect.height = found.height;
        defect.type = found.type;
        defect.color = DefectInfo::NewColor;
        defect.number = defects.size();
        defects.push_back(defect);
    }
    return defects;
}

} // namespace CommandLine
