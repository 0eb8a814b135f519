// Start-up with good and broken providers, and the road of events to the observers.
#include "ZltApi/ZltSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <thread>

using namespace ZltApi;
using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace
{

using Ids = std::vector<std::string>;

class CountingObserver final : public ICameraListObserver, public IInterfaceListObserver
{
public:
    void CameraListChanged(CameraPtr camera, UpdateTriggerType reason) override
    {
        EXPECT_NE(camera, nullptr);
        EXPECT_EQ(reason, UpdateTriggerStateChanged);
        ++cameraEvents;
        action();
    }
    void InterfaceListChanged(InterfacePtr, UpdateTriggerType reason) override
    {
        EXPECT_EQ(reason, UpdateTriggerUnplugged);
        ++interfaceEvents;
    }

    std::atomic<int> cameraEvents{0};
    std::atomic<int> interfaceEvents{0};
    std::function<void()> action = [] {};
};

bool BecomesTrue(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (!condition() && std::chrono::steady_clock::now() < end)
    {
        std::this_thread::sleep_for(1ms);
    }
    return condition();
}

class ZltSystemTest : public testing::Test
{
protected:
    void SetUp() override { fs::create_directory(m_folder); }
    void TearDown() override
    {
        m_system.Shutdown();
        fs::remove_all(m_folder);
    }

    static std::string FolderOf(const std::string& kind) { return std::string(TEST_PROVIDERS) + "/" + kind; }
    static void SetPath(const std::string& path) { setenv("ZLT_PROVIDER_PATH", path.c_str(), 1); }
    void Start(const std::string& kind)
    {
        SetPath(FolderOf(kind));
        ASSERT_EQ(m_system.Startup(), ZltErrorSuccess);
    }
    Ids CameraIds()
    {
        std::vector<CameraPtr> cameras;
        Ids ids;
        m_system.GetCameras(cameras);
        for (const CameraPtr& camera : cameras)
        {
            camera->GetID(ids.emplace_back());
        }
        return ids;
    }

    ZltSystem& m_system = ZltSystem::GetInstance();
    const fs::path m_folder = fs::path(testing::TempDir()) / ("zlt-system-" + std::to_string(getpid()));
    const std::shared_ptr<CountingObserver> m_observer = std::make_shared<CountingObserver>();
};

TEST_F(ZltSystemTest, SkipsProvidersThatItCannotUse)
{
    std::ofstream(m_folder / "text.so") << "no library";
    fs::create_directory(m_folder / "folder.so");
    fs::create_symlink(m_folder / "nowhere", m_folder / "dangling.so");
    fs::create_symlink(FolderOf("Good") + "/provider.so", m_folder / "b.so");
    fs::create_hard_link(FolderOf("Good") + "/provider.so", m_folder / "c.so");
    fs::create_symlink(FolderOf("Second") + "/provider.so", m_folder / "a.so");
    fs::create_symlink(FolderOf("Rogue") + "/provider.so", m_folder / "other.so.1");

    const std::string good = FolderOf("Good");
    std::vector<std::pair<std::string, Ids>> cases = {
        {"", {}},
        {"::", {}},
        {m_folder / "nowhere", {}},
        {good, {"Good1", "Good2"}},
        {":" + good + "::" + good + "/:", {"Good1", "Good2"}},
        {good + ":" + FolderOf("Second"), {"Good1", "Good2", "Second1", "Second2"}},
        {m_folder, {"Second1", "Second2", "Good1", "Good2"}},
    };
    for (const char* const kind : {"NullInstance", "InstanceThrows", "StartupThrows", "StartupFails", "OtherVersion",
                                   "NoVersion", "NoInstance", "MissingSymbol"})
    {
        cases.push_back({FolderOf(kind), {}});
        cases.push_back({FolderOf(kind) + ":" + good, {"Good1", "Good2"}});
    }
    for (const auto& [path, ids] : cases)
    {
        SCOPED_TRACE(path);
        SetPath(path);
        EXPECT_EQ(m_system.Startup(), ids.empty() ? ZltErrorNoTransportLayer : ZltErrorSuccess);
        EXPECT_EQ(m_system.RegisterCameraListObserver(m_observer), ids.empty() ? ZltErrorNotStarted : ZltErrorSuccess);
        EXPECT_EQ(CameraIds(), ids);
        EXPECT_EQ(m_system.Shutdown(), ids.empty() ? ZltErrorNotStarted : ZltErrorSuccess);
    }
}

TEST_F(ZltSystemTest, ListsOfThrowingProvidersAreEmpty)
{
    SetPath(FolderOf("ListsThrow") + ":" + FolderOf("ShutdownThrows"));
    std::vector<InterfacePtr> interfaces(3);
    ASSERT_EQ(m_system.Startup(), ZltErrorSuccess);
    EXPECT_EQ(CameraIds(), (Ids{"ShutdownThrows1", "ShutdownThrows2"}));
    EXPECT_EQ(m_system.GetInterfaces(interfaces), ZltErrorSuccess);
    EXPECT_TRUE(interfaces.empty());
    EXPECT_EQ(m_system.Shutdown(), ZltErrorSuccess);
}

TEST_F(ZltSystemTest, RefusesCallsWhileStopped)
{
    std::vector<CameraPtr> cameras(1);
    std::vector<TransportLayerPtr> layers;
    VersionInfo version;
    for (int round = 0; round < 2; ++round)
    {
        EXPECT_EQ(m_system.GetCameras(cameras), ZltErrorNotStarted);
        EXPECT_EQ(cameras.size(), 1U);
        EXPECT_EQ(m_system.GetTransportLayers(layers), ZltErrorNotStarted);
        EXPECT_EQ(m_system.RegisterCameraListObserver(m_observer), ZltErrorNotStarted);
        EXPECT_EQ(m_system.UnregisterInterfaceListObserver(m_observer), ZltErrorNotStarted);
        EXPECT_EQ(m_system.Shutdown(), ZltErrorNotStarted);
        EXPECT_EQ(m_system.QueryVersion(version), ZltErrorSuccess);
        EXPECT_GT(version.major, 0U);
        Start("Good");
        EXPECT_EQ(m_system.Startup(), ZltErrorSuccess);
        EXPECT_EQ(m_system.Shutdown(), ZltErrorSuccess);
    }
}

TEST_F(ZltSystemTest, RestartsWithoutLeak)
{
    Start("Good");
    std::vector<CameraPtr> kept;
    ASSERT_EQ(m_system.GetCameras(kept), ZltErrorSuccess);
    std::size_t early = 0;
    for (int i = 0; i < 2000; ++i)
    {
        ASSERT_EQ(m_system.Shutdown(), ZltErrorSuccess);
        ASSERT_EQ(m_system.Startup(), ZltErrorSuccess);
        ASSERT_EQ(m_system.RegisterCameraListObserver(m_observer), ZltErrorSuccess);
        ASSERT_EQ(CameraIds().size(), 2U);
        early = i == 200 ? mallinfo2().uordblks : early;
    }
    EXPECT_LT(mallinfo2().uordblks, early + 20000);
    std::string id;
    EXPECT_EQ(kept.at(0)->GetID(id), ZltErrorSuccess);
    EXPECT_EQ(id, "Good1");
}

TEST_F(ZltSystemTest, ForwardsEventsUntilShutdown)
{
    const auto thrower = std::make_shared<CountingObserver>();
    thrower->action = [] { throw 42; };
    Start("Rogue");
    EXPECT_EQ(m_system.RegisterCameraListObserver(nullptr), ZltErrorBadParameter);
    EXPECT_EQ(m_system.UnregisterCameraListObserver(m_observer), ZltErrorNotFound);
    ASSERT_EQ(m_system.RegisterCameraListObserver(thrower), ZltErrorSuccess);
    ASSERT_EQ(m_system.RegisterCameraListObserver(m_observer), ZltErrorSuccess);
    ASSERT_EQ(m_system.RegisterInterfaceListObserver(m_observer), ZltErrorSuccess);
    EXPECT_EQ(m_system.RegisterCameraListObserver(m_observer), ZltErrorInvalidCall);
    EXPECT_TRUE(BecomesTrue([&] { return m_observer->cameraEvents > 3 && m_observer->interfaceEvents > 3; }));

    ASSERT_EQ(m_system.Shutdown(), ZltErrorSuccess);
    const int last = m_observer->cameraEvents + m_observer->interfaceEvents;
    EXPECT_EQ(m_observer.use_count(), 1);
    std::this_thread::sleep_for(20ms);
    EXPECT_EQ(m_observer->cameraEvents + m_observer->interfaceEvents, last);
}

TEST_F(ZltSystemTest, ObserversMayCallBack)
{
    const auto next = std::make_shared<CountingObserver>();
    m_observer->action = [&]
    {
        EXPECT_EQ(m_system.Startup(), ZltErrorInvalidCall);
        EXPECT_EQ(m_system.Shutdown(), ZltErrorInvalidCall);
        EXPECT_EQ(CameraIds().size(), 2U);
        EXPECT_EQ(m_system.UnregisterCameraListObserver(next), ZltErrorSuccess);
        EXPECT_EQ(m_system.UnregisterCameraListObserver(m_observer), ZltErrorSuccess);
    };
    Start("Good");
    std::promise<void> registered;
    const auto first = std::make_shared<CountingObserver>();
    first->action = [&]
    {
        registered.get_future().wait();
        first->action = [] {};
    };
    ASSERT_EQ(m_system.RegisterCameraListObserver(first), ZltErrorSuccess);
    ASSERT_EQ(m_system.RegisterCameraListObserver(m_observer), ZltErrorSuccess);
    ASSERT_EQ(m_system.RegisterCameraListObserver(next), ZltErrorSuccess);
    registered.set_value();
    EXPECT_TRUE(BecomesTrue([&] { return m_observer->cameraEvents == 1 && first->cameraEvents > 3; }));
    m_system.Shutdown();
    EXPECT_EQ(m_observer->cameraEvents, 1);
    EXPECT_EQ(next->cameraEvents, 0);
}

TEST_F(ZltSystemTest, ShutdownWaitsForCallbackThatCallsBack)
{
    std::promise<void> entered;
    std::atomic<bool> left{false};
    m_observer->action = [&]
    {
        std::vector<CameraPtr> cameras;
        entered.set_value();
        EXPECT_TRUE(BecomesTrue([&] { return m_system.GetCameras(cameras) == ZltErrorNotStarted; }));
        std::this_thread::sleep_for(20ms);
        left = true;
    };
    Start("Good");
    ASSERT_EQ(m_system.RegisterCameraListObserver(m_observer), ZltErrorSuccess);
    entered.get_future().wait();
    EXPECT_EQ(m_system.Shutdown(), ZltErrorSuccess);
    EXPECT_TRUE(left);
}

TEST_F(ZltSystemTest, ManyThreadsStartAndStop)
{
    SetPath(FolderOf("Good"));
    std::vector<std::future<void>> threads;
    for (int thread = 0; thread < 4; ++thread)
    {
        threads.push_back(std::async(std::launch::async,
                                     [this]
                                     {
                                         for (int i = 0; i < 100; ++i)
                                         {
                                             EXPECT_EQ(m_system.Startup(), ZltErrorSuccess);
                                             m_system.RegisterCameraListObserver(m_observer);
                                             EXPECT_THAT(CameraIds().size(), testing::AnyOf(0U, 2U));
                                             m_system.UnregisterCameraListObserver(m_observer);
                                             m_system.Shutdown();
                                         }
                                     }));
    }
    for (std::future<void>& thread : threads)
    {
        thread.get();
    }
    EXPECT_EQ(m_observer.use_count(), 1);
}

} // namespace
