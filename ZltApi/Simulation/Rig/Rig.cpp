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

CameraConfig BuiltIn(std::string id, std::string model, std::string serial, std::uint32_t width, std::uint32_t height)
{
    CameraConfig config;
    config.id = std::move(id);
    config.family = model.substr(0, model.find(' '));
    config.model = std::move(model);
    config.serial = std::move(serial);
    config.name = config.model + " (" + config.serial + ")";
    config.firmware = config.family == "OSTREL" ? "ostrel" : "plain";
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
    std::string scene = "bench";
    reader.Read("width", sensor.width);
    reader.Read("height", sensor.height);
    reader.Read("filter", filter);
    reader.Read("scene", scene);
    reader.Read("seed", sensor.seed);
    reader.Read("darkFrameFile", sensor.darkFrameFile);
    reader.Read("darkFrameExposure", sensor.darkFrameExposureUs);
    reader.Read("darkCurrent", sensor.darkCurrent);
    reader.Read("longestRun", sensor.longestRun);
    sensor.filter = ParseFilter(reader, filter);
    sensor.scene = scene == "chart" ? SceneKind::Chart : SceneKind::Bench;
    if (scene != "chart" && scene != "bench")
    {
        reader.Refuse("scene");
    }
}

void ReadTime(JsonReader& reader, const char* key, std::chrono::milliseconds& time)
{
    auto number = static_cast<std::uint32_t>(time.count());
    reader.Read(key, number);
    time = std::chrono::milliseconds(number);
}

// What sets this camera apart from others of its model.
void ReadVariant(JsonReader& reader, CameraConfig& config)
{
    reader.Read("busy", config.busy);
    reader.Read("stream", config.stream);
    reader.Read("temperatureControl", config.temperatureControl);
    reader.Read("nonuniformityCorrection", config.nonuniformityCorrection);
    reader.Read("exposureFeature", config.exposureFeature);
    reader.Read("sizeIncrement", config.sizeIncrement);
    if (const nlohmann::json* const without = reader.Find("without"))
    {
        if (!without->is_array() ||
            !std::all_of(without->begin(), without->end(), [](const auto& name) { return name.is_string(); }))
        {
            reader.Refuse("without");
        }
        config.without = without->get<std::vector<std::string>>();
    }
}

