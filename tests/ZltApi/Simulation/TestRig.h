// A provider with simulated cameras in a state directory of its own, and short forms of the camera API for tests.
#pragma once

#include "Features/FeatureMap.h"
#include "Provider/SimulationProvider.h"
#include "ZltApi/Camera.h"
#include "ZltApi/Observers.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace Simulation
{

using Bytes = std::vector<unsigned char>;
constexpr const char* CameraId = "CAM";
constexpr const char* UserFile = "DefectPixelCorrectionUser";
constexpr const char* PresetFile = "DefectPixelCorrectionPreset";

// Remembers what a provider reports.
class EventLog final : public ZltApi::ProviderEvents
{
public:
    void CameraListChanged(const ZltApi::CameraPtr& camera, ZltApi::UpdateTriggerType reason) noexcept override;
    void InterfaceListChanged(const ZltApi::InterfacePtr&, ZltApi::UpdateTriggerType) noexcept override {}
    // The camera of the next event, which must come within seconds and have that reason; null otherwise.
    ZltApi::CameraPtr Next(ZltApi::UpdateTriggerType reason);
    std::size_t Count();

private:
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    std::deque<std::pair<ZltApi::CameraPtr, ZltApi::UpdateTriggerType>> m_events;
};

// Collects frames and hands each straight back, unless told to keep it.
class FrameLog final : public ZltApi::IFrameObserver
{
public:
    struct Entry
    {
        Bytes image;
        std::uint64_t id = 0;
        ZltApi::FrameStatus status = ZltApi::FrameStatusInvalid;
    };

    explicit FrameLog(const ZltApi::CameraPtr& camera) : IFrameObserver(camera) {}
    void FrameReceived(ZltApi::FramePtr frame) override;
    bool WaitFor(std::size_t count);
    std::vector<Entry> Entries();
    std::vector<ZltApi::FramePtr> Kept();

    std::function<void(const ZltApi::FramePtr&)> onFrame; // instead of handing the frame back
    std::size_t keep = 0;                                 // so many frames are kept

private:
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    std::vector<Entry> m_entries;
    std::vector<ZltApi::FramePtr> m_kept;
};

class TestRig
{
public:
    // Rig with one covered mono camera of 64 x 48 pixels that can be mirrored; the JSON object changes or adds keys.
    explicit TestRig(const std::string& changes = "{}");
    ~TestRig();

    std::filesystem::path StateFolder() const { return m_folder / "state" / CameraId; }
    ZltApi::CameraPtr Camera(); // null when it is not in the list
    ZltApi::CameraPtr Opened(); // with an expectation that it opens
    // Runs the control program's commands in this process; returns its exit status.
    int Control(const std::vector<std::string>& arguments);

    EventLog events;
    SimulationProvider provider;
    std::string output; // of the last Control
    std::string errors;

private:
    std::filesystem::path m_folder;
};

ZltApi::FeaturePtr FeatureOf(ZltApi::FeatureContainer& container, const char* name); // fails the test if there is none
template <typename Value> Value Get(const ZltApi::CameraPtr& camera, const char* name)
{
    Value value{};
    const ZltApi::FeaturePtr feature = FeatureOf(*camera, name);
    return feature && feature->GetValue(value) == ZltErrorSuccess ? value : Value{};
}
template <typename Value> ZltErrorType Set(const ZltApi::CameraPtr& camera, const char* name, const Value& value)
{
    const ZltApi::FeaturePtr feature = FeatureOf(*camera, name);
    return feature ? feature->SetValue(value) : ZltErrorNotFound;
}
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
ZltErrorType RunCommand(const ZltApi::CameraPtr& camera, const char* name);
bool IsWritable(const ZltApi::CameraPtr& camera, const char* name);

// Selects and executes one file operation; gives what the camera says of it, or the code when the command fails.
std::string Execute(const ZltApi::CameraPtr& camera, const std::string& file, const std::string& operation);
std::string OpenFile(const ZltApi::CameraPtr& camera, const std::string& file, const std::string& mode);
// Moves bytes of an open file in blocks, from the offset on; "Success" or what stopped it.
std::string WriteBlocks(const ZltApi::CameraPtr& camera, const std::string& file, const Bytes& bytes,
                        std::int64_t offset = 0);
// Opens, moves, closes.
std::string WriteFile(const ZltApi::CameraPtr& camera, const Bytes& bytes);
Bytes ReadFile(const ZltApi::CameraPtr& camera, const std::string& file);

// The first frames of a new acquisition.
std::vector<FrameLog::Entry> Grab(const ZltApi::CameraPtr& camera, std::size_t count = 1);
// A dark frame on which hot pixels stand out: long exposure, 8 bits, covered by the rig.
Bytes GrabDark(const ZltApi::CameraPtr& camera);

} // namespace Simulation
