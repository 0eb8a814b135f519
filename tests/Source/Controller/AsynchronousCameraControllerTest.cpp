// The controller on one thread: the displayed list through plug events and rebuilds, and sessions with a camera.
#include "AsynchronousCameraController.h"

#include "CameraStreamStateHolder.h"
#include "CamerasList.h"
#include "CustomListView.h"
#include "Exception.h"
#include "ImageDoubleBuffer.h"
#include "ListedSystem.h"
#include "RememberedCameras.h"

#include <gmock/gmock.h>

#include <QCoreApplication>

#include <future>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

using Controller = AsynchronousCameraController;
using Rows = std::vector<std::string>;

class ControllerTest : public ListedSystem
{
protected:
    ~ControllerTest() override { Stop(); }

    Controller& Start(int index = -1, const QString& id = QString())
    {
        controller = std::make_unique<Controller>(&view, index, id, false, images);
        const auto note = [this](const char* name) { return [this, name] { signalLog.push_back(name); }; };
        QObject::connect(controller.get(), &Controller::CamerasListChangedSignal, note("changed"));
        QObject::connect(controller.get(), &Controller::SendCloseCameraIfBusy, note("busy"));
        QObject::connect(controller.get(), &Controller::CameraDisconnected, note("disconnected"));
        QObject::connect(controller.get(), &Controller::ErrorSignal,
                         [this](const QString& text)
                         {
                             signalLog.push_back(text.toStdString());
                             // Another thread goes on while a window shows the message.
                             std::async(std::launch::async, [this] { controller->GetCameraId(); }).wait();
                         });
        return *controller;
    }
    void Stop() { controller.reset(); }
    void Report(const ZltApi::CameraPtr& camera, ZltApi::UpdateTriggerType reason)
    {
        provider->Report(camera, reason);
        QCoreApplication::processEvents();
    }
    // One row a camera: ID, whether it can be opened, whether it supports the correction, whether it has the badge.
    Rows Shown() const
    {
        Rows rows;
        const CamerasList& list = *view.GetCamerasList();
        for (int row = 0; row < list.rowCount(); ++row)
        {
            const CamerasInfo& info = *list.GetCamerasList().at(row);
            rows.push_back(info.ID.toStdString() + (info.access ? " free" : " taken") + (info.dpc ? " dpc" : "") +
                           (view.indexWidget(list.index(row)) != nullptr ? " badge" : ""));
        }
        return rows;
    }
    Rows Signals() { return std::exchange(signalLog, {}); }
    void Unplug(const ZltApi::CameraPtr& camera)
    {
        provider->Unplug(camera);
        QCoreApplication::processEvents();
    }

    CustomListView view;
    ImageDoubleBuffer images;
    std::unique_ptr<Controller> controller;
    Rows signalLog;
};

TEST_F(ControllerTest, ExaminesWhatItDoesNotRemember)
{
    CamerasInfoWriterReader().SetInformationToFile(
        {{true, "KNOWN"}, {true, "TWICE"}, {false, "TWICE"}, {true, "DUMB"}});
    const std::vector<std::shared_ptr<ListedCamera>> cameras = {
        Add("OSTREL"), Add("PLAIN", "Plain 1"), Add("HELD"), Add("KNOWN"), Add("TWICE"), Add("DUMB"), Add("")};
    cameras[2]->permitted = 0;
    cameras[3]->permitted = ZltApi::AccessModeRead;
    cameras[5]->permitted = -1;
    cameras[5]->texts = {{"ID", "DUMB"}, {"Name", ""}, {"Model", ""}, {"Serial", ""}, {"Interface", ""}};
    Start();
    EXPECT_THAT(Shown(), ElementsAre("OSTREL free dpc", "PLAIN free badge", "HELD taken badge", "KNOWN taken dpc",
                                     "TWICE free badge", "DUMB free dpc"));
    EXPECT_THAT(cameras[0]->calls, ElementsAre("Open", "Close"));
    EXPECT_THAT(cameras[3]->calls, IsEmpty()) << "a remembered camera is not opened";
    const CamerasInfo& dumb = *view.GetCamerasList()->GetCamerasList().at(5);
    EXPECT_EQ(dumb.model + dumb.serial + dumb.name + dumb.interfaceID,
              "[NoModelName][NoSerialNumber][NoName][NoInterfaceID]");

    cameras[2]->permitted = 1;
    Report(nullptr, ZltApi::UpdateTriggerStateChanged);
    controller->TryRefreshList();
    EXPECT_EQ(Shown()[2], "HELD free dpc") << "looked at again with each rebuild until it can be opened";
    EXPECT_THAT(cameras[0]->calls, ElementsAre("Open", "Close")) << "and the others only once";
    Unplug(cameras[0]);
    Stop();
    EXPECT_EQ(RememberedCameras(), "KNOWN=1 TWICE=1 TWICE=0 DUMB=1 PLAIN=0 ")
        << "an unplugged camera is forgotten; what a rebuild learnt is not kept for the next run";
}

