// Set-up and short forms for tests of the simulated cameras.
#include "TestRig.h"

#include "Control/ControlProgram.h"
#include "Rig/Rig.h"
#include "State/StateFile.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <sstream>

#include <unistd.h>

namespace Simulation
{

static constexpr std::chrono::seconds Patience{20};

void EventLog::CameraListChanged(const ZltApi::CameraPtr& camera, ZltApi::UpdateTriggerType reason) noexcept
{
    const std::lock_guard lock(m_mutex);
    m_events.emplace_back(camera, reason);
    m_arrived.notify_all();
}

ZltApi::CameraPtr EventLog::Next(ZltApi::UpdateTriggerType reason)
{
    std::unique_lock lock(m_mutex);
    if (!m_arrived.wait_for(lock, Patience, [this] { return !m_events.empty(); }))
    {
        return nullptr;
    }
    const auto [camera, seen] = m_events.front();
    m_events.pop_front();
    EXPECT_EQ(reason, seen);
    return seen == reason ? camera : nullptr;
}

std::size_t EventLog::Count()
{
    const std::lock_guard lock(m_mutex);
    return m_events.size();
}

void FrameLog::FrameReceived(ZltApi::FramePtr frame)
{
    unsigned char* image = nullptr;
    std::uint64_t size = 0;
    Entry entry;
    frame->GetImage(image);
    frame->GetBufferSize(size);
    frame->GetFrameID(entry.id);
    frame->GetReceiveStatus(entry.status);
    entry.image.assign(image, image + size);
    bool isKept = false;
    {
        const std::lock_guard lock(m_mutex);
        m_entries.push_back(std::move(entry));
        isKept = m_kept.size() < keep;
        if (isKept)
        {
            m_kept.push_back(frame);
        }
        m_arrived.notify_all();
    }
    if (onFrame)
    {
        onFrame(frame);
    }
    else if (!isKept)
    {
        m_camera->QueueFrame(frame);
    }
}

bool FrameLog::WaitFor(std::size_t count)
{
    std::unique_lock lock(m_mutex);
    return m_arrived.wait_for(lock, Patience, [&] { return m_entries.size() >= count; });
}

std::vector<FrameLog::Entry> FrameLog::Entries()
{
    const std::lock_guard lock(m_mutex);
    return m_entries;
}

std::vector<ZltApi::FramePtr> FrameLog::Kept()
{
    const std::lock_guard lock(m_mutex);
    return m_kept;
}

TestRig::TestRig(const std::string& changes)
{
    static std::atomic<int> counter{0};
    m_folder = std::filesystem::temp_directory_path() /
               ("zlt-simulation-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
    nlohmann::json camera = nlohmann::json::parse(R"({
        "id": "CAM", "model": "OSTREL T-1", "serial": "7", "firmware": "ostrel", "width": 64, "height": 48,
        "reverseX": true, "reverseY": true, "covered": true, "restartTime": 150, "blockSize": 16, "frameRate": 1000,
        "fileSizeMax": 8192, "seed": 3})");
    camera.merge_patch(nlohmann::json::parse(changes));
    ReplaceStateFile(m_folder / "rig.json", nlohmann::json{{"cameras", {camera}}}.dump());
    ::setenv("ZLT_SIMULATION_RIG", (m_folder / "rig.json").c_str(), 1);
    ::setenv("ZLT_SIMULATION_STATE", (m_folder / "state").c_str(), 1);
    EXPECT_EQ(ZltErrorSuccess, provider.Startup(events));
}

TestRig::~TestRig()
{
    provider.Shutdown();
    std::filesystem::remove_all(m_folder);
}

ZltApi::CameraPtr TestRig::Camera()
{
    std::vector<ZltApi::CameraPtr> cameras;
    provider.GetCameras(cameras);
    return cameras.empty() ? nullptr : cameras.front();
}

ZltApi::CameraPtr TestRig::Opened()
{
    ZltApi::CameraPtr camera = Camera();
    EXPECT_TRUE(camera);
    EXPECT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
    return camera;
}

int TestRig::Control(const std::vector<std::string>& arguments)
{
    std::ostringstream out;
    std::ostringstream err;
    const int status = ControlProgram(LoadRig(), m_folder / "state", out, err).Run(arguments);
    output = out.str();
    errors = err.str();
    return status;
}

ZltApi::FeaturePtr FeatureOf(ZltApi::FeatureContainer& container, const char* name)
{
    ZltApi::FeaturePtr feature;
    EXPECT_EQ(ZltErrorSuccess, container.GetFeatureByName(name, feature)) << name;
    return feature;
}

ZltErrorType RunCommand(const ZltApi::CameraPtr& camera, const char* name)
{
    const ZltApi::FeaturePtr feature = FeatureOf(*camera, name);
    return feature ? feature->RunCommand() : ZltErrorNotFound;
}

bool IsWritable(const ZltApi::CameraPtr& camera, const char* name)
{
    bool writable = false;
    EXPECT_EQ(ZltErrorSuccess, FeatureOf(*camera, name)->IsWritable(writable)) << name;
    return writable;
}

std::string Execute(const ZltApi::CameraPtr& camera, const std::string& file, const std::string& operation)
{
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileSelector", file.c_str()));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileOperationSelector", operation.c_str()));
    const ZltErrorType result = RunCommand(camera, "FileOperationExecute");
    return result == ZltErrorSuccess ? Get<std::string>(camera, "FileOperationStatus") : std::to_string(result);
}

