// Defect files that name, for each defective pixel, the neighbours in its row that may stand in for it.
#pragma once

#include "DefectivePixelInfo.h"
#include "DpcCameraInfo.h"
#include "DpcHeader.h"
#include "PixelCoords.h"

#include <cstdint>
#include <string>
#include <vector>

namespace KTR::DPC
{

// Pixel places here are row first (PixelCoords::x), column second (PixelCoords::y).
class NeighborByteEncoding
{
public:
    NeighborByteEncoding() = default;
    explicit NeighborByteEncoding(const CameraInfo& info) : m_cameraInfo(info) {}
    NeighborByteEncoding(const NeighborByteEncoding&) = default;
    NeighborByteEncoding& operator=(const NeighborByteEncoding&) = default;
    virtual ~NeighborByteEncoding() { Clear(); }

    // An earlier result stays until the next encoding, but no longer counts.
    void Initialize(const CameraInfo& info, const std::vector<PixelCoords>& defects);
    void Clear();

    // One result for each listed pixel, in list order. False, and nothing changed, for an empty list and for a sensor
    // less than nine pixels wide. Throws a KTR::System::Exception for a sensor type other than "Mono" and "Bayer".
    // Costs the number of defects, however they lie.
    bool Generate1DNbEncodingFromDefectList();

    // 0xFFFFFFFF as long as there is no valid result.
    std::uint32_t GetNumberOfDefects() const;
    // False, with the reason as last error, when there is no such result.
    bool GetDpcInfoAt(unsigned int index, DefectivePixelInfo& info);
    const std::string& GetLastErrorText() const { return m_lastError; }

    // Both take results and their list entries away and return their places. A row of the sensor's height and a column
    // of its width still count as inside.
    std::vector<PixelCoords> RemoveOutOfRangeDefects(const CameraInfo& info);
    std::vector<PixelCoords> RemoveUncorrectableDefects(); // those without a neighbour to use
    std::vector<PixelCoords> GetUnrecommendedDefects() const { return {}; }

    std::size_t GetDefectFileSize() const; // bytes
    // Writes the file to the start of the vector, which gets the file's size when it is empty. False without results,
    // and when a vector that is not empty is too small.
    bool PrepareBinaryDefectFile(std::vector<unsigned char>& out);

private:
    template <typename Condition> std::vector<PixelCoords> removeIf(Condition condition);

    CameraInfo m_cameraInfo;
    std::vector<PixelCoords> m_defects;
    DpcHeader m_header;
    std::vector<DefectivePixelInfo> m_result;
    bool m_encoded = false; // the result is that of the list
    std::string m_lastError;
};

} // namespace KTR::DPC
