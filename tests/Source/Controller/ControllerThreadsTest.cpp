// The controller on a thread of its own, as the window has it, with simulated cameras that are plugged and unplugged.
#include "CameraListUpdates.h"
#include "ListedSystem.h"
#include "SimulatedSystem.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <atomic>
#include <future>
#include <numeric>
#include <random>

using namespace std::chrono_literals;

namespace
{

// The cable tester and the impatient user: every rebuild on one thread meets those of the other.
// LORVANE_SOAK_SECONDS lengthens it.
TEST_F(SimulatedSystem, SoakOfPlugEventsAndRefreshes)
{
    const int duration = std::max(3, qEnvironmentVariableIntValue("LORVANE_SOAK_SECONDS"));
    Window window;
    int sessions = 0;
    std::atomic<bool> isOver{false};
    auto plugging = std::async(std::launch::async,
                               [&]
                               {
                                   for (std::mt19937 random(7); !isOver;)
                                   {
                                       Control({random() % 2 == 0 ? "plug" : "unplug", m_all[random() % m_all.size()]});
                                       std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
                                   }
                               });
    const QDeadlineTimer deadline(duration * 1000);
    for (int refreshes = 0; !deadline.hasExpired(); ++refreshes)
    {
        window.controller->TryRefreshList();
        if (refreshes % 8 == 0 && !window.Ids().empty())
        {
            window.controller->StopIfStreaming();
            window.controller->SetNewIndex(0, QString::fromStdString(window.Ids()[0]));
            window.controller->StartStopAcquisition();
            sessions += window.controller->GetIfStreaming() ? 1 : 0;
        }
        QCoreApplication::processEvents();
        window.controller->GetCameraName("Full");
    }
    isOver = true;
    plugging.get();
    for (const std::string& id : m_all)
    {
        Control({"plug", id});
    }
    EXPECT_TRUE(window.ComesToShow(m_all)) << "in the API's order, with nothing left over";
    window.controller->StopIfStreaming();
    window.controller->SetNewIndex(4, "E");
    window.controller->StartStopAcquisition();
    EXPECT_TRUE(window.controller->GetIfStreaming());
    EXPECT_GT(sessions, 0);
}

// Format and interpolation change under the running stream, from both threads.
TEST_F(SimulatedSystem, FormatsOfALiveCamera)
{
    WriteRig(R"({"id": "C", "model": "OSTREL T-1", "serial": "1", "firmware": "ostrel", "width": 96, "height": 64,
                 "filter": "BayerRG", "frameRate": 200, "scene": "chart"})");
    Window window;
    Controller& controller = *window.controller;
    const auto isColoured = [&]
    {
        window.images.Lock();
        const bool isGrey = window.images.Front()->allGray();
        window.images.Unlock();
        return !isGrey;
    };
    int frames = 0;
    QObject::connect(&controller, &Controller::SendPixmapToArea, &window.view, [&] { ++frames; });
    controller.SetNewIndex(0, "C");
    QMetaObject::invokeMethod(&controller, &Controller::StartStopAcquisition);
    for (const char* const format : {"BayerRG8", "BayerRG12", "BayerRG12Packed", "BayerRG8"})
    {
        QMetaObject::invokeMethod(&controller, [&controller, format] { controller.SetPixelFormat(format); });
        for (const bool debayering : {false, true, true, false})
        {
            controller.SetDebayeringOnOff(debayering);
            ASSERT_TRUE(QTest::qWaitFor([&] { return controller.GetCurrentPixelFormat() == format; }, Patience));
            QCoreApplication::processEvents();
            frames = 0;
            ASSERT_TRUE(QTest::qWaitFor([&] { return frames > 3; }, Patience)) << format;
            EXPECT_EQ(isColoured(), debayering) << format;
        }
    }
}

using ThreadedList = ListedSystem;

// The window closes while the controller's thread is at work on an event, and more of them wait.
TEST_F(ThreadedList, EndsInTheMiddleOfAPlugEvent)
{
    const auto camera = Add("A");
    camera->permitted = 0;
    std::promise<void> atWork;
    std::atomic<int> opened{0};
    {
        Window window;
        camera->permitted = 1;
        camera->On("Open", 0,
                   [&]
                   {
                       ++opened == 1 ? atWork.set_value() : void();
                       std::this_thread::sleep_for(100ms);
                   });
        for (int i = 0; i < 20; ++i)
        {
            provider->Report(camera, ZltApi::UpdateTriggerStateChanged);
        }
        atWork.get_future().wait();
    }
    EXPECT_EQ(opened, 1) << "and knows the camera now";
}

TEST(CameraListUpdatesTest, OrderAcrossThreads)
{
    auto list = std::make_unique<CamerasList>();
    CameraListUpdates updates(list.get());
    // Each character is the ID of a camera; '-' empties the list.
    const auto post = [&](const QString& steps)
    {
        for (const QChar id : steps)
        {
            id == '-' ? updates.PostClear()
                      : updates.Post([id](CamerasList& to) { to.AddItemToList({}, {}, id, {}, {}, true, true); });
        }
    };
    const auto elsewhere = [&](const QString& steps) { std::thread([&] { post(steps); }).join(); };
    const auto shown = [&]
    {
        QCoreApplication::processEvents();
        return std::accumulate(list->GetCamerasList().begin(), list->GetCamerasList().end(), QString(),
                               [](const QString& ids, const CamerasInfo* info) { return ids + info->ID; });
    };
    post("1");
    EXPECT_EQ(list->rowCount(), 1) << "at once on the list's own thread";
    elsewhere("23");
    EXPECT_EQ(list->rowCount(), 1) << "later from another one";
    post("4");
    EXPECT_EQ(list->rowCount(), 4) << "but never after what came later";
    EXPECT_EQ(shown(), "1234");
    elsewhere("56-7");
    elsewhere("8");
    EXPECT_EQ(shown(), "78");
    elsewhere("9");
    list.reset();
    QCoreApplication::processEvents();
    post("0");
}

} // namespace
