// Start-up with good and broken providers, and the road of events to the observers.
#include "ZltApi/ZltSystem.h"
#include "../ProviderTools.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <thread>

using namespace ZltApi;
using namespace std::chrono_literals;
using ProviderTest::BecomesTrue;
namespace fs = std::filesystem;

namespace
{

using Names = std::vector<std::string>;

struct CountingObserver final : ICameraListObserver, IInterfaceListObserver
{
    void CameraListChanged(CameraPtr, UpdateTriggerType reason) override
    {
        cameraEvents += reason == UpdateTriggerStateChanged ? 1 : 0;
        action();
    }
    void InterfaceListChanged(InterfacePtr, UpdateTriggerType reason) override
    {
        interfaceEvents += reason == UpdateTriggerUnplugged ? 1 : 0;
    }

    std::atomic<int> cameraEvents{0};
    std::atomic<int> interfaceEvents{0};
    std::function<void()> action = [] {};
};

class ZltSystemTest : public testing::Test
{
protected:
    void TearDown() override { m_system.Shutdown(); }

    static std::string FolderOf(const std::string& kind) { return std::string(TEST_PROVIDERS) + "/" + kind; }
    ZltErrorType StartWith(const std::string& path)
    {
        setenv("ZLT_PROVIDER_PATH", path.c_str(), 1);
        return m_system.Startup();
    }
    Names LayerNames()
    {
        std::vector<TransportLayerPtr> layers;
        m_system.GetTransportLayers(layers);
        Names names;
        for (const auto& layer : layers)
        {
            layer->GetName(names.emplace_back());
        }
        return names;
    }

    ZltSystem& m_system = ZltSystem::GetInstance();
    const std::shared_ptr<CountingObserver> m_observer = std::make_shared<CountingObserver>();
};

TEST_F(ZltSystemTest, SkipsProvidersThatItCannotUse)
{
    const fs::path folder = fs::path(testing::TempDir()) / ("zlt-system-" + std::to_string(getpid()));
    fs::create_directories(folder / "folder.so");
    std::ofstream(folder / "text.so") << "no library";
    fs::create_symlink(folder / "nowhere", folder / "dangling.so");
    fs::create_symlink(FolderOf("Second") + "/provider.so", folder / "a.so");
    fs::create_symlink(FolderOf("Good") + "/provider.so", folder / "b.so");
    fs::create_symlink(FolderOf("Good") + "/provider.so", folder / "c.so");
    fs::copy_file(FolderOf("Rogue") + "/provider.so", folder / "other.so.1");
    fs::create_directory(folder / "again");
    fs::create_hard_link(fs::canonical(folder / "b.so"), folder / "again" / "linked.so");

    const std::string good = FolderOf("Good");
    const Names goodNames = {"Good1", "Good2"};
    std::vector<CameraPtr> cameras;
    std::vector<std::pair<std::string, Names>> cases = {
        {"", {}},
        {folder / "nowhere", {}},
        {":" + good + "::" + good + "/:" + (folder / "again").string(), goodNames},
        {folder, {"Second1", "Second2", "Good1", "Good2"}},
        {FolderOf("ListsThrow") + ":" + FolderOf("ShutdownThrows"), {"ShutdownThrows1", "ShutdownThrows2"}},
    };
    for (const char* const kind : {"NullInstance", "InstanceThrows", "StartupThrows", "StartupFails", "OtherVersion",
                                   "NoVersion", "NoInstance", "MissingSymbol"})
    {
        cases.push_back({FolderOf(kind) + ":" + good, goodNames});
    }
    for (const auto& [path, names] : cases)
    {
        SCOPED_TRACE(path);
        const auto result = names.empty() ? ZltErrorNotStarted : ZltErrorSuccess;
        EXPECT_EQ(m_system.UnregisterInterfaceListObserver(m_observer), ZltErrorNotStarted);
        for (int round = 0; round < 2; ++round)
        {
            EXPECT_EQ(StartWith(path), names.empty() ? ZltErrorNoTransportLayer : ZltErrorSuccess);
        }
        EXPECT_EQ(m_system.RegisterCameraListObserver(m_observer), result);
        EXPECT_EQ(m_system.GetCameras(cameras), result); // the providers throw here
        EXPECT_EQ(LayerNames(), names);
        EXPECT_EQ(m_system.Shutdown(), result);
    }
    fs::remove_all(folder);
}

TEST_F(ZltSystemTest, RestartsWithoutLeakWhileOthersCall)
{
    ASSERT_EQ(StartWith(FolderOf("Good")), ZltErrorSuccess);
    std::vector<TransportLayerPtr> kept;
    ASSERT_EQ(m_system.GetTransportLayers(kept), ZltErrorSuccess);
    std::atomic<bool> done{false};
    std::thread caller(
        [&]
        {
            for (const auto other = std::make_shared<CountingObserver>(); !done;)
            {
                m_system.RegisterCameraListObserver(other);
                EXPECT_THAT(LayerNames().size(), testing::AnyOf(0U, 2U));
                m_system.UnregisterCameraListObserver(other);
            }
        });
    std::size_t early = 0;
    for (int i = 0; i < 2000; ++i)
    {
        EXPECT_EQ(m_system.Shutdown(), ZltErrorSuccess);
        EXPECT_EQ(m_system.Startup(), ZltErrorSuccess);
        EXPECT_EQ(m_system.RegisterCameraListObserver(m_observer), ZltErrorSuccess);
        EXPECT_EQ(LayerNames().size(), 2U);
        early = i == 200 ? mallinfo2().uordblks : early;
    }
    done = true;
    caller.join();
    EXPECT_LT(mallinfo2().uordblks, early + 20000);
    std::string name;
    kept.at(0)->GetName(name);
    EXPECT_EQ(name, "Good1") << "what was handed out outlives its start";
}

TEST_F(ZltSystemTest, ForwardsEventsUntilShutdown)
{
    const auto thrower = std::make_shared<CountingObserver>();
    thrower->action = [] { throw 42; };
    ASSERT_EQ(StartWith(FolderOf("Rogue")), ZltErrorSuccess);
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
    std::atomic<bool> ready{false};
    std::atomic<int> last{-1};
    m_observer->action = [&]
    {
        if (ready)
        {
            EXPECT_EQ(m_system.Startup(), ZltErrorInvalidCall);
            EXPECT_EQ(m_system.Shutdown(), ZltErrorInvalidCall);
            EXPECT_EQ(LayerNames().size(), 2U);
            EXPECT_EQ(m_system.UnregisterCameraListObserver(next), ZltErrorSuccess);
            EXPECT_EQ(m_system.UnregisterCameraListObserver(m_observer), ZltErrorSuccess);
            last = next->cameraEvents.load();
        }
    };
    ASSERT_EQ(StartWith(FolderOf("Good")), ZltErrorSuccess);
    ASSERT_EQ(m_system.RegisterCameraListObserver(m_observer), ZltErrorSuccess);
    ASSERT_EQ(m_system.RegisterCameraListObserver(next), ZltErrorSuccess);
    ready = true;
    EXPECT_TRUE(BecomesTrue([&] { return last >= 0; }));
    m_system.Shutdown();
    EXPECT_EQ(next->cameraEvents, last);
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
    ASSERT_EQ(StartWith(FolderOf("Rogue")), ZltErrorSuccess);
    ASSERT_EQ(m_system.RegisterCameraListObserver(m_observer), ZltErrorSuccess);
    entered.get_future().wait();
    EXPECT_EQ(m_system.Shutdown(), ZltErrorSuccess);
    EXPECT_TRUE(left);
}

} // namespace
