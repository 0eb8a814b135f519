// Which cameras are seen, how one is opened, what a start of acquisition sets, and the way of frames through the queue.
#include "ApiController.h"

#include "FrameObserver.h"
#include "ListedSystem.h"

#include <gmock/gmock.h>

#include <QObject>

using testing::ElementsAre;

namespace
{

using Calls = std::vector<std::string>;

class ApiControllerTest : public ListedSystem
{
protected:
    ~ApiControllerTest() override { api.ShutDown(); }
    ApiController api;
};

TEST_F(ApiControllerTest, SeesSupportedTransportLayersOnly)
{
    const std::vector<std::tuple<const char*, const char*, bool>> cases = {
        {"Korvath", "KTR", true},  {"Korvath", "Old KTR GigE", true}, {"Korvath", "Ktr", false},
        {"korvath", "KTR", false}, {"Korvath ", "KTR", false},        {"", "KTR", false},
        {"Korvath", "", false}};
    for (const auto& [vendor, name, seen] : cases)
    {
        SCOPED_TRACE(std::string(vendor) + "/" + name);
        const auto layer = std::make_shared<TestLayer>(vendor, name);
        provider->layers = {provider->foreign, layer};
        provider->cameras = {std::make_shared<ListedCamera>("A", provider->foreign),
                             std::make_shared<ListedCamera>("B", layer), std::make_shared<ListedCamera>("C", nullptr),
                             std::make_shared<ListedCamera>("D", provider->good), // supported, but not announced
                             std::make_shared<ListedCamera>("E", layer)};
        EXPECT_EQ(api.StartUp(), ZltErrorSuccess);
        const auto expected =
            seen ? std::vector{provider->cameras[1], provider->cameras[4]} : std::vector<ZltApi::CameraPtr>();
        EXPECT_EQ(api.GetCameraList(), expected);
        EXPECT_EQ(api.ShutDown(), ZltErrorSuccess);
        EXPECT_TRUE(api.GetCameraList().empty()) << "no list without the API";
    }
}

TEST_F(ApiControllerTest, OpensTwiceToEndALeftOverAcquisition)
{
    const auto first = Add("A");
    const auto second = Add("B");
    EXPECT_EQ(api.CloseCamera(), ZltErrorSuccess) << "nothing to close";
    EXPECT_EQ(api.OpenCamera(first), ZltErrorSuccess);
    EXPECT_THAT(first->calls, ElementsAre("Open", "Stop", "Close", "Open"));
    second->Fail("Open", 1);
    EXPECT_EQ(api.OpenCamera(second), ZltErrorSuccess) << "the second try counts";
    EXPECT_THAT(second->calls, ElementsAre("Open", "Open"));
    first->Close();
    first->permitted = 0;
    EXPECT_EQ(api.OpenCamera(first), ZltErrorInvalidAccess);
    EXPECT_FALSE(second->isOpen) << "the camera before it is closed";
    second->permitted = 1;
    second->Open(ZltApi::AccessModeFull);
    EXPECT_EQ(api.StartContinuousImageAcquisition(), ZltErrorSuccess) << "and stays the current one";
    EXPECT_TRUE(second->observer);
}

TEST_F(ApiControllerTest, SetsTheLargestEvenSize)
{
    const std::vector<std::tuple<std::int64_t, std::int64_t, int>> cases = {
        {1937, 1, 1936}, {1936, 16, 1936}, {1950, 16, 1936}, {45, 5, 40}, {2, 2, 2}, {1937, 0, 0}, {1937, -1, 0}};
    for (const auto& [maximum, increment, expected] : cases)
    {
        SCOPED_TRACE(maximum);
        const auto camera = Add("A");
        (*camera)["Width"].maximum = maximum;
        (*camera)["Width"].increment = increment;
        ApiController fresh;
        ASSERT_EQ(fresh.OpenCamera(camera), ZltErrorSuccess);
        EXPECT_EQ(fresh.StartContinuousImageAcquisition(), ZltErrorSuccess);
        EXPECT_EQ(fresh.GetWidth(), expected);
        EXPECT_EQ(fresh.GetHeight(), expected == 0 ? 0 : 64);
        EXPECT_EQ(camera->observer != nullptr, expected != 0);
    }
}

TEST_F(ApiControllerTest, StartOfAcquisition)
{
    const auto camera = Add("A");
    EXPECT_EQ(api.StartContinuousImageAcquisition(), ZltErrorNotSupported) << "no camera";
    camera->Add("AcquisitionMode", ZltFeatureDataEnumeration, std::string("SingleFrame"));
    ASSERT_EQ(api.OpenCamera(camera), ZltErrorSuccess);
    camera->Fail("Set AcquisitionMode");
    EXPECT_EQ(api.StartContinuousImageAcquisition(), ZltErrorSuccess);
    EXPECT_THAT(camera->changes, ElementsAre("Set AcquisitionMode Continuous", "Run GVSPAdjustPacketSize",
                                             "Set Width 64", "Set Height 64"));
    EXPECT_EQ(camera->stream->adjustment->polls, 3) << "asked until it is done";
    EXPECT_EQ(camera->calls.back(), "Start3");
    EXPECT_EQ(api.GetPixelFormat(), 17U);

    camera->stream->adjustment->result = ZltErrorTimeout;
    camera->stream->adjustment->polls = 0;
    api.StartContinuousImageAcquisition();
    EXPECT_EQ(camera->stream->adjustment->polls, 1) << "an error ends the asking";
    camera->stream->adjustment = nullptr;
    EXPECT_EQ(api.StartContinuousImageAcquisition(), ZltErrorSuccess) << "a camera without the feature";

    for (const char* const failing :
         {"Range Width", "Increment Height", "Set Height", "Find PixelFormat", "Get PixelFormat", "Start3"})
    {
        SCOPED_TRACE(failing);
        camera->observer = nullptr;
        camera->Fail(failing);
        EXPECT_EQ(api.StartContinuousImageAcquisition(), ZltErrorSuccess) << "what fails late is not told";
        EXPECT_EQ(camera->observer != nullptr, std::string(failing) == "Start3");
    }
    camera->stream = nullptr;
    EXPECT_EQ(api.StartContinuousImageAcquisition(), ZltErrorNotSupported);
}

TEST_F(ApiControllerTest, FramesWaitInOrderOrGoStraightBack)
{
    const auto camera = Add("A");
    ASSERT_EQ(api.OpenCamera(camera), ZltErrorSuccess);
    EXPECT_EQ(api.GetFrame(), nullptr);
    api.ClearFrameQueue();
    ASSERT_EQ(api.StartContinuousImageAcquisition(), ZltErrorSuccess);
    const auto observer = camera->observer;
    std::vector<ZltApi::FramePtr> frames;
    for (const int status : {0, 0, -1, 1, 0})
    {
        frames.push_back(std::make_shared<ListedFrame>(status));
    }
    observer->FrameReceived(frames[0]);
    EXPECT_THAT(camera->queued, ElementsAre(frames[0])) << "nobody is waiting";
    std::vector<int> statuses;
    QObject::connect(qobject_cast<FrameObserver*>(api.GetFrameObserver()), &FrameObserver::FrameReceivedSignal,
                     [&](int status) { statuses.push_back(status); });
    for (std::size_t i = 1; i < frames.size(); ++i)
    {
        observer->FrameReceived(frames[i]);
    }
    EXPECT_THAT(statuses, ElementsAre(0, -1, 0)) << "an incomplete frame travels with its status";
    EXPECT_THAT(camera->queued, ElementsAre(frames[0], frames[3])) << "a frame that cannot tell its status";
    EXPECT_EQ(api.GetFrame(), frames[1]);
    EXPECT_EQ(api.GetFrame(), frames[2]);
    EXPECT_EQ(api.QueueFrame(frames[1]), ZltErrorSuccess);
    EXPECT_EQ(camera->queued.back(), frames[1]);
    api.ClearFrameQueue();
    EXPECT_EQ(api.GetFrame(), nullptr);
    EXPECT_EQ(frames[4].use_count(), 1) << "a dropped frame is let go";
    observer->FrameReceived(frames[4]);
    api.StartContinuousImageAcquisition();
    EXPECT_EQ(api.GetFrame(), nullptr) << "each acquisition has a queue of its own";
}

} // namespace
