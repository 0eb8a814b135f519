// Correction features and working memory of the Tamorin Pro family.
#include "Firmware/TamorinPro/TamorinProFirmware.h"

#include "Firmware/FactoryPixels.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Simulation
{

namespace
{

struct Slot
{
    const char* name;
    std::int64_t number;     // in "DPCDatasetFileId"
    float factoryExposureUs; // 0: the user's
};

constexpr Slot Slots[] = {
    {"DPC_000", 0x2000, 10'000.0F},    {"DPC_001", 0x2001, 1'000.0F}, {"DPC_002", 0x2002, 100'000.0F},
    {"DPC_003", 0x2003, 1'000'000.0F}, {"DPC_User_1", 0x2801, 0.0F},  {"DPC_User_2", 0x2802, 0.0F},
    {"DPC_User_3", 0x2803, 0.0F},      {"DPC_User_4", 0x2804, 0.0F},  {"DPC_User_5", 0x2805, 0.0F},
    {"DPC_User_6", 0x2806, 0.0F},      {"DPC_User_7", 0x2807, 0.0F},  {"DPC_User_8", 0x2808, 0.0F},
};
constexpr const Slot& Default = Slots[0];

// Conditions at the factory.
constexpr double FactoryTemperature = 20.0; // degrees Celsius
constexpr double FactoryLimit = 240.0;      // counts from which on a pixel is defective

std::vector<CameraFile> Files(const CameraConfig& config)
{
    std::vector<CameraFile> files;
    const auto add = [&](const std::string& name, bool writable)
    {
        CameraFile file;
        file.name = name;
        file.maximumSize = config.fileSizeMax;
        file.writable = writable;
        file.readFailsWhenEmpty = writable && config.userReadFailsWhenEmpty;
        file.storage = [name] { return name; };
        files.push_back(std::move(file));
    };
    add("UserData", true); // not a dataset
    for (const Slot& slot : Slots)
    {
        add(slot.name, slot.factoryExposureUs == 0.0F);
    }
    return files;
}

FileBytes FactoryFile(const Slot& slot, const std::vector<PixelFault>& faults, const SensorConfig& sensor)
{
    const double heat = std::exp2((FactoryTemperature - ReferenceTemperatureC) / DarkDoublingKelvin);
    const double scale = slot.factoryExposureUs / ReferenceExposureUs * heat * sensor.darkCurrent;
    std::vector<PixelFault> seen;
    std::copy_if(faults.begin(), faults.end(), std::back_inserter(seen),
                 [&](const PixelFault& fault) { return fault.signal * scale >= FactoryLimit; });
    TamorinProDataset dataset;
    dataset.pixels = FactoryPixels(seen);
    dataset.temperature = static_cast<float>(FactoryTemperature);
    dataset.exposureUs = slot.factoryExposureUs;
    return EncodeTamorinProFile(std::move(dataset), sensor.width, sensor.height);
}

} // namespace

TamorinProFirmware::TamorinProFirmware(const FirmwareServices& services)
    : m_services(services),
      m_files(services, Files(services.config), services.config.blockSize, true)
{
}

void TamorinProFirmware::AddFeatures(FeatureMap& features)
{
    const auto addSwitch = [&](const char* name)
    {
        auto& node = features.Add<EnumNode>(name, "On", std::vector<std::string>{"Off", "On"});
        node.OnWrite(
            [this](const std::string&)
            {
                m_services.correctionChanged();
                return ZltErrorSuccess;
            });
        node.KeepAtOnce();
        return &node;
    };
    m_mode = addSwitch("DPCMode");
    m_auto = addSwitch("DPCDatasetAuto");
    m_dataset = &features.Add<IntegerNode>("DPCDatasetFileId", Default.number,
                                           IntegerNode::Limits{Default.number, std::end(Slots)[-1].number});
    m_dataset->OnRead([this] { return m_auto->Current() == "On" ? m_chosen : m_dataset->Chosen(); });
    m_dataset->OnWrite(
        [this](std::int64_t number)
        {
            const bool exists = std::any_of(std::begin(Slots), std::end(Slots),
                                            [=](const Slot& slot) { return slot.number == number; });
            m_services.correctionChanged();
            return exists ? ZltErrorSuccess : ZltErrorInvalidValue;
        });
    m_dataset->KeepAtOnce();
    m_files.AddFeatures(features);
}

void TamorinProFirmware::PowerUp()
{
    const CameraConfig& config = m_services.config;
    for (const Slot& slot : Slots)
    {
        if (slot.factoryExposureUs != 0.0F && !m_services.state.File(slot.name, config.fileSizeMax))
        {
            m_services.state.SetFile(slot.name, FactoryFile(slot, m_services.sensorFaults(), config.sensor));
            m_files.Describe(slot.name, "Factory, " + std::to_string(std::lround(slot.factoryExposureUs)) + " us");
        }
        const auto content = m_services.state.File(slot.name, config.fileSizeMax);
        m_services.state.SetLoadedFile(slot.name, content.value_or(FileBytes()));
    }
}

void TamorinProFirmware::Resume()
{
    const CameraConfig& config = m_services.config;
    m_datasets.clear();
    for (const Slot& slot : Slots)
    {
        const auto loaded = m_services.state.LoadedFile(slot.name, config.fileSizeMax);
        if (auto dataset =
                DecodeTamorinProFile(loaded.value_or(FileBytes()), config.sensor.width, config.sensor.height))
        {
            m_datasets[slot.number] = *std::move(dataset);
        }
    }
    m_chosen = Default.number;
    m_services.correctionChanged();
}

void TamorinProFirmware::Disconnect()
{
    m_files.Disconnect();
}

std::int64_t TamorinProFirmware::NextTo(double exposureUs) const
{
    const auto distance = [exposureUs](const auto& dataset) {
        return std::abs(std::log(std::max(1.0, double{dataset.second.exposureUs})) -
                        std::log(std::max(1.0, exposureUs)));
    };
    const auto nearest = std::min_element(m_datasets.begin(), m_datasets.end(),
                                          [&](const auto& a, const auto& b) { return distance(a) < distance(b); });
    return nearest == m_datasets.end() ? Default.number : nearest->first;
}

void TamorinProFirmware::BeginFrame(double exposureUs)
{
    if (const std::int64_t chosen = NextTo(exposureUs); chosen != m_chosen)
    {
        m_chosen = chosen;
        m_services.correctionChanged();
    }
}

std::vector<PixelPosition> TamorinProFirmware::HiddenPixels(Mirroring /*mirroring*/) const
{
    const auto dataset = m_datasets.find(m_dataset->Current());
    return m_mode->Current() == "On" && dataset != m_datasets.end() ? dataset->second.pixels
                                                                    : std::vector<PixelPosition>();
}

} // namespace Simulation