void CheckNumbers(const JsonReader& reader, const CameraConfig& config)
{
    const auto sizeFits = [](std::uint32_t size) { return size >= SmallestSensor && size <= LargestSensor; };
    const std::uint32_t increment = config.sizeIncrement;
    const std::map<std::string, bool> fits = {
        {"width", sizeFits(config.sensor.width)},
        {"height", sizeFits(config.sensor.height)},
        {"exposureFeature", config.exposureFeature == "ExposureTime" || config.exposureFeature == "ExposureTimeAbs"},
        {"sizeIncrement", increment >= 1 && increment <= SmallestSensor && (increment & (increment - 1)) == 0},
        {"darkFrameExposure", config.sensor.darkFrameExposureUs > 0.0},
        {"darkCurrent", config.sensor.darkCurrent >= 0.0 && config.sensor.darkCurrent <= 1000.0},
        {"longestRun", config.sensor.longestRun >= 1 && config.sensor.longestRun <= LargestSensor},
        {"frameRate", config.frameRate >= 1.0 && config.frameRate <= 10'000.0},
        {"blockSize", config.blockSize >= 1 && config.blockSize <= 65'536},
        {"fileSizeMax", config.fileSizeMax >= 1 && config.fileSizeMax <= (64U << 20)},
        {"flashTime", config.flashTime <= LongestRestart},
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
    ReadVariant(reader, config);
    reader.Read("adjustsPacketSize", config.adjustsPacketSize);
    reader.Read("userReadFailsWhenEmpty", config.userReadFailsWhenEmpty);
    reader.Read("frameRate", config.frameRate);
    reader.Read("blockSize", config.blockSize);
    reader.Read("fileSizeMax", config.fileSizeMax);
    ReadTime(reader, "flashTime", config.flashTime);
    ReadTime(reader, "restartTime", config.restartTime);
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
    CameraConfig mono = BuiltIn("SIM-OSTREL-M1", "OSTREL S-235m", "50-0001", 1936, 1216);
    mono.sensor.seed = 235;
    mono.reverseX = true;
    mono.reverseY = true;
    mono.adjustsPacketSize = true;

    CameraConfig colour = BuiltIn("SIM-OSTREL-C1", "OSTREL S-507c", "50-0002", 2464, 2056);
    colour.sensor.filter = ColorFilter::BayerRG;
    colour.sensor.seed = 507;
    colour.reverseX = true;
    colour.frameRate = 30.0;
    colour.userReadFailsWhenEmpty = true;

    CameraConfig plain = BuiltIn("SIM-PLAIN-M1", "Vesk P-130m", "50-0003", 1280, 1024);
    plain.sensor.seed = 130;

    CameraConfig thermal = BuiltIn("SIM-THERMAL-M1", "Kelda T-033m", "50-0004", 640, 512);
    thermal.sensor.seed = 33;
    thermal.temperatureControl = true;
    thermal.nonuniformityCorrection = true;

    CameraConfig odd = BuiltIn("SIM-ODD-M1", "Orrin E-236m", "50-0005", 1937, 1217);
    odd.sensor.seed = 236;
    odd.exposureFeature = "ExposureTimeAbs";
    odd.sizeIncrement = 1;
    odd.frameRate = 30.0;
    odd.without = {"GainAuto"};

    CameraConfig rivoU = BuiltIn("SIM-RIVO-U1", "Rivo U-130m", "50-0006", 1280, 1024);
    rivoU.firmware = "rivo-u";
    rivoU.sensor.seed = 131;
    rivoU.reverseX = true;
    rivoU.reverseY = true;

    CameraConfig rectangles = BuiltIn("SIM-RIVO-G1", "Rivo G-011", "50-0007", 688, 488);
    rectangles.firmware = "rectangle-mask";
    rectangles.sensor.seed = 11;
    rectangles.fileSizeMax = 16'384;

    CameraConfig rectanglesMode = BuiltIn("SIM-RIVO-G2", "Rivo G-011", "50-0008", 688, 488);
    rectanglesMode.firmware = "rectangle-mask-mode";
    rectanglesMode.sensor.seed = 12;
    rectanglesMode.fileSizeMax = 16'384;
    rectanglesMode.reverseX = true;

    CameraConfig columns = BuiltIn("SIM-DRELI-M1", "Dreli G-1310", "50-0009", 1280, 1024);
    columns.firmware = "column-mask";
    columns.sensor.seed = 1311; // its table takes no two columns side by side
    columns.sensor.longestRun = 1;

    CameraConfig tamorin = BuiltIn("SIM-TAMORIN-M1", "Tamorin Pro T-033m", "50-0010", 640, 512);
    tamorin.family = "Tamorin Pro";
    tamorin.firmware = "tamorin-pro";
    tamorin.sensor.seed = 330;
    tamorin.sensor.darkCurrent = 8.0;
    tamorin.temperatureControl = true;
    tamorin.nonuniformityCorrection = true;
    CameraConfig flash = BuiltIn("SIM-FLASH-M1", "Quorsalin P-310m", "50-0011", 640, 480);
    flash.firmware = "flash";
    flash.sensor.seed = 311; // no whole row is hot: such a pixel has no neighbour to stand in for it
    flash.sensor.longestRun = 8;

    CameraConfig flashColour = BuiltIn("SIM-FLASH-C1", "Quorsalin P-1300c", "50-0012", 1280, 1024);
    flashColour.firmware = "flash";
    flashColour.sensor.seed = 1301;
    flashColour.sensor.filter = ColorFilter::BayerGR;
    flashColour.sensor.longestRun = 8;
    flashColour.frameRate = 30.0;
    return {mono, colour, plain, thermal, odd, rivoU, rectangles, rectanglesMode, columns, tamorin, flash, flashColour};
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
