// A provider with simulated cameras in a state directory of its own, and short forms of the camera API for tests.
#pragma once

#include "../ProviderTools.h"

#include "Features/FeatureMap.h"
#include "Provider/SimulationProvider.h"
#include "ZltApi/Camera.h"
#include "ZltApi/Observers.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace Simulation
{

using namespace ProviderTest;
constexpr const char* CameraId = "CAM";
constexpr const char* UserFile = "DefectPixelCorrectionUser";
constexpr const char* PresetFile = "DefectPixelCorrectionPreset";

class TestRig
{
public:
    // Rig with one covered mono camera of 64 x 48 pixels that can be mirrored; the JSON object changes or adds keys.
    explicit TestRig(const std::string& changes = "{}");
    ~TestRig();

    std::filesystem::path StateFolder() const { return m_folder / "state" / CameraId; }
    ZltApi::CameraPtr Camera(); // null when it is not in the list
    ZltApi::CameraPtr Opened(); // with an expectation that it opens
    // Resets the camera and opens it again when it has returned.
    ZltApi::CameraPtr Restarted(const ZltApi::CameraPtr& camera);
    // Runs the control program's commands in this process; returns its exit status.
    int Control(const std::vector<std::string>& arguments);
    // Shuts the provider down and starts it again, as another program would.
    void StartAgain();

    EventLog events;
    SimulationProvider provider;
    std::string output; // of the last Control
    std::string errors;

private:
    std::filesystem::path m_folder;
};

// The same inside a camera, past access rules.
template <typename Value> Value NodeValue(const FeatureMap& features, const char* name)
{
    Value value{};
    return features.Find(name)->Get(value) == ZltErrorSuccess ? value : Value{};
}
template <typename Value> void SetNode(const FeatureMap& features, const char* name, const Value& value)
{
    EXPECT_EQ(ZltErrorSuccess, features.Find(name)->Set(value)) << name;
}

// Selects and executes one file operation; gives what the camera says of it, or the code when the command fails.
std::string Execute(const ZltApi::CameraPtr& camera, const std::string& file, const std::string& operation);
std::string OpenFile(const ZltApi::CameraPtr& camera, const std::string& file, const std::string& mode);
// Moves bytes of an open file in blocks, from the offset on; "Success" or what stopped it.
std::string WriteBlocks(const ZltApi::CameraPtr& camera, const std::string& file, const Bytes& bytes,
                        std::int64_t offset = 0);
// Opens, moves, closes.
std::string WriteFile(const ZltApi::CameraPtr& camera, const Bytes& bytes, const std::string& file = UserFile);
Bytes ReadFile(const ZltApi::CameraPtr& camera, const std::string& file);

// The first frames of a new acquisition.
std::vector<FrameLog::Entry> Grab(const ZltApi::CameraPtr& camera, std::size_t count = 1);
// A dark frame on which hot pixels stand out: long exposure, 8 bits, covered by the rig.
Bytes GrabDark(const ZltApi::CameraPtr& camera);
// What stands out from a dark frame of the test rig's width.
std::vector<PixelPosition> BrightPixels(const Bytes& image);

} // namespace Simulation
