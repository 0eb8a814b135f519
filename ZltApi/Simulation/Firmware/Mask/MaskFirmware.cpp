// The switch and the permanent table of the older GigE cameras.
#include "Firmware/Mask/MaskFirmware.h"

#include "Features/EnumNode.h"
#include "Features/ValueNode.h"
#include "Firmware/Mask/ColumnTable.h"
#include "Firmware/Mask/RectangleTable.h"

#include <utility>

namespace Simulation
{

namespace
{

constexpr const char* TableFile = "DefectMaskTable";
constexpr std::uint64_t LargestTable = 1U << 28; // bytes; no rig lets a table grow so far
constexpr const char* RectangleSwitch = "DefectMaskEnable";
constexpr const char* ColumnSwitch = "DefectMaskColumnEnable";
constexpr const char* Enabled = "Enabled";

} // namespace

MaskFirmware::MaskFirmware(const FirmwareServices& services, std::unique_ptr<MaskTable> table, const char* feature,
                           Switch kind)
    : m_services(services),
      m_table(std::move(table)),
      m_feature(feature),
      m_kind(kind)
{
}

SensorSize MaskFirmware::SizeOf(const FirmwareServices& services)
{
    return {services.config.sensor.width, services.config.sensor.height};
}

void MaskFirmware::AddFeatures(FeatureMap& features)
{
    const auto changed = [this](const auto&)
    {
        m_services.correctionChanged();
        return ZltErrorSuccess;
    };
    if (m_kind == Switch::Enumeration)
    {
        auto& node = features.Add<EnumNode>(m_feature, Enabled, std::vector<std::string>{"Disabled", Enabled});
        node.OnWrite(changed);
        node.KeepAtOnce();
        m_isOn = [&node] { return node.Current() == Enabled; };
    }
    else
    {
        auto& node = features.Add<BooleanNode>(m_feature, true);
        node.OnWrite(changed);
        node.KeepAtOnce();
        m_isOn = [&node] { return node.Current(); };
    }
}

void MaskFirmware::Resume()
{
    m_table->Load(m_services.state.File(TableFile, LargestTable).value_or(FileBytes()));
    m_services.correctionChanged();
}

std::vector<PixelPosition> MaskFirmware::HiddenPixels(Mirroring) const
{
    return m_isOn() ? m_table->Pixels(SizeOf(m_services)) : std::vector<PixelPosition>();
}

ZltErrorType MaskFirmware::ReadMemory(std::uint64_t address, std::vector<unsigned char>& data)
{
    return m_table->Read(address, data);
}

ZltErrorType MaskFirmware::WriteMemory(std::uint64_t address, const std::vector<unsigned char>& data)
{
    const FileBytes before = m_table->Entries();
    const ZltErrorType result = m_table->Write(address, data);
    if (m_table->Entries() != before)
    {
        m_services.state.SetFile(TableFile, m_table->Entries());
        m_services.correctionChanged();
    }
    return result;
}

RectangleMaskFirmware::RectangleMaskFirmware(const FirmwareServices& services)
    : MaskFirmware(services, std::make_unique<RectangleTable>(services.config.fileSizeMax, SizeOf(services)),
                   RectangleSwitch, Switch::Boolean)
{
}

RectangleMaskModeFirmware::RectangleMaskModeFirmware(const FirmwareServices& services)
    : MaskFirmware(services, std::make_unique<RectangleTable>(services.config.fileSizeMax, SizeOf(services)),
                   RectangleSwitch, Switch::Enumeration)
{
}

ColumnMaskFirmware::ColumnMaskFirmware(const FirmwareServices& services)
    : MaskFirmware(services, std::make_unique<ColumnTable>(), ColumnSwitch, Switch::Boolean)
{
}

} // namespace Simulation
