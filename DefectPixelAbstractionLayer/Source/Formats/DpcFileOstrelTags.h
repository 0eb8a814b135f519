// The block tags of the Ostrel defect pixel file: four ASCII letters each, read as a little-endian number.
#pragma once

#include <cstdint>

namespace KTR::DPC::OstrelTags
{

constexpr std::uint32_t Type = 0x31595450;        // "PTY1"
constexpr std::uint32_t TypeDpc = 0x30435044;     // "DPC0", the content of the type block
constexpr std::uint32_t FormatCode = 0x314F4346;  // "FCO1"
constexpr std::uint32_t DpcType = 0x31544344;     // "DCT1"
constexpr std::uint32_t DataFormat = 0x544D4644;  // "DFMT"
constexpr std::uint32_t Info = 0x31304649;        // "IF01"
constexpr std::uint32_t Index = 0x58444E49;       // "INDX"
constexpr std::uint32_t DataSet = 0x54455344;     // "DSET"
constexpr std::uint32_t Temperature = 0x31504D54; // "TMP1"
constexpr std::uint32_t Exposure = 0x31505845;    // "EXP1"
constexpr std::uint32_t Payload = 0x31414450;     // "PDA1"

} // namespace KTR::DPC::OstrelTags