TEST_F(ControllerTest, AccessChanges)
{
    const auto selected = Add("SELECTED");
    const auto other = Add("OTHER");
    const auto held = Add("HELD", "Plain 1");
    held->permitted = 0;
    Start().SetNewIndex(0, "SELECTED");
    selected->permitted = 0; // as we hold it ourselves
    other->permitted = 0;
    held->permitted = 1;
    Report(other, ZltApi::UpdateTriggerStateChanged);
    EXPECT_THAT(Shown(), ElementsAre("SELECTED free dpc", "OTHER taken dpc", "HELD free badge"));
    EXPECT_TRUE(selected->isOpen);
    other->permitted = 1;
    Report(other, ZltApi::UpdateTriggerStateChanged);
    EXPECT_EQ(Shown()[1], "OTHER free dpc");
    EXPECT_THAT(Signals(), IsEmpty());
    Stop();
    EXPECT_THAT(RememberedCameras(), testing::HasSubstr("HELD=0 "));
    EXPECT_FALSE(selected->isOpen);
}

TEST_F(ControllerTest, EventsOfForeignCamerasAndUnknownReasons)
{
    Start();
    const auto foreign = std::make_shared<ListedCamera>("F", provider->foreign);
    const auto silent = std::make_shared<ListedCamera>("S", nullptr);
    Add("LATER");
    Report(foreign, ZltApi::UpdateTriggerPluggedIn);
    EXPECT_THAT(Shown(), IsEmpty()) << "not even a rebuild";
    EXPECT_THAT(Signals(), IsEmpty());
    Report(silent, ZltApi::UpdateTriggerType(9));
    EXPECT_THAT(Shown(), ElementsAre("LATER free dpc"));
    Add("MORE");
    provider->ReportInterface();
    QCoreApplication::processEvents();
    EXPECT_THAT(Shown(), ElementsAre("LATER free dpc", "MORE free dpc"));
    EXPECT_THAT(Signals(), ElementsAre("changed", "busy", "changed", "busy")) << "each rebuild without a selection";
}

TEST_F(ControllerTest, UnpluggedWhileStreaming)
{
    const auto other = Add("OTHER");
    const auto camera = Add("A");
    Start().SetNewIndex(1, "A");
    controller->StartStopAcquisition();
    Unplug(other);
    EXPECT_TRUE(controller->GetIfStreaming()) << "another camera's cable";
    EXPECT_THAT(Signals(), IsEmpty());
    EXPECT_EQ(images.Front()->size(), QSize(64, 64));
    Unplug(camera);
    EXPECT_FALSE(controller->GetIfStreaming() || camera->isOpen);
    EXPECT_TRUE(images.Front()->isNull());
    EXPECT_THAT(Shown(), IsEmpty());
    EXPECT_THAT(Signals(), ElementsAre("disconnected", "changed", "busy"));
    controller->StartStopAcquisition();
    EXPECT_THAT(Signals(), IsEmpty()) << "nothing is selected any more";
}

TEST_F(ControllerTest, SelectionFollowsTheIdThroughRebuilds)
{
    const auto camera = Add("A", "OSTREL S-1");
    Start().SetNewIndex(0, "A");
    Signals();
    provider->cameras.insert(provider->cameras.begin(), std::make_shared<ListedCamera>("B", provider->good));
    Report(provider->cameras[0], ZltApi::UpdateTriggerPluggedIn);
    EXPECT_THAT(Shown(), ElementsAre("B free dpc", "A free dpc"));
    EXPECT_TRUE(camera->isOpen);
    controller->StartStopAcquisition();
    EXPECT_TRUE(camera->observer) << "at its new position";
    EXPECT_EQ(controller->GetCameraName("Full"), "OSTREL S-1-7(A)");
    EXPECT_EQ(controller->GetCameraName(""), "OSTREL S-1");
    EXPECT_EQ(controller->GetCameraId(), "A");
    EXPECT_THAT(Signals(), IsEmpty());

    provider->cameras.pop_back(); // gone, and its event is still on the way
    controller->TryRefreshList();
    EXPECT_FALSE(controller->GetIfStreaming());
    EXPECT_THAT(Signals(), ElementsAre("changed", "busy")) << "a camera of the same model does not take its place";
    Report(camera, ZltApi::UpdateTriggerUnplugged);
    EXPECT_THAT(Signals(), ElementsAre("disconnected", "changed", "busy"));
}

