// The built-in cameras, and rig files.
#include "Rig/Rig.h"

#include "Firmware/FirmwareList.h"
#include "State/JsonReader.h"
#include "State/StateFile.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <stdexcept>

namespace Simulation
{

namespace
{

constexpr std::uint64_t LargestRig = 1U << 20;
constexpr std::uint32_t SmallestSensor = 16;    // pixels, each way
constexpr std::uint32_t LargestSensor = 16'384; // what 14 bits of a coordinate reach

CameraConfig OstrelCamera(std::string id, std::string model, std::string serial, std::uint32_t width,
                          std::uint32_t height)
{
    CameraConfig config;
    config.id = std::move(id);
    config.model = std::move(model);
    config.serial = std::move(serial);
    config.name = config.model + " (" + config.serial + ")";
    config.firmware = "ostrel";
    config.family = "OSTREL";
    config.sensor.width = width;
    config.sensor.height = height;
    return config;
}

bool IsFolderName(const std::string& id)
{
    constexpr const char* allowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.";
    return !id.empty() && id.size() <= 64 && id.front() != '.' && id.find_first_not_of(allowed) == std::string::npos;
}

ColorFilter ParseFilter(const JsonReader& reader, const std::string& text)
{
    static const std::map<std::string, ColorFilter> filters = {{"Mono", ColorFilter::Mono},
                                                               {"BayerGR", ColorFilter::BayerGR},
                                                               {"BayerRG", ColorFilter::BayerRG},
                                                               {"BayerGB", ColorFilter::BayerGB},
                                                               {"BayerBG", ColorFilter::BayerBG}};
    const auto found = filters.find(text);
    if (found == filters.end())
    {
        reader.Refuse("filter");
    }
    return found->second;
}

void ReadSensor(JsonReader& reader, SensorConfig& sensor)
{
    std::string filter = "Mono";
    reader.Read("width", sensor.width);
    reader.Read("height", sensor.height);
    reader.Read("filter", filter);
    reader.Read("seed", sensor.seed);
    reader.Read("darkFrameFile", sensor.darkFrameFile);
    reader.Read("darkFrameExposure", sensor.darkFrameExposureUs);
    sensor.filter = ParseFilter(reader, filter);
}

void CheckNumbers(const JsonReader& reader, const CameraConfig& config)
{
    const auto sizeFits = [](std::uint32_t size)
    { return size >= SmallestSensor && size <= LargestSensor && size % 2 == 0; };
    const std::map<std::string, bool> fits = {
        {"width", sizeFits(config.sensor.width)},
        {"height", sizeFits(config.sensor.height)},
        {"darkFrameExposure", config.sensor.darkFrameExposureUs > 0.0},
        {"frameRate", config.frameRate >= 1.0 && config.frameRate <= 10'000.0},
        {"blockSize", config.blockSize >= 1 && config.blockSize <= 65'536},
        {"fileSizeMax", config.fileSizeMax >= 1 && config.fileSizeMax <= (64U << 20)},
        {"restartTime", config.restartTime <= LongestRestart}};
    for (const auto& [key, good] : fits)
    {
        if (!good)
        {
            reader.Refuse(key);
        }
    }
}

CameraConfig ParseCamera(const nlohmann::json& json)
{
    CameraConfig config;
    JsonReader reader(json, "A camera of the rig");
    reader.Read("id", config.id);
    reader.Read("model", config.model);
    reader.Read("serial", config.serial);
    reader.Read("firmware", config.firmware);
    const FirmwareKind* const firmware = FindFirmware(config.firmware);
    if (!IsFolderName(config.id) || config.model.empty() || config.serial.empty() || !firmware)
    {
        throw std::runtime_error(
            "A camera of the rig needs an \"id\" of letters, digits, dots, hyphens and underscores, "
            "a \"model\", a \"serial\" and a known \"firmware\".");
    }
    config.name = config.model + " (" + config.serial + ")";
    config.family = firmware->family;
    reader.Read("name", config.name);
    reader.Read("family", config.family);
    ReadSensor(reader, config.sensor);
    config.frameRate = config.sensor.filter == ColorFilter::Mono ? 60.0 : 30.0;
    reader.Read("reverseX", config.reverseX);
    reader.Read("reverseY", config.reverseY);
    reader.Read("covered", config.covered);
    reader.Read("adjustsPacketSize", config.adjustsPacketSize);
    reader.Read("userReadFailsWhenEmpty", config.userReadFailsWhenEmpty);
    reader.Read("frameRate", config.frameRate);
    reader.Read("blockSize", config.blockSize);
    reader.Read("fileSizeMax", config.fileSizeMax);
    auto restartTime = static_cast<std::uint32_t>(config.restartTime.count());
    reader.Read("restartTime", restartTime);
    config.restartTime = std::chrono::milliseconds(restartTime);
    if (const nlohmann::json* const faults = reader.Find("faults"))
    {
        config.faults = ParseFaultRules(faults->dump());
    }
    reader.RefuseOthers();
    CheckNumbers(reader, config);
    return config;
}

} // namespace

std::vector<CameraConfig> BuiltInRig()
{
    CameraConfig mono = OstrelCamera("SIM-OSTREL-M1", "OSTREL S-235m", "50-0001", 1936, 1216);
    mono.sensor.seed = 235;
    mono.reverseX = true;
    mono.reverseY = true;
    mono.adjustsPacketSize = true;

    CameraConfig colour = OstrelCamera("SIM-OSTREL-C1", "OSTREL S-507c", "50-0002", 2464, 2056);
    colour.sensor.filter = ColorFilter::BayerRG;
    colour.sensor.seed = 507;
    colour.reverseX = true;
    colour.frameRate = 30.0;
    colour.userReadFailsWhenEmpty = true;

    CameraConfig plain;
    plain.id = "SIM-PLAIN-M1";
    plain.model = "Vesk P-130m";
    plain.serial = "50-0003";
    plain.name = plain.model + " (" + plain.serial + ")";
    plain.firmware = "plain";
    plain.family = "Vesk";
    plain.sensor.width = 1280;
    plain.sensor.height = 1024;
    plain.sensor.seed = 130;
    return {mono, colour, plain};
}

std::vector<CameraConfig> ParseRig(const std::string& text)
{
    const nlohmann::json json = nlohmann::json::parse(text, nullptr, false);
    JsonReader reader(json, "The rig");
    const nlohmann::json* const cameras = reader.Find("cameras");
    reader.RefuseOthers();
    if (!cameras || !cameras->is_array())
    {
        throw std::runtime_error("The rig needs the array \"cameras\".");
    }
    std::vector<CameraConfig> rig;
    std::set<std::string> ids;
    for (const auto& camera : *cameras)
    {
        rig.push_back(ParseCamera(camera));
        if (!ids.insert(rig.back().id).second)
        {
            throw std::runtime_error("The rig has two cameras with the id \"" + rig.back().id + "\".");
        }
    }
    return rig;
}

std::vector<CameraConfig> LoadRig()
{
    const char* const path = std::getenv("ZLT_SIMULATION_RIG");
    if (!path || *path == '\0')
    {
        return BuiltInRig();
    }
    const auto bytes = ReadStateFile(path, LargestRig);
    if (!bytes)
    {
        throw std::runtime_error(std::string("The rig file ") + path + " cannot be read.");
    }
    auto rig = ParseRig(std::string(bytes->begin(), bytes->end()));
    for (CameraConfig& camera : rig)
    {
        if (std::string& name = camera.sensor.darkFrameFile; !name.empty())
        {
            name = std::filesystem::path(path).parent_path() / name;
        }
    }
    return rig;
}

} // namespace Simulation
