// The switch, the files at delivery and the correction of the flash family.
#include "Firmware/Flash/FlashFirmware.h"

#include "Features/EnumNode.h"
#include "Firmware/FactoryPixels.h"
#include "Firmware/Flash/FlashFile.h"

namespace Simulation
{

FlashFirmware::FlashFirmware(const FirmwareServices& services)
    : m_services(services),
      m_flash(services, [this](const FileBytes& bytes) { return DecodeFlashFile(bytes, Size()).has_value(); })
{
}

void FlashFirmware::AddFeatures(FeatureMap& features)
{
    m_switch = &features.Add<BooleanNode>("DefectMaskEnable", true);
    m_switch->OnWrite(
        [this](const auto&)
        {
            m_services.correctionChanged();
            return ZltErrorSuccess;
        });
    m_switch->KeepAtOnce();
    const bool isMono = m_services.config.sensor.filter == ColorFilter::Mono;
    features.Add<EnumNode>("SensorType", isMono ? "Mono" : "Bayer", std::vector<std::string>{"Mono", "Bayer"})
        .ReadOnly();
}

void FlashFirmware::PowerUp()
{
    const std::uint64_t limit = m_services.config.fileSizeMax;
    if (!m_services.state.File(FlashMemory::FactoryFile, limit))
    {
        const FileBytes file =
            EncodeFlashFile(FactoryPixels(m_services.sensorFaults()), Size(), m_services.config.sensor.filter);
        m_services.state.SetFile(FlashMemory::FactoryFile, file);
        m_services.state.SetFile(FlashMemory::UserFile, file);
    }
    m_services.state.SetLoadedFile(FlashMemory::UserFile,
                                   m_services.state.File(FlashMemory::UserFile, limit).value_or(FileBytes()));
}

void FlashFirmware::Resume()
{
    const auto loaded = m_services.state.LoadedFile(FlashMemory::UserFile, m_services.config.fileSizeMax);
    m_pixels = DecodeFlashFile(loaded.value_or(FileBytes()), Size()).value_or(std::vector<MaskedPixel>());
    m_services.correctionChanged();
}

CorrectionMap FlashFirmware::Correction(const SensorConfig& sensor, Mirroring /*mirroring*/) const
{
    return {sensor.width, sensor.height, m_switch->Current() ? m_pixels : std::vector<MaskedPixel>()};
}

} // namespace Simulation
