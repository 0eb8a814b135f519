// The adapter for the flash family: older GigE cameras that keep their defects in a flash file system.
#pragma once

#include "DpcCameraInfo.h"
#include "NeighborByteEncoding.h"
#include "OneSetAdapter.h"

#include <boost/shared_ptr.hpp>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace KTR::DPC
{

// Names in the cameras of this family.
namespace QuorsalinWithPython
{
inline const std::string dpcFeatureName = "DefectMaskEnable"; // switches the correction
inline const std::string deviceModelFeatureName = "DeviceModelName";
inline const std::string serialNumberFeatureName = "DeviceSerialNumber";
constexpr std::chrono::milliseconds ErasePoolPeriod{1000}; // between two looks at the status

// Names that the camera does not tell stay "Unknown".
CameraInfo initializeCameraInfo(const boost::shared_ptr<CameraAbstraction>& camera);
} // namespace QuorsalinWithPython

// Registers and two windows in camera memory move one file as a whole. Erasing and programming take the camera seconds;
// the calling thread waits for them, for as long as the camera says that it is busy. A write that fails after the erase
// leaves the camera without a list.
class DpcAdapterQuorsalinWithPython final : public OneSetAdapter
{
public:
    // Reads sensor, names and flash size from the camera.
    explicit DpcAdapterQuorsalinWithPython(const boost::shared_ptr<CameraAbstraction>& camera,
                                           std::chrono::milliseconds pollPeriod = QuorsalinWithPython::ErasePoolPeriod);

    bool IsCorrectionSetEnabled(const CorrectionSetPtr& set) override;
    void SetCorrectionSetEnabled(const CorrectionSetPtr& set, const bool& enabled) override;
    SensorDefectList ReadCorrectionSet(const CorrectionSetPtr& set) override;
    void WriteCorrectionSet(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    bool IsSpaceSufficient(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // Beside the kinds also the places: on the sensor, and each with a neighbour that can stand in. An empty list is
    // not valid.
    bool IsCorrectionSetValid(const CorrectionSetPtr& set, const SensorDefectList& defects) override;
    // Makes the factory's file the user's.
    void RestoreFactorySettings(const CorrectionSetPtr& set) override;
    bool IsRestoreFactorySettingsAvailable(const CorrectionSetPtr& set) override;
    // The same as RestoreFactorySettings: this family has no empty file.
    void EraseCorrectionSet(CorrectionSetPtr& set) override;

    // The pixels in a whole file, none in no bytes. Throws when the bytes do not hold what their header says.
    static SensorDefectList DecodeBinaryDefectFile(const std::vector<unsigned char>& file);
    // A whole file with the pixels among the defects, in list order.
    static std::vector<unsigned char> CreateBinaryDefectFile(const SensorDefectList& defects, const CameraInfo& info);
    // False when there are pixels that do not lie on the sensor or cannot be corrected; they leave the encoding, and
    // the list of places gets them.
    static bool ValidateDefectivePixelCoordinates(std::vector<PixelCoords>& refused, NeighborByteEncoding& encoding,
                                                  const CameraInfo& info);
    // Replaces a whole file, without reading it back. A file that the flash cannot hold has cost the old one already.
    void UploadFlashFile(std::uint32_t id, std::uint32_t privilege, const std::vector<unsigned char>& data);

private:
    bool CameraSupportsFlashFileAccess();
    // False when a status could not be cleared. An erase error is left as it is.
    bool HandleErrorStatus();
    // False for a packet of another place than the expected one.
    bool ReadDataPacket(std::uint32_t offset, unsigned char* data, std::uint32_t length);
    void WriteDataPacket(std::uint32_t offset, const unsigned char* data, std::uint32_t length);
    // An empty file leaves the data as they are.
    bool DownloadFlashFile(std::uint32_t id, std::vector<unsigned char>& data);
    void EraseFlashFile(std::uint32_t id, std::uint32_t privilege, std::uint32_t& status);
    // The user's file, read back and compared.
    void UploadDefectivePixelList(const std::vector<unsigned char>& data);
    // Waits until the status is none of the busy ones, which there are one or two of.
    std::uint32_t WaitWhile(std::uint32_t busy, std::uint32_t otherBusy);

    CameraInfo m_cameraInfo;
    std::uint64_t m_maxDefects;
    std::uint32_t m_maxFileSize; // bytes
    std::chrono::milliseconds m_pollPeriod;
};

} // namespace KTR::DPC
