// The generic file format of the newer cameras: defect pixel and non-uniformity files as chains of tagged blocks.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

// Pure functions: what is given goes into the bytes, and nothing is checked or sorted. All numbers are little-endian.
namespace KTR::GFF
{

using Bytes = std::vector<std::uint8_t>;

// Files in the field hold these numbers: they never change.
enum class DpcType : std::uint32_t
{
    Ostrel = 2,
    TamorinPro = 3
};
enum class FpncType : std::uint32_t
{
    TamorinPro = 4
};
enum class DataFormat : std::uint32_t
{
    Ostrel = 16,
    TamorinPro = 17
};

// One data set of a non-uniformity file. Members named after a block go into it as they stand; an absent one leaves its
// block out.
struct NucData
{
    std::array<std::uint32_t, 4> dset{}; // the last four numbers of the block
    float gain = 0;                      // the file holds ten-thousandths of it
    std::uint32_t temperature = 0;       // bits, as they stand
    std::uint32_t exposure = 0;          // bits, as they stand
    std::optional<std::uint32_t> blm1;
    std::optional<std::uint32_t> pfmt;
    std::optional<std::uint32_t> ubpc;
    std::vector<int> spov; // its block is there even without entries
    Bytes payload;
};

// A defect pixel file, one data set a payload. A payload is made by CoordsToVector or ends in four bytes that do not
// count as data, as one of its does. Height and width of the sensor in pixels, temperature in degrees Celsius, exposure
// in microseconds.
Bytes CreateFileDpc(const std::vector<Bytes>& payloads, std::uint32_t height, std::uint32_t width, DpcType dpcType,
                    DataFormat dataFormat, std::optional<float> gain, float temperature, float exposure,
                    std::uint32_t fileCode);
Bytes CreateFileDpcOstrel(const std::vector<Bytes>& payloads, std::uint32_t height, std::uint32_t width,
                          float temperature, float exposure, std::uint32_t fileCode);
Bytes CreateFileDpcOstrel(const Bytes& payload, std::uint32_t height, std::uint32_t width, float temperature,
                          float exposure, std::uint32_t fileCode);
Bytes CreateFileDpcTamorinPro(const std::vector<Bytes>& payloads, std::uint32_t height, std::uint32_t width, float gain,
                              float temperature, float exposure, std::uint32_t fileCode);
Bytes CreateFileDpcTamorinPro(const Bytes& payload, std::uint32_t height, std::uint32_t width, float gain,
                              float temperature, float exposure, std::uint32_t fileCode);

// Coordinates of 14 bits each, row first, in the order given, and the end mark behind them.
Bytes CoordsToVector(const std::vector<std::pair<std::uint16_t, std::uint16_t>>& coords);

// Packs the low bits of each value densely, least significant bit first.
Bytes ConvertMonoToMonoPacked(const std::vector<std::uint16_t>& values, int bitsPerPixel);

// A non-uniformity file, one data set for each entry.
Bytes CreateFileNuc(const std::vector<NucData>& dataSets, FpncType fpncType, DataFormat dataFormat,
                    std::uint32_t fileCode);
Bytes CreateFileNucTamorinPro(const std::vector<NucData>& dataSets, std::uint32_t fileCode);

} // namespace KTR::GFF
