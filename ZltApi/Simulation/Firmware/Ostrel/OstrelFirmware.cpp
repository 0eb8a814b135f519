// Correction features and working memory of the Ostrel family.
#include "Firmware/Ostrel/OstrelFirmware.h"

#include "Firmware/Ostrel/OstrelFile.h"

#include <utility>

namespace Simulation
{

namespace
{

constexpr const char* Preset = "Preset";
constexpr const char* User = "User";
constexpr std::uint32_t FactoryField = 32; // pixels
constexpr const char* DefaultFeature = "CorrectionSetDefault";

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
    m_default = &features.Add<EnumNode>(DefaultFeature, Preset, sets);
    m_default->OnWrite([this](const std::string& set) { return StoreDefault(set); });
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

ZltErrorType OstrelFirmware::StoreDefault(const std::string& set)
{
    m_services.state.SetNonvolatile({{DefaultFeature, set}});
    return ZltErrorSuccess;
}

FileBytes OstrelFirmware::FactoryFile() const
{
    const CameraConfig& config = m_services.config;
    std::vector<PixelPosition> known;
    for (const PixelFault& fault : m_services.sensorFaults())
    {
        // On the fields of one colour of a chessboard the faults were there from the start; the others have come since.
        if (fault.kind == FaultKind::Hot && (fault.x / FactoryField + fault.y / FactoryField) % 2 == 0)
        {
            known.push_back({fault.x, fault.y});
        }
    }
    return EncodeOstrelFile(std::move(known), {config.sensor.width, config.sensor.height}, config.reverseX,
                            config.reverseY);
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
    RecallDefault();
    m_set->Assign(m_default->Current());
}

void OstrelFirmware::RecallDefault()
{
    const auto nonvolatile = m_services.state.Nonvolatile();
    const auto stored = nonvolatile.find(DefaultFeature);
    m_default->Reset();
    if (stored != nonvolatile.end())
    {
        m_default->Restore(stored->second);
    }
}

void OstrelFirmware::Resume()
{
    RecallDefault();
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