std::string OpenFile(const ZltApi::CameraPtr& camera, const std::string& file, const std::string& mode)
{
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileOpenMode", mode.c_str()));
    return Execute(camera, file, "Open");
}

std::string WriteBlocks(const ZltApi::CameraPtr& camera, const std::string& file, const Bytes& bytes,
                        std::int64_t offset)
{
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileSelector", file.c_str()));
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "FileAccessOffset", offset));
    std::int64_t smallest = 0;
    std::int64_t largest = 0;
    FeatureOf(*camera, "FileAccessLength")->GetRange(smallest, largest);
    for (std::size_t done = 0; done < bytes.size();)
    {
        const std::size_t length = std::min(bytes.size() - done, static_cast<std::size_t>(largest));
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(done);
        Set(camera, "FileAccessLength", static_cast<std::int64_t>(length));
        Set(camera, "FileAccessBuffer", Bytes(begin, begin + static_cast<std::ptrdiff_t>(length)));
        if (std::string status = Execute(camera, file, "Write"); status != "Success")
        {
            return status;
        }
        done += length;
        const auto moved = Get<std::int64_t>(camera, "FileOperationResult");
        const auto position = Get<std::int64_t>(camera, "FileAccessOffset");
        if (moved != static_cast<std::int64_t>(length) || position != offset + static_cast<std::int64_t>(done))
        {
            return "moved " + std::to_string(moved) + " to " + std::to_string(position);
        }
    }
    return "Success";
}

std::string WriteFile(const ZltApi::CameraPtr& camera, const Bytes& bytes)
{
    std::string status = OpenFile(camera, UserFile, "Write");
    if (status == "Success")
    {
        status = WriteBlocks(camera, UserFile, bytes);
        const std::string closed = Execute(camera, UserFile, "Close");
        status = status == "Success" ? closed : status;
    }
    return status;
}

Bytes ReadFile(const ZltApi::CameraPtr& camera, const std::string& file)
{
    EXPECT_EQ("Success", OpenFile(camera, file, "Read"));
    Bytes bytes;
    const auto size = static_cast<std::size_t>(Get<std::int64_t>(camera, "FileSize"));
    while (bytes.size() < size)
    {
        EXPECT_EQ("Success", Execute(camera, file, "Read"));
        const Bytes block = Get<Bytes>(camera, "FileAccessBuffer");
        const auto moved = static_cast<std::size_t>(Get<std::int64_t>(camera, "FileOperationResult"));
        if (moved == 0 || moved > block.size())
        {
            ADD_FAILURE() << "a block of " << moved << " bytes";
            break;
        }
        bytes.insert(bytes.end(), block.begin(), block.begin() + static_cast<std::ptrdiff_t>(moved));
    }
    EXPECT_EQ("Success", Execute(camera, file, "Close"));
    return bytes;
}

std::vector<FrameLog::Entry> Grab(const ZltApi::CameraPtr& camera, std::size_t count)
{
    const auto log = std::make_shared<FrameLog>(camera);
    EXPECT_EQ(ZltErrorSuccess, camera->StartContinuousImageAcquisition(3, log, ZltApi::FrameAllocationAnnounced));
    EXPECT_TRUE(log->WaitFor(count));
    EXPECT_EQ(ZltErrorSuccess, camera->StopContinuousImageAcquisition());
    EXPECT_EQ(ZltErrorSuccess, camera->ReleaseAllFrames());
    auto entries = log->Entries();
    entries.resize(std::max(entries.size(), count)); // callers index it, also after a failed wait
    return entries;
}

Bytes GrabDark(const ZltApi::CameraPtr& camera)
{
    EXPECT_EQ(ZltErrorSuccess, Set(camera, "ExposureTime", 10'000.0));
    return Grab(camera).front().image;
}

} // namespace Simulation
