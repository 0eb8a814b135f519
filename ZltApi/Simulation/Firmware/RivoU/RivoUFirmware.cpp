// Correction features and the one file of the Rivo U family.
#include "Firmware/RivoU/RivoUFirmware.h"

#include "Firmware/FactoryPixels.h"
#include "Firmware/RivoU/RivoUFile.h"

namespace Simulation
{

namespace
{

constexpr const char* Factory = "Factory";
constexpr const char* User = "User";
constexpr const char* Off = "Off";
constexpr const char* On = "On";
constexpr const char* FileName = "DefectPixelCorrection";

std::string Storage(const std::string& set)
{
    return FileName + set;
}

} // namespace

RivoUFirmware::RivoUFirmware(const FirmwareServices& services)
    : m_services(services),
      m_default(services.state),
      m_files(services, {File()}, services.config.blockSize)
{
}

CameraFile RivoUFirmware::File()
{
    CameraFile file;
    file.name = FileName;
    file.maximumSize = m_services.config.fileSizeMax;
    file.readFailsWhenEmpty = m_services.config.userReadFailsWhenEmpty;
    file.emptiedByOpening = true;
    file.storage = [this] { return Storage(m_set->Current()); };
    file.isLocked = [this] { return m_set->Current() == Factory; };
    file.onChanged = m_services.correctionChanged;
    return file;
}

void RivoUFirmware::AddFeatures(FeatureMap& features)
{
    const std::vector<std::string> sets = {Factory, User};
    // The other features belong to the selected correction; of the fixed pattern noise this camera has no sets.
    auto& selector =
        features.Add<EnumNode>("CorrectionSelector", "FixedPatternNoiseCorrection",
                               std::vector<std::string>{"FixedPatternNoiseCorrection", "DefectPixelCorrection"});
    const auto isSelected = [&selector] { return selector.Current() == "DefectPixelCorrection"; };
    m_set = &features.Add<EnumNode>("CorrectionSetSelector", Factory, sets);
    m_set->WritableIf(isSelected);
    m_set->KeepAtOnce();
    m_default.AddFeature(features, sets);
    m_applied = &features.Add<EnumNode>("CorrectionSetApplied", Factory, std::vector<std::string>{Off, Factory, User});
    m_applied->KeepAtOnce();
    features.Hide(m_applied->Name());
    auto& mode = features.Add<EnumNode>("CorrectionMode", On, std::vector<std::string>{Off, On});
    mode.OnRead([this] { return m_applied->Current() == m_set->Current() ? On : Off; });
    mode.OnWrite(
        [this](const std::string& value)
        {
            m_applied->Assign(value == On ? m_set->Current() : Off);
            m_services.correctionChanged();
            return ZltErrorSuccess;
        });
    mode.WritableIf(isSelected);
    mode.KeepAtOnce();
    m_files.AddFeatures(features);
}

void RivoUFirmware::PowerUp()
{
    if (!m_services.state.File(Storage(Factory), m_services.config.fileSizeMax))
    {
        m_services.state.SetFile(Storage(Factory),
                                 EncodeRivoUFile(FactoryPixels(m_services.sensorFaults()), Size(), Able()));
    }
    m_default.Recall();
    m_set->Assign(m_default.Current());
    m_applied->Assign(m_default.Current());
}

void RivoUFirmware::Resume()
{
    m_default.Recall();
    m_services.correctionChanged();
}

std::vector<PixelPosition> RivoUFirmware::HiddenPixels(Mirroring mirroring) const
{
    const auto file = m_services.state.File(Storage(m_applied->Current()), m_services.config.fileSizeMax);
    return DecodeRivoUFile(file.value_or(FileBytes()), Size(), Able(), mirroring);
}

} // namespace Simulation
