// Numbers of the Ostrel defect file. Cameras in the field hold such files: no value may ever change.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Simulation::OstrelLayout
{

constexpr std::uint32_t Tag(const char (&text)[5])
{
    return static_cast<std::uint32_t>(static_cast<unsigned char>(text[0])) |
           static_cast<std::uint32_t>(static_cast<unsigned char>(text[1])) << 8 |
           static_cast<std::uint32_t>(static_cast<unsigned char>(text[2])) << 16 |
           static_cast<std::uint32_t>(static_cast<unsigned char>(text[3])) << 24;
}

constexpr std::uint32_t TypeTag = Tag("PTY1");
constexpr std::uint32_t FormatConstantTag = Tag("FCO1");
constexpr std::uint32_t CorrectionTypeTag = Tag("DCT1");
constexpr std::uint32_t DataFormatTag = Tag("DFMT");
constexpr std::uint32_t InfoTag = Tag("IF01");
constexpr std::uint32_t IndexTag = Tag("INDX");
constexpr std::uint32_t DataSetTag = Tag("DSET");
constexpr std::uint32_t TemperatureTag = Tag("TMP1");
constexpr std::uint32_t ExposureTag = Tag("EXP1");
constexpr std::uint32_t PayloadTag = Tag("PDA1");

constexpr std::uint32_t DefectFileType = Tag("DPC0");
constexpr std::uint32_t FormatConstantLow = 0;
constexpr std::uint32_t FormatConstantHigh = 0x02000000;
constexpr std::uint32_t CorrectionType = 2;
constexpr std::uint32_t DataFormat = 16;
constexpr std::uint32_t BlockHeadSize = 8; // bytes: tag and length
constexpr std::uint32_t DataSetInfoSize = 28;
constexpr std::uint32_t InfoSize = 4 * BlockHeadSize + 4 + DataSetInfoSize + 4 + 4;
constexpr std::uint32_t ReferenceTemperature = 0x41A00000; // the float 20.0, degrees Celsius
constexpr std::uint32_t ReferenceExposure = 0x447A0000;    // the float 1000.0

constexpr std::uint32_t ReverseShift = 30; // the reverse value stands in the top two bits
constexpr std::uint32_t ReverseX = 1;
constexpr std::uint32_t ReverseY = 2;
constexpr std::size_t MostDataSets = 4;

constexpr std::uint32_t SegmentCount = 16; // words in the index table
constexpr std::size_t TableSize = 32;      // bytes
constexpr std::uint16_t WordKind = 0xC000;
constexpr std::uint16_t WordValue = 0x3FFF;
constexpr std::uint16_t PixelWord = 0x0000;
constexpr std::uint16_t RunWord = 0x4000;
constexpr std::uint16_t RowWord = 0x8000;
constexpr std::uint16_t EndWord = 0xC000;

// The sixteenth of the sensor that a row lies in; the last one takes what the division leaves over.
constexpr std::uint32_t SegmentOf(std::uint32_t row, std::uint32_t height)
{
    const std::uint32_t rows = height / SegmentCount;
    return rows == 0 ? 0 : (row / rows < SegmentCount ? row / rows : SegmentCount - 1);
}

} // namespace Simulation::OstrelLayout
