// Set-up and short forms for tests of the simulated cameras.
#include "TestRig.h"

#include "Control/ControlProgram.h"
#include "Rig/Rig.h"
#include "State/StateFile.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <sstream>

#include <unistd.h>

namespace Simulation
{

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

void TestRig::StartAgain()
{
    provider.Shutdown();
    EXPECT_EQ(ZltErrorSuccess, provider.Startup(events));
}

ZltApi::CameraPtr TestRig::Camera()
{
    const auto cameras = CamerasOf(provider);
    return cameras.empty() ? nullptr : cameras.front();
}

ZltApi::CameraPtr TestRig::Opened()
{
    ZltApi::CameraPtr camera = Camera();
    EXPECT_TRUE(camera);
    EXPECT_EQ(ZltErrorSuccess, camera->Open(ZltApi::AccessModeFull));
    return camera;
}

ZltApi::CameraPtr TestRig::Restarted(const ZltApi::CameraPtr& camera)
{
    EXPECT_EQ(ZltErrorSuccess, RunCommand(camera, "DeviceReset"));
    EXPECT_TRUE(events.Next(ZltApi::UpdateTriggerUnplugged));
    EXPECT_TRUE(events.Next(ZltApi::UpdateTriggerPluggedIn));
    return Opened();
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

std::string WriteFile(const ZltApi::CameraPtr& camera, const Bytes& bytes, const std::string& file)
{
    std::string status = OpenFile(camera, file, "Write");
    if (status == "Success")
    {
        status = WriteBlocks(camera, file, bytes);
        const std::string closed = Execute(camera, file, "Close");
        status = status == "Success" ? closed : status;
    }
    return status;
}

Bytes ReadFile(const ZltApi::CameraPtr& camera, const std::string& file)
{
    EXPECT_EQ("Success", OpenFile(camera, file, "Read"));
    Bytes bytes;
    const auto size = static_cast<std::size_t>(Get<std::int64_t>(camera, "FileSize"));
    for (bool isMoving = true; isMoving && bytes.size() < size;)
    {
        EXPECT_EQ("Success", Execute(camera, file, "Read"));
        Bytes block = Get<Bytes>(camera, "FileAccessBuffer");
        block.resize(
            std::min(block.size(), static_cast<std::size_t>(Get<std::int64_t>(camera, "FileOperationResult"))));
        bytes.insert(bytes.end(), block.begin(), block.end());
        isMoving = !block.empty();
    }
    EXPECT_EQ("Success", Execute(camera, file, "Close"));
    return bytes;
}

std::vector<FrameLog::Entry> Grab(const ZltApi::CameraPtr& camera, std::size_t count)
{
    const auto log = std::make_shared<FrameLog>(camera);
    EXPECT_EQ(ZltErrorSuccess, Start(camera, log));
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

std::vector<PixelPosition> BrightPixels(const Bytes& image)
{
    std::vector<PixelPosition> pixels;
    for (std::uint32_t i = 0; i < image.size(); ++i)
    {
        image[i] > 40 ? pixels.push_back({i % 64, i / 64}) : void();
    }
    return pixels;
}

} // namespace Simulation
