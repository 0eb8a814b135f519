// Correction features and working memory of the Ostrel family.
#include "Firmware/Ostrel/OstrelFirmware.h"

#include "Firmware/FactoryPixels.h"
#include "Firmware/Ostrel/OstrelFile.h"

namespace Simulation
{

namespace
{

constexpr const char* Preset = "Preset";
constexpr const char* User = "User";

std::string FileName(const std::string& set)
{
    return "DefectPixelCorrection" + set;
}

CameraFile FileOfSet(const char* set, const CameraConfig& config)
{
    const bool isUser = set == std::string(User);
    CameraFile file;
    file.name = FileName(set);
    file.maximumSize = config.fileSizeMax;
    file.writable = isUser;
    file.readFailsWhenEmpty = isUser && config.userReadFailsWhenEmpty;
    file.storage = [name = file.name] { return name; };
    return file;
}

} // namespace

OstrelFirmware::OstrelFirmware(const FirmwareServices& services)
    : m_services(services),
      m_default(services.state),
      m_files(services, {FileOfSet(Preset, services.config), FileOfSet(User, services.config)},
              services.config.blockSize)
{
}

void OstrelFirmware::AddFeatures(FeatureMap& features)
{
    AddCorrectionFeatures(features);
    m_files.AddFeatures(features);
}

void OstrelFirmware::AddCorrectionFeatures(FeatureMap& features)
{
    features.Add<EnumNode>("CorrectionSelector", "DefectPixelCorrection",
                           std::vector<EnumNode::Entry>{{"DefectPixelCorrection", 0, {}},
                                                        {"FixedPatternNoiseCorrection", 1, [] { return false; }}});
    const std::vector<std::string> sets = {Preset, User};
    m_set = &features.Add<EnumNode>("CorrectionSet", Preset, sets);
    m_set->OnWrite(ChangesCorrection());
    m_set->KeepAtOnce();
    m_default.AddFeature(features, sets);
    m_mode = &features.Add<EnumNode>("CorrectionMode", "On", std::vector<std::string>{"Off", "On"});
    m_mode->OnWrite(ChangesCorrection());
    m_mode->KeepAtOnce();
}

EnumNode::Writer OstrelFirmware::ChangesCorrection() const
{
    return [this](const std::string&)
    {
        m_services.correctionChanged();
        return ZltErrorSuccess;
    };
}

FileBytes OstrelFirmware::FactoryFile() const
{
    const CameraConfig& config = m_services.config;
    return EncodeOstrelFile(FactoryPixels(m_services.sensorFaults()), {config.sensor.width, config.sensor.height},
                            config.reverseX, config.reverseY);
}

void OstrelFirmware::PowerUp()
{
    if (!m_services.state.File(FileName(Preset), m_services.config.fileSizeMax))
    {
        m_services.state.SetFile(FileName(Preset), FactoryFile());
    }
    for (const char* set : {Preset, User})
    {
        const auto content = m_services.state.File(FileName(set), m_services.config.fileSizeMax);
        m_services.state.SetLoadedFile(FileName(set), content.value_or(FileBytes()));
    }
    m_default.Recall();
    m_set->Assign(m_default.Current());
}

void OstrelFirmware::Resume()
{
    m_default.Recall();
    for (const char* set : {Preset, User})
    {
        m_loaded[set] = m_services.state.LoadedFile(FileName(set), m_services.config.fileSizeMax).value_or(FileBytes());
    }
    m_services.correctionChanged();
}

void OstrelFirmware::Disconnect()
{
    m_files.Disconnect();
}

std::vector<PixelPosition> OstrelFirmware::HiddenPixels(Mirroring mirroring) const
{
    const auto loaded = m_loaded.find(m_set->Current());
    if (m_mode->Current() != "On" || loaded == m_loaded.end())
    {
        return {};
    }
    const SensorConfig& sensor = m_services.config.sensor;
    return DecodeOstrelFile(loaded->second, {sensor.width, sensor.height}, mirroring);
}

} // namespace Simulation