TEST_F(ControllerTest, MessagesOfAFailedStart)
{
    const Rows notOnList = {
        "Camera can't be opened, \n because could be in use by another application, or isn't on the "
        "list",
        "busy"};
    const Rows noStream = {"Cannot open camera stream", "busy"};
    const std::vector<std::tuple<const char*, int, const char*, int, Rows>> cases = {
        {"another camera at the position", 0, "B", 1, notOnList},
        {"past the end", 2, "A", 1, notOnList},
        {"held elsewhere", 0, "A", 0, noStream},
        {"no selection", -1, "", 1, {}},
        {"works", 1, "B", 1, {}}};
    for (const auto& [what, index, id, permitted, expected] : cases)
    {
        SCOPED_TRACE(what);
        provider->cameras.clear();
        const auto a = Add("A");
        const auto b = Add("B");
        a->permitted = permitted;
        Start().SetNewIndex(index, id);
        Signals();
        controller->StartStopAcquisition();
        EXPECT_EQ(Signals(), expected);
        EXPECT_EQ(controller->GetIfStreaming(), index == 1);
        controller->StartStopAcquisition();
        EXPECT_EQ(Signals(), expected == noStream ? noStream : Rows()) << "toggled again";
        EXPECT_FALSE(controller->GetIfStreaming());
    }
}

TEST_F(ControllerTest, TheStreamRestsUntilTheLastHolderIsGone)
{
    const auto camera = Add("A");
    Start().SetNewIndex(0, "A");
    controller->StartStopAcquisition();
    for (int round = 0; round < 3; ++round)
    {
        {
            const CameraStreamStateHolder outer(*controller);
            const CameraStreamStateHolder inner(*controller);
            EXPECT_FALSE(controller->GetIfStreaming());
            EXPECT_THAT(std::vector(camera->calls.end() - 2, camera->calls.end()), ElementsAre("Stop", "Release"));
        }
        EXPECT_TRUE(controller->GetIfStreaming());
    }
    Stop();
    EXPECT_EQ(camera->calls.back(), "Close");
}

TEST_F(ControllerTest, EntrySetupAndReset)
{
    const auto camera = Add("A", "Vesk");
    camera->Add("WidthMax", ZltFeatureDataInteger, std::int64_t{1936});
    camera->Add("HeightMax", ZltFeatureDataInteger, std::int64_t{1216});
    camera->Add("DeviceFamilyName", ZltFeatureDataString, std::string("OSTREL"));
    std::vector<int> kinds = {77};
    bool dpc = false;
    QPoint size;
    Start().SetNewIndex(0, "A");
    controller->GetEntryCamerasSetup(kinds, dpc, size);
    EXPECT_TRUE(dpc);
    EXPECT_EQ(size, QPoint(1936, 1216));
    EXPECT_THAT(kinds, ElementsAre(77));
    EXPECT_EQ(Signals().size(), 1U) << "the adapter's message";
    camera->Add("SensorWidth", ZltFeatureDataInteger, std::int64_t{1936});
    camera->Add("SensorHeight", ZltFeatureDataInteger, std::int64_t{1216});
    controller->GetEntryCamerasSetup(kinds, dpc, size);
    EXPECT_THAT(kinds, ElementsAre(77, 0, 5, 2)) << "appended, in the adapter's order";
    EXPECT_EQ(controller->getCurrentCameraFamilyName(), "OSTREL");
    EXPECT_THROW(controller->ResetCamera(), KTR::System::Exception);
    camera->Add("DeviceReset", ZltFeatureDataCommand, false);
    camera->changes.clear();
    controller->ResetCamera();
    EXPECT_THAT(camera->changes, ElementsAre("Run DeviceReset"));
}

} // namespace
